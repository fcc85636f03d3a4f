#include "shell/drive_view.h"

#include <algorithm>
#include <cmath>

#include "base/convert.h"
#include "base/format_number.h"
#include "base/resume_next.h"
#include "base/text.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr Colour red = 255;
constexpr Colour blue = 0xFF0000;
constexpr double whole = 100;
constexpr double noReading = -2;  // neither of the compared figures can be that

}  // namespace

DriveView::DriveView(Forms& forms, Platform& platform, Host& host, DriveMeter& driveMeter)
    : form_(forms.frmIndDri),
      form1_(forms.form1),
      platform_(platform),
      host_(host),
      driveMeter_(driveMeter) {
    form_.Load.connect([this] { Form_Load(); });
    form_.Unload.connect([this] { Form_Unload(); });
    // A drive that can't be read is shown without a pie.
    form_.Raised.connect([this] { resumeNext([this] { prcUpdateThis(); }); });
    form_.Timer1.Tick.connect([this] { resumeNext([this] { Timer1_Timer(); }); });
    form_.Check1.Click.connect([this] { form_.Timer1.setEnabled(form_.Check1.ticked()); });
    form_.Combo1.Click.connect([this] { Combo1_Click(); });
    form_.VScroll1.Change.connect([this] { VScroll1_Change(); });
    for (OptionButton& option : form_.Option1) {
        option.Click.connect([this] { Option1_Click(); });
    }
    form_.Command3.Click.connect([this] { Command3_Click(); });
    form_.cmdC.Click.connect([this] { Form_Unload(); });
    form_.cmdToggle.Click.connect([this] { cmdToggle_Click(); });
}

void DriveView::Form_Load() {
    form_.lblP.setCaption("Loading...");
    const ListItem* selected = form1_.ListView1.SelectedItem();
    aPaths_ = {selected == nullptr ? "" : ConstWatchRow(*selected).path()};
    shownPath_.clear();
}

// Nothing of another drive may stay, also when this one can't be read.
void DriveView::beginPath() {
    shownPath_ = form_.Combo1.Text();
    form_.lblP.setCaption(shownPath_);
    lastUsed_ = noReading;
    lastFree_ = noReading;
    if (!form_.picPie.shapes().empty()) {
        form_.picPie.Cls();
        form_.picPie.describe({}, {}, {});
    }
    form_.ProgressBar1.setValue(0);
    driveMeter_.clear();
    VScroll1_Change();
}

void DriveView::Form_Unload() {
    form_.Timer1.setEnabled(false);
    form_.Check1.setValue(0);
    form_.unloadNow();
}

void DriveView::cmdToggle_Click() {
    const bool isFull = form_.Height() >= FrmIndDri::fullHeight;
    form_.setSize(form_.Width(), isFull ? FrmIndDri::lowHeight : FrmIndDri::fullHeight);
}

DriveView::Reading DriveView::readDrive() {
    const std::string name = platform_.fso.GetDriveName(form_.Combo1.Text());
    const auto drive = platform_.fso.GetDrive(name);
    Reading reading{.total = drive->TotalSize(), .free = drive->FreeSpace()};
    reading.used = reading.total - drive->AvailableSpace();
    if (reading.total > 0) reading.usedShare = whole - reading.free / reading.total * whole;
    return reading;
}

void DriveView::prcUpdateThis() {
    if (form_.Combo1.Text() != shownPath_) beginPath();
    const Reading reading = readDrive();
    const double used = roundTiesToEven(reading.used - 1);
    form_.lblP.setCaption(form_.Combo1.Text() + "  " +
                          Format(reading.usedShare, "###.0", platform_.regional) + "% Used");
    if (used == lastUsed_ && reading.free == lastFree_) return;
    lastUsed_ = used;
    lastFree_ = reading.free;
    fillPie(reading);
    draw(reading);
    const int share = static_cast<int>(std::clamp(reading.usedShare, 0.0, whole));
    form_.ProgressBar1.setValue(share);
    if (ListItem* row = shownRow()) driveMeter_.refresh(*row);
}

void DriveView::fillPie(const Reading& reading) {
    pie_.Clear();
    if (reading.free <= 0 || reading.used <= 0) {
        pie_.AddSegment(reading.used, reading.used != 0 ? "Media Full" : "No Media", red);
        return;
    }
    pie_.AddSegment(reading.free, "Free", blue);
    pie_.AddSegment(reading.used, "Used", red);
}

void DriveView::draw(const Reading& reading) {
    const Regional& regional = platform_.regional;
    form_.picPie.Cls();
    pie_.DrawPie(form_.picPie, true, Format(reading.usedShare, "###.0", regional) + "% Used",
                 "Total(" + Format(reading.total, wholeNumberPicture, regional) + ")", regional);
}

ListItem* DriveView::shownRow() {
    const std::string shown = lowerCase(form_.Combo1.Text());
    for (int i = 1; i <= form1_.ListView1.Count(); ++i) {
        ListItem& row = form1_.ListView1.ListItems(i);
        if (lowerCase(ConstWatchRow(row).path()) == shown) return &row;
    }
    return nullptr;
}

// The view follows the row that is selected in the watch list.
void DriveView::Timer1_Timer() {
    ListItem* row = form1_.ListView1.SelectedItem();
    if (row == nullptr) return;
    const std::string path = ConstWatchRow(*row).path();
    const std::string drive = platform_.fso.GetDriveName(path);
    if (!platform_.fso.DriveExists(drive) || !platform_.fso.GetDrive(drive)->IsReady()) {
        host_.MsgBox({.text = "This display will close.\r\n"
                              "Drive/Path is not available or ready to display info."});
        Form_Unload();
        return;
    }
    // In its place: nothing comes to the front by itself.
    driveMeter_.showPath(path);
    driveMeter_.refresh(*row);
    prcUpdateThis();
}

void DriveView::Combo1_Click() {
    ListItem* row = shownRow();
    if (row == nullptr) return;
    for (int i = 1; i <= form1_.ListView1.Count(); ++i) {
        ListItem& each = form1_.ListView1.ListItems(i);
        each.setSelected(&each == row);
    }
    // A drive that can't be read is shown without a pie, and with the figures of its row.
    resumeNext([this] { prcUpdateThis(); });
    driveMeter_.prcSrvMeter(*row);
}

double DriveView::totalKB() {
    ListItem* row = shownRow();
    return row == nullptr ? 0 : ConstWatchRow(*row).totalKBOrZero(platform_.regional);
}

std::string DriveView::asPercent(double kilobytes) {
    const double total = totalKB();
    // With so many decimals the way there and back keeps a size, also on the greatest drives.
    return total <= 0 ? ""
                      : toText(roundTiesAway(kilobytes / total * whole, 8), platform_.regional);
}

std::string DriveView::asKB(double percent) {
    return Format(percent / whole * totalKB(), "###", platform_.regional);
}

// The scroll bar's zero is at its top, where the greatest share is.
void DriveView::VScroll1_Change() {
    const int percent = form_.VScroll1.Max() - form_.VScroll1.Value();
    showsKB_ = form_.Option1[1].Value();
    form_.Text1.setText(showsKB_ ? asKB(percent) : toText(std::int64_t{percent}));
}

void DriveView::Option1_Click() {
    const bool toKB = form_.Option1[1].Value();
    if (toKB == showsKB_) return;
    showsKB_ = toKB;
    auto entered = readNumber(form_.Text1.Text(), platform_.regional);
    if (form_.Text1.Text().empty()) entered = 0;  // the picture of the size has no digit for it
    if (entered) form_.Text1.setText(toKB ? asKB(*entered) : asPercent(*entered));
}

// The check reads a row's trigger as a whole number in the unit of the main window: a size written
// as a percentage would set off the actions at once, and a part of a percent would never do so.
std::optional<double> DriveView::triggerInForce(double entered) {
    const bool inForceKB = !form1_.OpDriv[1].Value();
    if (inForceKB == showsKB_) return entered;
    const double total = totalKB();
    if (total <= 0) {
        refuse("The size of this drive isn't known yet.");
        return std::nullopt;
    }
    if (inForceKB) return roundTiesToEven(entered / whole * total);
    const double percent = roundTiesAway(entered / total * whole, 2);
    const bool vanishes = percent == 0 && entered != 0;
    if (percent == std::trunc(percent) && !vanishes) return percent;
    refuse(
        "This is " + toText(percent, platform_.regional) +
        " % of the drive, and the main window takes whole percentages. Enter one here, or choose "
        "KB in the main window.");
    return std::nullopt;
}

void DriveView::refuse(const std::string& why) {
    host_.MsgBox({.text = why, .icon = BoxIcon::information});
}

void DriveView::Command3_Click() {
    const auto entered = readNumber(form_.Text1.Text(), platform_.regional);
    // One beyond 32 bits would end every check with an overflow.
    if (!entered || withinLong(*entered) != *entered) {
        host_.MsgBox({.text = "You have an improper value in the Set Minimum Space Text Box."});
        return;
    }
    const auto trigger = triggerInForce(*entered);
    if (!trigger) return;
    if (withinLong(*trigger) != *trigger) {
        refuse("This is more than the main window can take as KB. Choose percent there.");
        return;
    }
    const std::string text =
        trigger == entered ? form_.Text1.Text() : toText(*trigger, platform_.regional);
    const BoxAnswer answer = host_.MsgBox(
        {.text = "This will set the program to watch the drive/path by a individual values. Go "
                 "ahead?",
         .icon = BoxIcon::question,
         .buttons = BoxButtons::yesNo});
    if (answer != BoxAnswer::yes) return;
    if (!form1_.chkDrive.ticked()) form1_.chkDrive.setValue(1);
    if (ListItem* row = shownRow()) WatchRow(*row).setTrigger(text);
}

}  // namespace velmora
