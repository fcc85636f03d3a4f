#include "console/status_report.h"

#include <algorithm>
#include <vector>

#include "base/format_number.h"
#include "base/text.h"
#include "monitor/row_usage.h"
#include "monitor/watch_summary.h"
#include "rows/watch_row.h"

namespace velmora::console {

namespace {

using Line = std::vector<std::string>;

const Line heading{"Path", "State", "Free Space", "Total Space", "Used", "Minimum"};

Line lineOf(const ConstWatchRow& row, const Form1& form1, const Regional& regional) {
    const RowUsage usage = usageOf(row, form1, regional);
    const auto share = usage.usedShare();
    const auto number = [&](double value, int digits) {
        return FormatNumber(value, digits, Grouping::regional, regional);
    };
    return {row.path(),
            wordsFor(usage.state),
            row.freeSpace(),
            row.totalSize(),
            share ? number(*share * 100, 1) + " %" : "",
            usage.triggerKB ? number(*usage.triggerKB, 0) + " KB" : ""};
}

// Words to the left, figures to the right, two blanks between.
std::string aligned(const std::vector<Line>& lines) {
    constexpr std::size_t firstFigure = 2;
    std::vector<std::size_t> widths(heading.size());
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], length(line[i]));
    }
    std::string text;
    for (const Line& line : lines) {
        std::string shown;
        for (std::size_t i = 0; i < line.size(); ++i) {
            const std::string blanks(widths[i] - length(line[i]), ' ');
            if (i > 0) shown += "  ";
            shown += i < firstFigure ? line[i] + blanks : blanks + line[i];
        }
        shown.erase(shown.find_last_not_of(' ') + 1);
        text += shown + std::string(lineEnd);
    }
    return text;
}

}  // namespace

Report statusReport(const Forms& forms, const Regional& regional) {
    const ListView& list = forms.form1.ListView1;
    Report report{.fields = Control::Table()};
    std::vector<Line> lines{heading};
    for (int i = 1; i <= list.Count(); ++i) {
        lines.push_back(lineOf(ConstWatchRow(list.ListItems(i)), forms.form1, regional));
        auto& fields = report.fields->emplace_back();
        for (std::size_t j = 0; j < heading.size(); ++j)
            fields.emplace_back(heading[j], lines.back()[j]);
    }
    const std::string summary = summaryOf(forms, regional).text;
    const std::string& next = forms.form1.StatusBar1.Panels(1).Text;
    report.about = {{"Summary", summary}, {"Activity", next}};
    report.text = summary + std::string(lineEnd) + next + std::string(lineEnd);
    if (list.Count() > 0) report.text += aligned(lines);
    return report;
}

}  // namespace velmora::console
