#include "monitor/space_statistics.h"

#include <algorithm>
#include <limits>

#include "base/convert.h"
#include "base/format_number.h"
#include "base/text.h"
#include "rows/watch_row.h"

namespace velmora {

SpaceStatistics::SpaceStatistics(Form1& form1, const Globals& globals, Platform& platform,
                                 Host& host)
    : form1_(form1), globals_(globals), platform_(platform), host_(host) {
    form1_.tmrStat.Tick.connect([this] { tmrStat_Timer(); });
}

std::string SpaceStatistics::prcSpaceRateChange(ListView& thisLV, const std::string&) {
    if (thisLV.Count() == 0) return notAvailable;
    const Regional& regional = platform_.regional;
    double before = 0;
    double now = 0;
    for (int i = thisLV.Count(); i >= 1; --i) {
        host_.DoEvents();
        // A handler may have removed rows meanwhile.
        if (i > thisLV.Count()) continue;
        const ConstWatchRow row(thisLV.ListItems(i));
        if (!row.watched() || !row.hasPreviousFree() || !row.isAvailable()) continue;
        before += row.previousFreeKB(regional);
        now += row.freeKB(regional);
    }
    lngRateChange_ = toLong(withinLong(now - before));
    if (lngRateInterval_ < 1) lngRateInterval_ = toLong(form1_.txtTime.Text(), regional);
    if (lngRateChange_ == 0) {
        lngRateWhole_ = 0;
        return "0";
    }
    // Checks without an interval count as one second apart.
    const double each = static_cast<double>(lngRateChange_) / std::max(1, lngRateInterval_);
    // A rate too small for the picture leaves its point alone, which is no number.
    const double rate = readNumber(Format(each, "##.##", regional), regional).value_or(0);
    const std::string whole = FormatNumber(rate / 1024, 0, Grouping::regional, regional);
    lngRateWhole_ = toLong(whole, regional);
    return toText(lngRateWhole_);
}

void SpaceStatistics::updateSpaceChangeRate() {
    form1_.lblSpaceChangeRate.setCaption(
        prcSpaceRateChange(form1_.ListView1, form1_.txtTime.Text()));
}

void SpaceStatistics::prcUpdateStatistics() {
    form1_.lblHighRatedAlerts.setCaption(toText(globals_.lngHighRatedAlerts));
    form1_.lblAlertsRaised.setCaption(toText(globals_.lngAlertsRaised));
    int watched = 0;
    for (int i = 1; i <= form1_.ListView1.Count(); ++i) {
        if (ConstWatchRow(form1_.ListView1.ListItems(i)).watched()) ++watched;
    }
    form1_.lblDriveOnMonitor.setCaption(toText(watched));
    updateSpaceChangeRate();
    form1_.lblTimesMonitor.setCaption(toText(globals_.lngTimesChecked));
}

void SpaceStatistics::tmrStat_Timer() {
    host_.DoEvents();
    constexpr std::size_t overview = 4;
    if (form1_.frmSp[overview].Visible() && !globals_.bChecking) {
        prcUpdateStatistics();
    }
}

void SpaceStatistics::prcSrvAnimation(float clip, float play) {
    Animation& animation = form1_.Animation1;
    if (clip == 0 || clip == 1) {
        // Every row of a check asks for a clip; whether its file is there is looked up once.
        Clip& chosen = clips_[clip == 0 ? 0 : 1];
        if (!chosen.exists) {
            chosen.file = platform_.app.Path + chosen.name;
            chosen.exists = platform_.fso.FileExists(chosen.file);
        }
        if (*chosen.exists) animation.Open(chosen.file);
    }
    if (play == 0) animation.Stop();
    if (play == 1) animation.Play();
}

}  // namespace velmora
