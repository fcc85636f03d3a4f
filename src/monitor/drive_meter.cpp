#include "monitor/drive_meter.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "base/convert.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace velmora {

namespace {

// The gauges are upside down: their zero is at the top. Without a figure to show one is cleared.
template <typename Gauge>
void point(Gauge& gauge, std::optional<double> part, double whole) {
    const double highest = gauge.Max();
    const double value = part && whole > 0 ? highest - *part / whole * highest : highest;
    gauge.setValue(toInteger(std::clamp<double>(value, gauge.Min(), highest)));
}

using Figures = std::array<std::pair<const char*, std::string>, 4>;

bool lists(const ListView& list, const Figures& figures) {
    if (list.Count() != static_cast<int>(figures.size())) return false;
    for (std::size_t i = 0; i < figures.size(); ++i) {
        const ListItem& line = list.ListItems(static_cast<int>(i) + 1);
        if (line.Text() != figures[i].first || line.SubItems(1) != figures[i].second) return false;
    }
    return true;
}

}  // namespace

void DriveMeter::prcShowfrmIndDri(const std::string& path) {
    showPath(path);
    frmIndDri_.Show();
}

void DriveMeter::showPath(const std::string& path) {
    frmIndDri_.lblP.setCaption(path);
    offerPaths();
    frmIndDri_.Combo1.setText(path);
}

// A list that is the same stays: the user may have opened it.
void DriveMeter::offerPaths() {
    ComboBox& paths = frmIndDri_.Combo1;
    const ListView& list = form1_.ListView1;
    bool same = paths.ListCount() == list.Count();
    for (int i = 0; same && i < paths.ListCount(); ++i) {
        same = paths.List(i) == ConstWatchRow(list.ListItems(i + 1)).path();
    }
    if (same) return;
    paths.Clear();
    for (int i = 1; i <= list.Count(); ++i) {
        paths.AddItem(ConstWatchRow(list.ListItems(i)).path());
    }
}

void DriveMeter::prcSrvMeter(ListItem& item) {
    showRow(item, true);
}

// A bar that the user has moved and not applied stays where it is.
void DriveMeter::refresh(ListItem& item) {
    showRow(item, frmIndDri_.VScroll1.Value() == barPlace_);
}

void DriveMeter::showRow(ListItem& item, bool movesBar) {
    const ConstWatchRow row(item);
    if (!row.isReadyForGauges()) return;
    const double total = row.totalKBOrZero(regional_);
    const auto trigger = triggerKB(row, total);
    if (movesBar) moveBar(trigger, total);
    showShares(trigger, readKilobytes(row.freeSpace(), regional_), total);
    listFigures(row);
}

void DriveMeter::moveBar(std::optional<double> triggerKB, double totalKB) {
    point(frmIndDri_.VScroll1, triggerKB, totalKB);
    barPlace_ = frmIndDri_.VScroll1.Value();
}

void DriveMeter::clear() {
    moveBar(std::nullopt, 0);
    showShares(std::nullopt, std::nullopt, 0);
    frmIndDri_.ListView1.Clear();
}

void DriveMeter::showShares(std::optional<double> triggerKB, std::optional<double> freeKB,
                            double totalKB) {
    point(frmIndDri_.VMeter1, triggerKB, totalKB);
    point(frmIndDri_.VMeter2, freeKB, totalKB);
}

void DriveMeter::prcSrvMeterPreSet(const std::string&) {
    if (!frmIndDri_.Visible()) return;
    const std::string shown = lowerCase(frmIndDri_.Combo1.Text());
    ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        ListItem& item = list.ListItems(i);
        if (lowerCase(ConstWatchRow(item).path()) == shown) return prcSrvMeter(item);
    }
}

std::optional<double> DriveMeter::triggerKB(const ConstWatchRow& row, double totalKB) const {
    const std::string& text = form1_.chkDrive.ticked() ? row.trigger() : form1_.txtSpace.Text();
    auto trigger = readNumber(text, regional_);
    if (trigger && form1_.OpDriv[1].Value()) *trigger *= totalKB / 100;
    return trigger;
}

// The list is left alone where it has the figures already: it would lose its place and flicker.
void DriveMeter::listFigures(const ConstWatchRow& row) {
    Figures figures{{{"Size", row.totalSize()},
                     {"Free Space", row.freeSpace()},
                     {"Folders", notAvailable},
                     {"Files", notAvailable}}};
    try {
        const auto folder = fso_.GetFolder(row.path());
        figures[2].second = toText(folder->SubFoldersCount(), regional_);
        figures[3].second = toText(folder->FilesCount(), regional_);
    } catch (const RuntimeError&) {
        // The drive may be there without the folder.
    }
    ListView& list = frmIndDri_.ListView1;
    if (lists(list, figures)) return;
    list.Clear();
    for (const auto& [property, value] : figures) list.Add(property).setSubItems(1, value);
}

}  // namespace velmora
