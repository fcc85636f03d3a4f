#include "inspect/drive_info.h"

#include <cstdlib>

#include "base/convert.h"
#include "base/date_time.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "inspect/drive_attributes.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr const char* chartSentence =
    "Illustrates each system aware drive/paths' free and total memory size.";
constexpr const char* distributionSentence =
    "Illustrates the total free drive/paths' memory distribution.";
constexpr const char* attributeSentence =
    "The control provides a system aware drive/paths attributes.";
constexpr std::uint32_t drivesBuffer = 105;
constexpr std::size_t drivesApart = 4;  // "C:\" and a NUL

// The field of seconds in a span of time, 0 to 59.
std::int64_t secondsField(const DateTime& from, const DateTime& to) {
    return std::abs(toSeconds(to) - toSeconds(from)) % 60;
}

std::int32_t rateOf(std::int32_t change, std::int64_t seconds) {
    if (seconds == 0) throw RuntimeError(error::divisionByZero);
    return toLong(static_cast<double>(change) / static_cast<double>(seconds));
}

}  // namespace

DriveInfo::DriveInfo(Forms& forms, Platform& platform, Host& host)
    : form_(forms.dlgDriveInfo),
      form1_(forms.form1),
      globals_(forms.globals),
      platform_(platform),
      charts_(form_, form1_.ListView1, platform.regional),
      reader_(form_, platform.rawVolumes, host, platform.regional, [this] { Form_Unload(); }) {
    form_.Load.connect([this] { Form_Load(); });
    form_.Unload.connect([this] { Form_Unload(); });
    form_.Combo1.Click.connect([this] { Combo1_Click(); });
    form_.cboDrives.Click.connect([this] { cboDrives_Click(); });
    form_.cmdOK.Click.connect([this] { cmdOK_Click(); });
}

// A loaded dialog is a new one: nothing of the last time is left in it.
void DriveInfo::Form_Load() {
    for (Chart& chart : form_.MSChart1) chart.setVisible(false);
    reader_.offerDrives(drives());
    form_.cboDrives.Clear();
    form_.cboDrives.setText("");
    for (Label& value : form_.lblInfo) value.setCaption("");
    form_.lvInfo.Clear();
    form_.txtBytes.setText("");
    form_.txtChar.setText("");
    form_.Combo1.setListIndex(-1);
    form_.Combo1.setListIndex(drive_view::freeSpace);
}

void DriveInfo::Form_Unload() {
    reader_.closeVolume();
    form_.unloadNow();
}

void DriveInfo::cmdOK_Click() {
    form_.Hide();
    Form_Unload();
}

void DriveInfo::Combo1_Click() {
    for (Chart& chart : form_.MSChart1) chart.setVisible(false);
    form_.frmPart.setVisible(false);
    form_.frmAD.setVisible(false);
    placePanels();
    switch (form_.Combo1.ListIndex()) {
        case drive_view::freeSpace:
            charts_.prcDriveChart();
            form_.lblDesc.setCaption(chartSentence);
            break;
        case drive_view::distribution:
            charts_.prcDistributionChart();
            form_.lblDesc.setCaption(distributionSentence);
            break;
        case drive_view::partition:
            form_.frmPart.setVisible(true);
            form_.lblDesc.setCaption(attributeSentence);
            break;
        case drive_view::attributes:
            prcFillDriveCombo();
            form_.frmAD.setVisible(true);
            form_.lblDesc.setCaption(attributeSentence);
            break;
        default:
            break;
    }
}

void DriveInfo::placePanels() {
    constexpr int beside = 2800;  // twips
    constexpr int below = 2000;
    constexpr int indent = 550;
    const Bounds chart = form_.MSChart1[0].bounds();
    for (Frame* panel : {&form_.frmPart, &form_.frmAD}) {
        panel->setBounds({.Left = chart.Left + indent,
                          .Top = chart.Top,
                          .Width = form_.Width() - beside,
                          .Height = form_.Height() - below});
    }
}

std::vector<std::string> DriveInfo::drives() {
    std::string buffer(drivesBuffer, '\0');
    platform_.kernel32.GetLogicalDriveStringsA(drivesBuffer, buffer);
    std::vector<std::string> names;
    for (std::size_t at = 0; at + 1 < buffer.size() && buffer[at] != '\0'; at += drivesApart) {
        names.push_back(asciiUpperCase(buffer.substr(at, 2)));
    }
    return names;
}

void DriveInfo::prcFillDriveCombo() {
    constexpr int second = 1;
    for (const std::string& drive : drives()) form_.cboDrives.AddItem(drive);
    const bool chosenBefore = form_.cboDrives.ListIndex() == second;
    form_.cboDrives.setListIndex(second);
    if (chosenBefore) cboDrives_Click();
}

void DriveInfo::cboDrives_Click() {
    const std::string drive = left(form_.cboDrives.Text(), 2);
    const char* type = driveTypeName(platform_.rawVolumes.GetDriveTypeA(drive));
    if (type != nullptr) form_.lblInfo[0].setCaption(type);
    // A drive that doesn't answer leaves what is shown.
    DiskFreeSpace space;
    if (!platform_.rawVolumes.GetDiskFreeSpaceA(drive, space)) return;
    const std::vector<std::string> texts = spaceTexts(space, platform_.regional);
    for (std::size_t i = 0; i < texts.size(); ++i) form_.lblInfo[i + 1].setCaption(texts[i]);
}

void DriveInfo::prcSpaceChangeRates() {
    double sum = 0;
    for (int i = 1; i <= form1_.ListView1.Count(); ++i) {
        const ConstWatchRow row(form1_.ListView1.ListItems(i));
        if (row.isAvailable()) sum += row.freeKB(platform_.regional);
    }
    const auto free = static_cast<std::int32_t>(withinLong(sum));
    const DateTime now = platform_.clock.Now();
    const auto changeFrom = [free](std::int32_t total) {
        return static_cast<std::int32_t>(withinLong(static_cast<double>(free) - total));
    };
    const std::int32_t sinceOpen = changeFrom(globals_.lngStartFreeKB);
    const std::int32_t sinceUpdate = changeFrom(globals_.lngRefreshedKB);
    const std::int32_t rateSinceOpen = rateOf(sinceOpen, secondsField(globals_.dtAppStart, now));
    const std::int32_t rateSinceUpdate =
        rateOf(sinceUpdate, secondsField(globals_.dtRefreshed, now));
    form_.lbl0.setCaption("Change Rate Since Open (KB/sec.) :" +
                          toText(std::int64_t{rateSinceOpen}));
    form_.lbl1.setCaption("Change Rate Since Last Update (KB/sec.) :" +
                          toText(std::int64_t{rateSinceUpdate}));
    form_.lblSpaceChangeOpen.setCaption(toText(std::int64_t{sinceOpen}));
    form_.lblSpaceLastUpdate.setCaption(toText(std::int64_t{sinceUpdate}));
}

}  // namespace velmora
