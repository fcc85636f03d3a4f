// The settings file: all settings, one scrambled key and value a line, beside the executable.
#pragma once

#include <cstdint>

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

/// What prcSettings is to do.
namespace settings_order {
inline constexpr std::int16_t write = 1;
inline constexpr std::int16_t read = 2;
}  // namespace settings_order

class SettingsFile {
  public:
    SettingsFile(Forms& forms, Platform& platform, Host& host)
        : forms_(forms), platform_(platform), host_(host) {}

    /// 1 writes the file of `Globals::strSettings`, 2 reads it; any other number touches no file.
    /// Finally an interval of 0 or less becomes "5"; error 13 when it is no number. Errors of the
    /// file (53 when it is missing) and of its values go to the caller. A value that can't be
    /// written leaves a file of the lines before it. Writing yields.
    void prcSettings(std::int16_t bSet);
    /// Does nothing; saving goes through prcSettings.
    void prcSaveSettings() {}

  private:
    void write();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
};

}  // namespace velmora
