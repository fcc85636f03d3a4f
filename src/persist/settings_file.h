// The settings file: all settings, one scrambled key and value a line, beside the executable.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "forms/forms.h"
#include "persist/recovery/read_back.h"
#include "persist/recovery/settings_fault.h"
#include "persist/settings_writer.h"
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
    /// written leaves a file of the lines before it; a program that keeps running leaves the file
    /// as it was, and its error names the key. Writing yields. What was written is then read back
    /// in memory, see Hinted.
    void prcSettings(std::int16_t bSet);
    /// Does nothing; saving goes through prcSettings.
    void prcSaveSettings() {}

    /// What a reading that failed could not read; nothing after one that succeeded.
    const std::optional<SettingsFault>& fault() const { return fault_; }
    /// The content of the last reading, once: it holds a password.
    std::string takeContentRead() { return std::exchange(contentRead_, {}); }

  private:
    void write();
    void read();
    void checkInterval();
    void hintAbout(const std::string& written, const std::vector<WrittenLine>& lines);

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    std::optional<SettingsFault> fault_;
    std::string contentRead_;
    std::size_t sumHinted_ = 0;  // of the last content that was read back
};

}  // namespace velmora
