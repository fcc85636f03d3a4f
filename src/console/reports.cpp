#include "console/reports.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <limits>
#include <map>

#include "base/format_number.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "console/caption_report.h"
#include "console/status_report.h"
#include "console/target.h"
#include "inspect/charts/drive_charts.h"
#include "inspect/drive_attributes.h"
#include "inspect/sectors/volume_reading.h"
#include "monitor/row_usage.h"
#include "monitor/watch_summary.h"
#include "rows/watch_row.h"

namespace velmora::console {

namespace {

// "C:", "c" or "C:\".
std::string driveOf(const std::string& word) {
    const bool isDrive = !word.empty() && word.size() <= 3 &&
                         std::isalpha(static_cast<unsigned char>(word[0])) != 0 &&
                         std::string_view(":\\").starts_with(std::string_view(word).substr(1));
    if (!isDrive) throw CommandError("not a drive: " + word);
    return asciiUpperCase(word.substr(0, 1)) + ':';
}

// A table of names and values as lines.
Report namesAndValues(const std::vector<std::pair<std::string, std::string>>& pairs) {
    Report report{.fields = Control::Table(1)};
    for (const auto& [name, value] : pairs) {
        report.text.append(name).append(" ").append(value).append(lineEnd);
        std::string field = name;
        while (field.ends_with(':')) field.pop_back();
        report.fields->front().emplace_back(field, value);
    }
    return report;
}

std::size_t widestPath(const ListView& list) {
    std::size_t widest = 0;
    for (int i = 1; i <= list.Count(); ++i) {
        widest = std::max(widest, length(ConstWatchRow(list.ListItems(i)).path()));
    }
    return widest;
}

// With a decimal; empty for none.
std::string percentOf(const std::optional<double>& share, const Regional& regional) {
    if (!share) return {};
    return FormatNumber(*share * 100, 1, Grouping::regional, regional);
}

// Empty where a size isn't a number: the pie has no sum then.
std::string pieCaption(const ListView& list, const Regional& regional) {
    try {
        return distributionCaption(totalFreeKB(list, regional)) + std::string(lineEnd);
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

Report Reports::make(Words& words) {
    const std::string name = lowerCase(words.next());
    if (name == "ntevents") return ntEvents(words);
    if (name == "drive" || name == "bootsector") {
        const std::string drive = driveOf(words.next());
        words.end();
        return name == "drive" ? driveAttributes(drive) : bootSector(drive);
    }
    if (name == "caption") {
        const std::string caption = words.next();
        words.end();
        return captionReport(caption);
    }
    words.end();
    if (name == "chart") return chart();
    if (name == "watch") return watch();
    const std::map<std::string, std::function<std::string()>> others{
        {"ram", [this] { return inventory_.prcWMI_RamInfo(); }},
        {"users", [this] { return inventory_.prcWMI_LogOnUser(); }},
        {"processes", [this] { return inventory_.prcWMI_Process(); }},
        {"processlist", [this] { return inventory_.prcProcessText(); }},
        {"jobs", [this] { return inventory_.prcWMI_SchedJob(); }},
        {"netstat", [this] { return inventory_.prcWMI_NetStat(); }},
        {"message", [this] { return content_.mailBody(); }},
    };
    const auto found = others.find(name);
    if (found == others.end()) throw CommandError("unknown report: " + name);
    return {.text = found->second()};
}

Report Reports::status() {
    return statusReport(forms_, platform_.regional);
}

Report Reports::ntEvents(Words& words) {
    const auto count = readWhole(words.next(), 0, std::numeric_limits<std::int16_t>::max());
    words.end();
    return {.text = inventory_.prcWMI_NTEvt(static_cast<std::int16_t>(count))};
}

Report Reports::driveAttributes(const std::string& drive) {
    const char* type = driveTypeName(platform_.rawVolumes.GetDriveTypeA(drive));
    DiskFreeSpace space;
    if (!platform_.rawVolumes.GetDiskFreeSpaceA(drive, space)) {
        throw CommandError("the drive doesn't answer: " + drive);
    }
    const auto texts = spaceTexts(space, platform_.regional);
    return namesAndValues({{"Drive Type:", type == nullptr ? "" : type},
                           {"Sectors per Cluster:", texts[0]},
                           {"Bytes per Sector:", texts[1]},
                           {"Free Clusters:", texts[2]},
                           {"Total Clusters:", texts[3]},
                           {"Total Free Space:", texts[4]},
                           {"Total Drive Space:", texts[5]}});
}

Report Reports::bootSector(const std::string& drive) {
    const VolumeReport volume = readVolume(platform_.rawVolumes, drive, platform_.regional);
    if (!volume.failure.empty()) throw CommandError(volume.failure);
    std::vector<std::pair<std::string, std::string>> rows{{"File system:", volume.fileSystem}};
    for (const SectorRow& row : volume.rows) rows.emplace_back(row.label + ":", row.value);
    Report report = namesAndValues(rows);
    const auto bytes = split(volume.dump.bytes, lineEnd);
    const auto characters = split(volume.dump.characters, lineEnd);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        report.text += bytes[i] + "  " + characters[i] + std::string(lineEnd);
    }
    report.fields->front().emplace_back("First 512 Bytes of partition", volume.dump.bytes);
    return report;
}

Report Reports::chart() {
    const ListView& list = form1_.ListView1;
    const std::size_t widest = widestPath(list);
    Report report{.fields = Control::Table()};
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        const std::string blanks(widest - length(row.path()), ' ');
        report.text += row.path() + blanks + "  Free Space " + row.freeSpace() + "  Total Space " +
                       row.totalSize() + std::string(lineEnd);
        report.fields->push_back({{"RowLabel", row.path()},
                                  {"Free Space", row.freeSpace()},
                                  {"Total Space", row.totalSize()}});
    }
    report.text += pieCaption(list, platform_.regional);
    return report;
}

// How the watch stands, and each of its rows.
Report Reports::watch() {
    const ListView& list = form1_.ListView1;
    const std::size_t widest = widestPath(list);
    Report report{.fields = Control::Table()};
    report.text = summaryOf(forms_, platform_.regional).text + std::string(lineEnd);
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        const RowUsage usage = usageOf(row, form1_, platform_.regional);
        const std::string state = wordsFor(usage.state);
        const std::string used = percentOf(usage.usedShare(), platform_.regional);
        const std::string blanks(widest - length(row.path()), ' ');
        report.text += row.path() + blanks + "  " + state;
        if (!used.empty()) report.text += ", " + used + " % used";
        report.text += lineEnd;
        report.fields->push_back({{"Path", row.path()}, {"State", state}, {"Used", used}});
    }
    return report;
}

}  // namespace velmora::console
