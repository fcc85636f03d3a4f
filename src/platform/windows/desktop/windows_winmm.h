// Sounds of this machine.
#pragma once

#include <cstdint>
#include <string>

#include "platform/winmm.h"

namespace velmora::windows {

class WindowsWinmm final : public Winmm {
  public:
    std::int16_t sndPlaySoundA(const std::string& file, std::int32_t flags) override;
};

}  // namespace velmora::windows
