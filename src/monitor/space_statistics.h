// How the watch is going: the figures of the overview, the space change rate, the animation beside
// the list and the gauges of the individual drive view.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class SpaceStatistics {
  public:
    /// Connects tmrStat.
    SpaceStatistics(Form1& form1, const Globals& globals, Platform& platform, Host& host);
    SpaceStatistics(const SpaceStatistics&) = delete;
    SpaceStatistics& operator=(const SpaceStatistics&) = delete;

    /// The change of the watched rows' free space in KB a second, divided by 1024 once more, as a
    /// whole number; "N/A" without rows. `lngSecPast` isn't used: the divisor is the interval at
    /// the first call. Error 13 when a row's figures are no numbers.
    std::string prcSpaceRateChange(ListView& thisLV, const std::string& lngSecPast);
    void updateSpaceChangeRate();
    void prcUpdateStatistics();
    /// `clip` 0 opens "\spin.avi", 1 "\alert.avi", others nothing; `play` 0 stops, 1 plays.
    void prcSrvAnimation(float clip, float play);
    void tmrStat_Timer();

  private:
    std::int32_t lngRateChange_ = 0;
    std::int32_t lngRateInterval_ = 0;  // fixed at first use
    std::int32_t lngRateWhole_ = 0;
    struct Clip {
        const char* name;
        std::string file = {};
        std::optional<bool> exists = {};  // nothing before the first look
    };
    std::array<Clip, 2> clips_{{{.name = "\\spin.avi"}, {.name = "\\alert.avi"}}};

    Form1& form1_;
    const Globals& globals_;
    Platform& platform_;
    Host& host_;
};

}  // namespace velmora
