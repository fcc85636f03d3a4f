#include "platform/linux/inventory/linux_wmi.h"

#include <algorithm>
#include <map>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/inventory/record_classes.h"

namespace velmora::linuxhost {

namespace {

constexpr std::string_view ownNameSpace = R"(root\cimv2)";

class ReadRecord final : public WmiObject {
  public:
    explicit ReadRecord(Record record) {
        for (auto& [name, text] : record) values_.emplace(lowerCase(name), std::move(text));
    }

    std::vector<WmiValue> Properties(const std::vector<std::string>& names) override {
        std::vector<WmiValue> values;
        for (const std::string& name : names) {
            const auto found = values_.find(lowerCase(name));
            values.push_back(found == values_.end() ? WmiValue{} : WmiValue::of(found->second));
        }
        return values;
    }

  private:
    std::map<std::string, std::string> values_;
};

class RunningQuery final : public WmiObjectSet {
  public:
    RunningQuery(std::shared_ptr<RecordReader> reader, const std::string& className)
        : reader_(std::move(reader)), number_(reader_->begin(className)) {}
    ~RunningQuery() override { reader_->end(number_); }
    RunningQuery(const RunningQuery&) = delete;
    RunningQuery& operator=(const RunningQuery&) = delete;

    std::unique_ptr<WmiObject> Next() override {
        auto record = reader_->next(number_);
        return record ? std::make_unique<ReadRecord>(std::move(*record)) : nullptr;
    }

  private:
    std::shared_ptr<RecordReader> reader_;
    std::uint32_t number_;
};

class Connection final : public WmiServices {
  public:
    Connection(const HostSources& host, std::chrono::milliseconds deadline)
        : reader_(std::make_shared<RecordReader>(
              [host](const std::string& className) { return openRecordClass(className, host); },
              deadline)) {}

    std::unique_ptr<WmiObjectSet> ExecQuery(const std::string& query, const std::string& language,
                                            std::int32_t /*flags*/) override {
        const std::string className = queriedClass(query);
        if (lowerCase(language) != "wql" || !isRecordClass(className))
            throw RuntimeError(error::automation);
        return std::make_unique<RunningQuery>(reader_, className);
    }

    std::unique_ptr<WmiObject> Get(const std::string& path) override {
        auto account = reader_->account(path);
        if (!account) throw RuntimeError(error::automation);
        return std::make_unique<ReadRecord>(std::move(*account));
    }

  private:
    std::shared_ptr<RecordReader> reader_;
};

// Whether it is "winmgmts:", back-slashes, this machine's name and its usual name space.
bool isOwnMoniker(const std::string& moniker) {
    constexpr std::string_view scheme = "winmgmts:";
    const std::string text = lowerCase(moniker);
    if (!text.starts_with(scheme)) return false;
    const std::size_t place = text.find_first_not_of('\\', scheme.size());
    return place != std::string::npos && place > scheme.size() &&
           text.substr(place) == ".\\" + std::string(ownNameSpace);
}

}  // namespace

std::unique_ptr<WmiServices> LinuxWmi::GetObject(const std::string& moniker) {
    if (!isOwnMoniker(moniker)) throw RuntimeError(error::automation);
    return std::make_unique<Connection>(host_, deadline_);
}

std::unique_ptr<WmiServices> LinuxWmi::ConnectServer(const std::string& server,
                                                     const std::string& nameSpace) {
    if (server != "." || lowerCase(nameSpace) != ownNameSpace)
        throw RuntimeError(error::automation);
    return std::make_unique<Connection>(host_, deadline_);
}

}  // namespace velmora::linuxhost
