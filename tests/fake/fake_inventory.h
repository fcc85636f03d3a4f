// What the machine in memory tells about itself: management records, running processes, programs
// with output.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/processes.h"
#include "platform/wmi.h"

namespace velmora::fake {

/// A record: its properties by name.
using FakeRecord = std::map<std::string, WmiValue>;

class FakeWmi final : public Wmi {
  public:
    std::unique_ptr<WmiServices> GetObject(const std::string& moniker) override {
        call("GetObject " + moniker);
        return std::make_unique<Services>(*this);
    }
    std::unique_ptr<WmiServices> ConnectServer(const std::string& server,
                                               const std::string& nameSpace) override {
        call("ConnectServer " + server + ' ' + nameSpace);
        return std::make_unique<Services>(*this);
    }

    /// The n-th call from now (from 1) raises error 440, once.
    void failCall(int n) { failAt_ = n; }

    std::map<std::string, std::vector<FakeRecord>> classes;  ///< records by the class's name
    std::map<std::string, FakeRecord> objects;               ///< records by their paths
    std::vector<std::string> calls;  ///< in order; "Next" and "Properties" without arguments

  private:
    class Object final : public WmiObject {
      public:
        Object(FakeWmi& owner, FakeRecord record) : owner_(owner), record_(std::move(record)) {}
        std::vector<WmiValue> Properties(const std::vector<std::string>& names) override {
            owner_.call("Properties");
            std::vector<WmiValue> values;
            for (const std::string& name : names) values.push_back(valueOf(name));
            return values;
        }

      private:
        WmiValue valueOf(const std::string& name) const {
            for (const auto& [own, value] : record_) {
                if (lowerCase(own) == lowerCase(name)) return value;
            }
            return {};
        }
        FakeWmi& owner_;
        FakeRecord record_;
    };

    class Set final : public WmiObjectSet {
      public:
        Set(FakeWmi& owner, std::vector<FakeRecord> records)
            : owner_(owner), records_(std::move(records)) {}
        std::unique_ptr<WmiObject> Next() override {
            owner_.call("Next");
            if (next_ == records_.size()) return nullptr;
            return std::make_unique<Object>(owner_, records_[next_++]);
        }

      private:
        FakeWmi& owner_;
        std::vector<FakeRecord> records_;
        std::size_t next_ = 0;
    };

    class Services final : public WmiServices {
      public:
        explicit Services(FakeWmi& owner) : owner_(owner) {}
        std::unique_ptr<WmiObjectSet> ExecQuery(const std::string& query,
                                                const std::string& language,
                                                std::int32_t flags) override {
            owner_.call("ExecQuery " + query + ' ' + language + ' ' + std::to_string(flags));
            const auto found = owner_.classes.find(query.substr(query.rfind(' ') + 1));
            if (found == owner_.classes.end()) throw RuntimeError(error::automation);
            return std::make_unique<Set>(owner_, found->second);
        }
        std::unique_ptr<WmiObject> Get(const std::string& path) override {
            owner_.call("Get " + path);
            const auto found = owner_.objects.find(path);
            if (found == owner_.objects.end()) throw RuntimeError(error::automation);
            return std::make_unique<Object>(owner_, found->second);
        }

      private:
        FakeWmi& owner_;
    };

    void call(std::string what) {
        calls.push_back(std::move(what));
        if (failAt_ > 0 && --failAt_ == 0) throw RuntimeError(error::automation);
    }

    int failAt_ = 0;
};

struct FakeProcess {
    std::uint32_t id = 0;
    std::string name;        ///< of its executable
    std::string path = {};   ///< of its first module
    bool opens = true;       ///< whether it can be opened
    bool hasModules = true;  ///< whether its modules can be read
};

class FakeProcesses final : public Processes {
  public:
    SystemHandle CreateToolhelp32Snapshot(std::uint32_t flags, std::uint32_t processId) override {
        calls.push_back("CreateToolhelp32Snapshot " + std::to_string(flags) + ' ' +
                        std::to_string(processId));
        if (failsWith != 0) throw RuntimeError(failsWith);
        next_ = 0;
        if (snapshot > 0) open(snapshot);
        return snapshot;
    }
    bool Process32First(SystemHandle handle, ProcessEntry32& entry) override {
        next_ = 0;
        return Process32Next(handle, entry);
    }
    bool Process32Next(SystemHandle handle, ProcessEntry32& entry) override {
        if (handle != snapshot || !open_.contains(handle)) return false;
        if (entry.dwSize != process_list::entryRecord) return false;
        if (next_ == running.size()) return false;
        entry.th32ProcessID = running[next_].id;
        entry.szExeFile = running[next_++].name;
        return true;
    }
    bool EnumProcesses(std::vector<std::uint32_t>& ids, std::uint32_t bytes,
                       std::uint32_t& reported) override {
        calls.push_back("EnumProcesses " + std::to_string(bytes) + " of " +
                        std::to_string(ids.size() * 4) + ", " + std::to_string(reported));
        if (failsWith != 0) throw RuntimeError(failsWith);
        if (!enumerates) return false;
        const std::size_t count = std::min<std::size_t>(bytes / 4, running.size());
        for (std::size_t i = 0; i < count; ++i) ids.at(i) = running[i].id;
        reported = static_cast<std::uint32_t>(count * 4);
        return true;
    }
    SystemHandle OpenProcess(std::uint32_t access, std::int32_t inherit,
                             std::uint32_t id) override {
        calls.push_back("OpenProcess " + std::to_string(access) + ' ' + std::to_string(inherit) +
                        ' ' + std::to_string(id));
        const auto found = std::find_if(running.begin(), running.end(),
                                        [id](const FakeProcess& each) { return each.id == id; });
        if (found == running.end() || !found->opens) return 0;
        return open(firstHandle + (found - running.begin()));
    }
    bool EnumProcessModules(SystemHandle process, std::vector<std::uint64_t>& modules,
                            std::uint32_t bytes, std::uint32_t& needed) override {
        calls.push_back("EnumProcessModules " + std::to_string(bytes));
        const FakeProcess* asked = opened(process);
        if (asked == nullptr || !asked->hasModules) return false;
        modules.at(0) = firstModule + asked->id;
        needed = sizeof(std::uint64_t);
        return true;
    }
    std::uint32_t GetModuleFileNameExA(SystemHandle process, std::uint64_t module,
                                       std::string& buffer, std::uint32_t size) override {
        calls.push_back("GetModuleFileNameExA " + std::to_string(size) + " in " +
                        std::to_string(buffer.size()));
        const FakeProcess* asked = opened(process);
        if (asked == nullptr || module != firstModule + asked->id) return 0;
        const std::size_t length = std::min({asked->path.size(), std::size_t{size}, buffer.size()});
        buffer.replace(0, length, asked->path, 0, length);
        return static_cast<std::uint32_t>(length);
    }
    bool CloseHandle(SystemHandle handle) override {
        const auto found = open_.find(handle);
        if (found == open_.end()) return false;
        open_.erase(found);
        --openHandles;
        return true;
    }

    std::vector<FakeProcess> running;
    SystemHandle snapshot = 77;  ///< the handle of a snapshot, -1 for none
    bool enumerates = true;      ///< whether EnumProcesses gives anything
    int failsWith = 0;           ///< the error that listing raises; 0 for none
    int openHandles = 0;         ///< opened and not closed
    std::vector<std::string> calls;

    static constexpr SystemHandle firstHandle = 500;  ///< of the process that runs first

  private:
    SystemHandle open(SystemHandle handle) {
        ++openHandles;
        return *open_.insert(handle);
    }
    const FakeProcess* opened(SystemHandle process) const {
        if (process < firstHandle || !open_.contains(process)) return nullptr;
        return &running.at(static_cast<std::size_t>(process - firstHandle));
    }

    static constexpr std::uint64_t firstModule = 0x400000;
    std::multiset<SystemHandle> open_;
    std::size_t next_ = 0;
};

}  // namespace velmora::fake
