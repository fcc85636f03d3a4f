#include "notify/inventory.h"

#include <limits>
#include <span>
#include <vector>

#include "base/convert.h"
#include "base/resume_next.h"
#include "base/text.h"
#include "notify/inventory_properties.h"
#include "notify/report_text.h"

namespace velmora {

namespace {

// The four back-slashes stand so in the system's text.
constexpr const char* moniker = R"(winmgmts:\\\\.\root\cimv2)";
constexpr const char* localServer = ".";
constexpr const char* nameSpace = R"(root\cimv2)";
constexpr const char* queryLanguage = "WQL";
constexpr const char* userType = "1";
constexpr std::size_t lastProcess = 200;
constexpr int allRecords = std::numeric_limits<int>::max();

using PropertyNames = std::span<const char* const>;

std::vector<std::string> textsOf(PropertyNames names) {
    return {names.begin(), names.end()};
}

// Values are other people's texts, such as messages of several lines. Each further line gets a
// blank in front: it can't be taken for a line of the report, nor a dot in it for the end of the
// mail.
std::string asOneValue(const std::string& text) {
    return replaceAll(text, "\n", "\n ");
}

/// A line for each property that is a text.
std::string linesOf(WmiObject& record, PropertyNames names) {
    const std::vector<WmiValue> values = record.Properties(textsOf(names));
    std::string lines;
    for (std::size_t i = 0; i < names.size() && i < values.size(); ++i) {
        if (values[i].isText()) lines += names[i] + (": " + asOneValue(values[i].text)) + endLine();
    }
    return lines;
}

/// What comes before the lines of one of several records.
std::string recordHeading(const char* what, int number) {
    return report::rule + endLine() + what + toText(std::int64_t{number}) + endLine();
}

/// Adds a numbered record to a text.
auto numbered(std::string& text, const char* what, PropertyNames names) {
    return [&text, what, names, number = 0](WmiObject& record) mutable {
        text += recordHeading(what, ++number);
        text += linesOf(record, names);
    };
}

std::string loginLine(const WmiValue& domain, const WmiValue& name) {
    if (!domain.isText() || !name.isText()) return {};
    return "Domain/Machine = " + asOneValue(domain.text) + " " +
           "Account = " + asOneValue(name.text) + endLine();
}

}  // namespace

void Inventory::forEachRecord(const char* query, int most, const Visit& visit) {
    resumeNext([&] { visitRecords(query, most, visit); });
}

void Inventory::visitRecords(const char* query, int most, const Visit& visit) {
    const auto services = platform_.wmi.GetObject(moniker);
    const auto records = services->ExecQuery(query, queryLanguage,
                                             wmi_flag::forwardOnly | wmi_flag::returnImmediately);
    for (int i = 0; i < most; ++i) {
        const auto record = records->Next();
        if (!record) return;
        resumeNext([&] { visit(*record); });
    }
}

std::string Inventory::prcWMI_NTEvt(std::int16_t count) {
    std::string events;
    forEachRecord("Select * from Win32_NTLogEvent", count,
                  numbered(events, "Event: ", inventory_properties::event));
    return "Last " + toText(std::int64_t{count}) + " events:" + endLine() + report::rule +
           endLine() + events;
}

std::string Inventory::prcWMI_RamInfo() {
    std::string lines;
    forEachRecord("Select * from Win32_PerfRawData_PerfOS_Memory", allRecords,
                  [&](WmiObject& record) {
                      host_.DoEvents();
                      lines += linesOf(record, inventory_properties::memory);
                  });
    // No line end after the first rule: the first line follows it at once.
    return "Random Access Memory Info:" + endLine() + report::rule + lines + endLine() +
           report::rule;
}

std::string Inventory::prcWMI_LogOnUser() {
    std::string lines;
    int count = 0;
    resumeNext([&] {
        const auto services = platform_.wmi.ConnectServer(localServer, nameSpace);
        const auto logins = services->ExecQuery("Select * from Win32_LoggedOnUser", queryLanguage,
                                                wmi_flag::forwardOnly);
        while (const auto login = logins->Next()) {
            resumeNext([&] {
                const WmiValue path = login->Properties({"Antecedent"}).at(0);
                const auto account = services->Get(path.text);
                const auto values = account->Properties(textsOf(inventory_properties::account));
                if (values.at(0).text != userType) return;
                ++count;
                lines += loginLine(values.at(1), values.at(2));
            });
        }
    });
    return endLine() + "# of users logged on: " + toText(std::int64_t{count}) + endLine() +
           report::rule + endLine() + lines;
}

std::string Inventory::prcWMI_Process() {
    std::string processes;
    forEachRecord("Select * from Win32_Process", allRecords,
                  numbered(processes, "Process Count: ", inventory_properties::process));
    return processes;
}

std::string Inventory::prcWMI_SchedJob() {
    std::string jobs;
    forEachRecord("Select * from Win32_ScheduledJob", allRecords,
                  numbered(jobs, "Job Count: ", inventory_properties::job));
    return jobs;
}

std::string Inventory::prcWMI_NetStat() {
    std::string connections;
    resumeNext([&] { connections = platform_.wscriptShell.Exec("netstat")->ReadAll(); });
    return connections;
}

// The rule below the heading has one sign more than the usual one, the closing one two.
std::string Inventory::prcProcessText() {
    ProcessArrays arrays = ProcessArrays::upTo(lastProcess);
    if (resumeNext([&] { prcEnumProcesses(arrays); }) > 0) return {};
    std::string lines;
    std::size_t i = 1;
    for (; i <= lastProcess && !arrays.isEmptyAt(i); ++i) {
        lines +=
            lowerCase(arrays.names[i]) + " " + arrays.ids[i] + " " + arrays.sizes[i] + endLine();
    }
    return "Currently Running Processes: " + toText(static_cast<std::int64_t>(i)) + endLine() +
           report::rule + "=" + endLine() + lines + report::rule + "==";
}

}  // namespace velmora
