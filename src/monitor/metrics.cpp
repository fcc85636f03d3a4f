#include "monitor/metrics.h"

#include <charconv>
#include <functional>
#include <optional>
#include <set>
#include <vector>

#include "base/text.h"
#include "monitor/row_usage.h"

namespace velmora {

namespace {

constexpr double bytesInKB = 1024;

struct Sample {
    std::string path;
    RowUsage usage;
};

std::string number(double value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value).ptr;
    return {digits, end};
}

// A label's value in quotation marks.
std::string quoted(const std::string& text) {
    std::string label = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t size = characterSize(text, at);
        const std::string_view character = std::string_view(text).substr(at, size);
        at += size;
        if (character == "\n") {
            label += "\\n";
        } else if (character == "\\" || character == "\"") {
            label.append("\\").append(character);
        } else {
            label += isValidUtf8(character) ? character : "\xEF\xBF\xBD";
        }
    }
    return label + '"';
}

std::vector<Sample> samplesOf(const Forms& forms, const Regional& regional) {
    std::vector<Sample> samples;
    std::set<std::string> seen;
    const ListView& list = forms.form1.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (!seen.insert(quoted(row.path())).second) continue;
        samples.push_back({quoted(row.path()), usageOf(row, forms.form1, regional)});
    }
    return samples;
}

class Text {
  public:
    /// `unit` is empty for a figure without one.
    void begin(const std::string& name, const std::string& type, const std::string& unit,
               const std::string& help) {
        text_ += "# TYPE " + name + ' ' + type + '\n';
        if (!unit.empty()) text_ += "# UNIT " + name + ' ' + unit + '\n';
        text_ += "# HELP " + name + ' ' + help + '\n';
    }
    void add(const std::string& name, double value) { text_ += name + ' ' + number(value) + '\n'; }
    void add(const std::string& name, const std::string& path, double value) {
        add(name + "{path=" + path + '}', value);
    }
    std::string end() { return text_ + "# EOF\n"; }

  private:
    std::string text_;
};

std::optional<double> inBytes(std::optional<double> kilobytes) {
    return kilobytes ? std::optional<double>(*kilobytes * bytesInKB) : std::nullopt;
}

double asFigure(bool is) {
    return is ? 1 : 0;
}

struct RowFigure {
    const char* name;
    const char* unit;
    const char* help;
    std::function<std::optional<double>(const RowUsage&)> of;
};

bool isKnown(const RowUsage& usage) {
    return usage.state != RowState::notWatched && usage.state != RowState::notChecked;
}

const std::vector<RowFigure>& rowFigures() {
    static const std::vector<RowFigure> figures{
        {"velmora_watched", "", "Whether the path is watched.",
         [](const RowUsage& usage) { return asFigure(usage.state != RowState::notWatched); }},
        {"velmora_available", "", "Whether a watched path gave figures at the last check.",
         [](const RowUsage& usage) -> std::optional<double> {
             if (!isKnown(usage)) return std::nullopt;
             return asFigure(usage.state != RowState::unavailable);
         }},
        {"velmora_short_of_space", "", "Whether a watched path is below its minimum.",
         [](const RowUsage& usage) -> std::optional<double> {
             if (!isKnown(usage)) return std::nullopt;
             return asFigure(usage.state == RowState::shortOfSpace);
         }},
        {"velmora_free_bytes", "bytes", "Free space of the path.",
         [](const RowUsage& usage) { return inBytes(usage.freeKB); }},
        {"velmora_size_bytes", "bytes", "Total size of the path.",
         [](const RowUsage& usage) { return inBytes(usage.totalKB); }},
        {"velmora_minimum_bytes", "bytes", "Free space below which the path is short.",
         [](const RowUsage& usage) { return inBytes(usage.triggerKB); }},
    };
    return figures;
}

void addRows(Text& text, const std::vector<Sample>& samples) {
    for (const RowFigure& figure : rowFigures()) {
        text.begin(figure.name, "gauge", figure.unit, figure.help);
        for (const Sample& sample : samples) {
            if (const auto value = figure.of(sample.usage)) {
                text.add(figure.name, sample.path, *value);
            }
        }
    }
}

void addWatch(Text& text, const Globals& globals, std::int64_t checkedAt) {
    text.begin("velmora_checks", "counter", "", "Finished checks since the start.");
    text.add("velmora_checks_total", globals.lngTimesChecked);
    text.begin("velmora_alerts", "counter", "", "Alerts since the start.");
    text.add("velmora_alerts_total", globals.lngAlertsRaised);
    text.begin("velmora_high_rated_alerts", "counter", "", "High-rated alerts since the start.");
    text.add("velmora_high_rated_alerts_total", globals.lngHighRatedAlerts);
    text.begin("velmora_last_check_timestamp_seconds", "gauge", "seconds",
               "End of the last check, since 1970-01-01 UTC.");
    text.add("velmora_last_check_timestamp_seconds", static_cast<double>(checkedAt));
}

}  // namespace

std::string metricsText(const Forms& forms, const Regional& regional, std::int64_t checkedAt) {
    Text text;
    addRows(text, samplesOf(forms, regional));
    addWatch(text, forms.globals, checkedAt);
    return text.end();
}

}  // namespace velmora
