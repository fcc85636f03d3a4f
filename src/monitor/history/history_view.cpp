#include "monitor/history/history_view.h"

#include "base/convert.h"
#include "base/date_time.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "monitor/history/full_estimate.h"
#include "monitor/history/history_points.h"
#include "monitor/row_usage.h"

namespace velmora {

namespace {

constexpr const char* fileName = "\\history.csv";

constexpr const char* allPaths = "All paths";
// Of each path where all are shown: more than a line of them has pixels.
constexpr std::size_t pointsOfEach = 1000;

LineChart::Line lineOf(const std::string& path, const std::vector<SpacePoint>& points,
                       std::optional<double> trigger, std::int64_t now) {
    LineChart::Line line{.name = path, .points = {}, .level = trigger};
    for (const SpacePoint& point : points) {
        line.points.push_back({.seconds = point.seconds - now, .value = point.freeKB});
    }
    return line;
}

// A text as a field of comma-separated values.
std::string field(const std::string& text) {
    return '"' + replaceAll(text, "\"", "\"\"") + '"';
}

}  // namespace

HistoryView::HistoryView(Forms& forms, Platform& platform, Host& host)
    : form_(forms.frmHistory), form1_(forms.form1), platform_(platform), host_(host) {
    forms.dlgDriveInfo.cmdHistory.Click.connect([this] { open(); });
    form_.cboPath.Click.connect([this] { showChosen(); });
    form_.cmdExport.Click.connect([this] { cmdExport_Click(); });
    form_.cmdClose.Click.connect([this] { form_.Hide(); });
}

std::int64_t HistoryView::now() const {
    return platform_.clock.GetTickCount() / 1000;
}

void HistoryView::recordRows(int last) {
    const std::int64_t seconds = now();
    const ListView& list = form1_.ListView1;
    for (int i = 1; i <= last && i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (!row.watched() || !row.isMeasured()) continue;
        const auto free = readKilobytes(row.freeSpace(), platform_.regional);
        if (free) history_.add(row.path(), {.seconds = seconds, .freeKB = *free});
    }
    if (!form_.Visible()) return;
    if (listed_ != history_.paths()) {
        fillPaths();
    } else {
        showChosen();
    }
}

void HistoryView::open() {
    fillPaths();
    form_.Show();
}

// What was chosen before stays chosen.
void HistoryView::fillPaths() {
    const std::string before = form_.cboPath.Text();
    listed_ = history_.paths();
    form_.cboPath.Clear();
    form_.cboPath.setText("");
    if (listed_.size() > 1) form_.cboPath.AddItem(allPaths);
    int chosen = 0;
    for (const std::string& path : listed_) {
        if (path == before) chosen = form_.cboPath.ListCount();
        form_.cboPath.AddItem(path);
    }
    if (listed_.empty()) {
        showChosen();
    } else {
        form_.cboPath.setListIndex(chosen);
    }
}

void HistoryView::showChosen() {
    const std::string path = form_.cboPath.Text();
    if (listed_.empty()) {
        form_.chtHistory.show({});
        form_.lblEstimate.setCaption("Nothing was checked yet.");
    } else if (path == allPaths) {
        showAll();
    } else {
        showPath(path);
    }
}

void HistoryView::showPath(const std::string& path) {
    const SpaceRing* ring = history_.of(path);
    // Another path may have taken its place.
    if (ring == nullptr) return fillPaths();
    form_.chtHistory.show({lineOf(path, pointsOf(*ring), triggerOf(path), now())});
    form_.lblEstimate.setCaption(fullText(secondsUntilFull(*ring, now())));
}

// The words are about the drive that is full first.
void HistoryView::showAll() {
    std::vector<LineChart::Line> lines;
    std::optional<double> soonest;
    std::string which;
    for (const std::string& path : history_.paths()) {
        const SpaceRing& ring = *history_.of(path);
        lines.push_back(lineOf(path, thinned(ring, pointsOfEach), triggerOf(path), now()));
        const std::optional<double> seconds = secondsUntilFull(ring, now());
        if (!seconds || (soonest && *soonest <= *seconds)) continue;
        soonest = seconds;
        which = path;
    }
    form_.chtHistory.show(std::move(lines));
    form_.lblEstimate.setCaption(soonest ? which + " " + fullText(soonest) : "");
}

std::optional<double> HistoryView::triggerOf(const std::string& path) const {
    const std::string key = lowerCase(path);
    for (int i = 1; i <= form1_.ListView1.Count(); ++i) {
        const ConstWatchRow row(form1_.ListView1.ListItems(i));
        if (lowerCase(row.path()) == key) return triggerKB(row, form1_, platform_.regional);
    }
    return std::nullopt;
}

// One file with all paths, beside the log.
void HistoryView::cmdExport_Click() {
    const std::string file = platform_.app.DataPath + fileName;
    const std::int64_t present = now();
    const std::int64_t clock = toSeconds(platform_.clock.Now());
    std::string content = "Time,Path,Free KB\r\n";
    for (const std::string& path : history_.paths()) {
        const SpaceRing* ring = history_.of(path);
        for (std::size_t i = 0; i < ring->size(); ++i) {
            const SpacePoint point = ring->at(i);
            const DateTime time = fromSeconds(clock - (present - point.seconds));
            content += Format(time, "yyyy-mm-dd hh:mm:ss") + ',' + field(path) + ',' +
                       toText(static_cast<std::int64_t>(point.freeKB)) + "\r\n";
        }
    }
    try {
        platform_.files.writeOver(file, content);
        host_.MsgBox({.text = "The history was saved: " + file, .icon = BoxIcon::information});
    } catch (const RuntimeError& failure) {
        host_.MsgBox({.text = "The history wasn't saved: " + failure.description(),
                      .icon = BoxIcon::critical});
    }
}

}  // namespace velmora
