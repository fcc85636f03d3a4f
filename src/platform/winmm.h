// Sounds.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

namespace sound {
inline constexpr std::int32_t noDefault = 2;  ///< SND_NODEFAULT: silence when it can't be played
}  // namespace sound

class Winmm {
  public:
    virtual ~Winmm() = default;
    /// Plays a sound file, given by its drive path, and returns when it has ended. Not 0 when it
    /// was played; without a sound device, or for a file that is no sound, 0 at once.
    virtual std::int16_t sndPlaySoundA(const std::string& file, std::int32_t flags) = 0;
};

}  // namespace velmora
