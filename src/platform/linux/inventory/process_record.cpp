#include "platform/linux/inventory/process_record.h"

#include <limits>
#include <utility>
#include <vector>

#include "platform/linux/inventory/cim_time.h"
#include "platform/linux/inventory/host_file.h"
#include "platform/linux/inventory/record_text.h"

namespace velmora::linuxhost {

namespace {

constexpr std::uint64_t bytesPerKilobyte = 1024;
constexpr std::uint64_t timeUnits = 10'000'000;  // of 100 ns in a second
constexpr std::int64_t microseconds = 1'000'000;

// Places of the fields behind the short name, from 0, as proc(5) lists them.
namespace stat_field {
constexpr std::size_t parent = 1;
constexpr std::size_t session = 3;
constexpr std::size_t minorFaults = 7;
constexpr std::size_t majorFaults = 9;
constexpr std::size_t userTime = 11;
constexpr std::size_t kernelTime = 12;
constexpr std::size_t priority = 15;
constexpr std::size_t threads = 17;
constexpr std::size_t startTime = 19;
constexpr std::size_t virtualSize = 20;
constexpr std::size_t residentPages = 21;
}  // namespace stat_field

// The short name may contain blanks and brackets; no field behind it does.
class StatFields {
  public:
    explicit StatFields(std::string_view stat) {
        const auto end = stat.rfind(')');
        if (end == std::string_view::npos) return;
        auto rest = stat.substr(end + 1);
        if (const auto line = rest.find('\n'); line != std::string_view::npos)
            rest = rest.substr(0, line);
        while (true) {
            const auto start = rest.find_first_not_of(' ');
            if (start == std::string_view::npos) return;
            rest.remove_prefix(start);
            fields_.push_back(rest.substr(0, rest.find(' ')));
            rest.remove_prefix(fields_.back().size());
        }
    }

    bool isWhole() const { return fields_.size() > stat_field::residentPages; }
    std::optional<std::uint64_t> count(std::size_t field) const {
        return unsignedNumber(fields_[field]);
    }
    std::optional<std::int64_t> number(std::size_t field) const {
        return signedNumber(fields_[field]);
    }

  private:
    std::vector<std::string_view> fields_;
};

// A record in the making: a property without a value is left out.
class ProcessProperties {
  public:
    void text(const char* property, std::string value) {
        if (!value.empty()) record_[property] = std::move(value);
    }
    template <typename Number>
    void number(const char* property, std::optional<Number> value) {
        if (value) record_[property] = std::to_string(*value);
    }
    Record take() { return std::move(record_); }

  private:
    Record record_;
};

// Nothing when it is beyond 64 bits.
std::optional<std::uint64_t> times(std::optional<std::uint64_t> value, std::uint64_t factor) {
    if (!value || *value > std::numeric_limits<std::uint64_t>::max() / factor) return std::nullopt;
    return *value * factor;
}

std::optional<std::uint64_t> sum(std::optional<std::uint64_t> a, std::optional<std::uint64_t> b) {
    if (!a || !b) return std::nullopt;
    return *a + *b;
}

std::optional<std::uint64_t> timeOf(std::optional<std::uint64_t> ticks, std::int64_t perSecond) {
    const auto units = times(ticks, timeUnits);
    if (!units) return std::nullopt;
    return *units / static_cast<std::uint64_t>(perSecond);
}

std::string creationTime(const ProcessHost& host, std::optional<std::uint64_t> startTicks) {
    constexpr std::uint64_t most = std::uint64_t{1} << 40;  // three centuries of ticks, at least
    if (!startTicks || *startTicks > most || host.bootTime == 0) return {};
    const auto ticks = static_cast<std::int64_t>(*startTicks);
    return cimTime((host.bootTime + ticks / host.ticks) * microseconds +
                   ticks % host.ticks * microseconds / host.ticks);
}

void addNames(ProcessProperties& properties, const ProcessHost& host, const ProcessFiles& files) {
    const std::string name = processName(files.exe, files.stat);
    for (const char* property : {"Caption", "Description", "Name"}) properties.text(property, name);
    properties.text("CSName", host.name);
    properties.text("OSName", host.system);
    for (const char* property : {"Handle", "ProcessId"})
        properties.number(property, std::optional(files.id));
    if (files.exe) properties.text("ExecutablePath", executablePathOf(*files.exe));
    properties.number("HandleCount", files.descriptors);
}

void addStat(ProcessProperties& properties, const ProcessHost& host, const StatFields& stat) {
    using namespace stat_field;
    properties.text("CreationDate", creationTime(host, stat.count(startTime)));
    properties.number("KernelModeTime", timeOf(stat.count(kernelTime), host.ticks));
    properties.number("UserModeTime", timeOf(stat.count(userTime), host.ticks));
    properties.number("PageFaults", sum(stat.count(minorFaults), stat.count(majorFaults)));
    properties.number("ParentProcessId", stat.number(parent));
    properties.number("Priority", stat.number(priority));
    properties.number("SessionId", stat.number(session));
    properties.number("ThreadCount", stat.number(threads));
    properties.number("VirtualSize", stat.count(virtualSize));
    properties.number("WorkingSetSize",
                      times(stat.count(residentPages), static_cast<std::uint64_t>(host.pageSize)));
}

void addStatus(ProcessProperties& properties, const std::string& status) {
    const auto kilobytes = namedNumbers(status);
    const auto field = [&kilobytes](std::string_view name) {
        const auto found = kilobytes.find(name);
        return found == kilobytes.end() ? std::nullopt : std::optional(found->second);
    };
    properties.number("PageFileUsage", field("VmSwap"));
    properties.number("PeakWorkingSetSize", field("VmHWM"));
    properties.number("PeakVirtualSize", times(field("VmPeak"), bytesPerKilobyte));
    properties.number("PrivatePageCount", times(field("RssAnon"), bytesPerKilobyte));
}

void addTransfers(ProcessProperties& properties, const std::string& io) {
    constexpr std::pair<const char*, std::string_view> fields[] = {{"ReadOperationCount", "syscr"},
                                                                   {"ReadTransferCount", "rchar"},
                                                                   {"WriteOperationCount", "syscw"},
                                                                   {"WriteTransferCount", "wchar"}};
    const auto counts = namedNumbers(io);
    for (const auto& [property, name] : fields) {
        if (const auto found = counts.find(name); found != counts.end())
            properties.number(property, std::optional(found->second));
    }
}

// The text between the quotes, or up to the line's end, as a shell reads it.
std::string unquoted(std::string_view text) {
    const char quote = text.empty() ? '\0' : text.front();
    if (quote != '"' && quote != '\'') return std::string(text);
    std::string value;
    for (std::size_t at = 1; at < text.size() && text[at] != quote; ++at) {
        if (quote == '"' && text[at] == '\\' && at + 1 < text.size()) ++at;
        value += text[at];
    }
    return value;
}

}  // namespace

std::optional<std::string> commandName(std::string_view stat) {
    const auto start = stat.find('(');
    const auto end = stat.rfind(')');
    if (start == std::string_view::npos || end == std::string_view::npos || end < start)
        return std::nullopt;
    return oneLine(stat.substr(start + 1, end - start - 1));
}

std::string executablePathOf(std::string_view link) {
    constexpr std::string_view deleted = " (deleted)";
    if (link.ends_with(deleted)) link.remove_suffix(deleted.size());
    return oneLine(link);
}

std::string processName(const std::optional<std::string>& exe, std::string_view stat) {
    const std::string path = exe ? executablePathOf(*exe) : std::string();
    const std::string name = path.substr(path.rfind('/') + 1);
    return name.empty() ? commandName(stat).value_or("") : name;
}

std::string systemName(std::string_view release) {
    constexpr std::string_view key = "PRETTY_NAME=";
    while (!release.empty()) {
        const auto line = release.substr(0, release.find('\n'));
        release.remove_prefix(std::min(line.size() + 1, release.size()));
        if (line.starts_with(key)) return oneLine(unquoted(line.substr(key.size())));
    }
    return {};
}

std::optional<Record> processRecord(const ProcessHost& host, const ProcessFiles& files) {
    const StatFields stat(files.stat);
    if (!stat.isWhole()) return std::nullopt;
    ProcessProperties properties;
    addNames(properties, host, files);
    addStat(properties, host, stat);
    if (files.status) addStatus(properties, *files.status);
    if (files.io) addTransfers(properties, *files.io);
    return properties.take();
}

}  // namespace velmora::linuxhost
