// Sounds, by the first player of this host that plays them.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "platform/linux/drives/volumes.h"
#include "platform/winmm.h"

namespace velmora::linuxhost {

/// How long a player may take.
struct PlayingLimits {
    std::chrono::milliseconds beyondSound{5'000};     ///< after the length in the file's header
    std::chrono::milliseconds unknownLength{60'000};  ///< for files without a length
};

class LinuxWinmm final : public Winmm {
  public:
    explicit LinuxWinmm(Volumes& volumes, PlayingLimits limits = {})
        : volumes_(volumes), limits_(limits) {}

    /// pw-play, paplay or aplay. When one fails, the next is tried; one that exceeds the limit is
    /// ended, and the sound counts as played.
    std::int16_t sndPlaySoundA(const std::string& file, std::int32_t flags) override;

  private:
    Volumes& volumes_;
    PlayingLimits limits_;
};

/// How long a WAV file sounds, by its header and its size; 0 for any other file.
std::chrono::milliseconds lengthOfSound(const std::string& hostPath);

}  // namespace velmora::linuxhost
