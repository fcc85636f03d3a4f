// The way back to settings that the program starts with.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "persist/recovery/good_copies.h"
#include "persist/recovery/settings_fault.h"
#include "platform/platform.h"

namespace velmora {

class SettingsRecovery {
  public:
    using PathConversion = std::function<std::string(const std::string&)>;

    explicit SettingsRecovery(Platform& platform)
        : platform_(platform), copies_(platform.userState) {}

    /// Keeps the content with which the program has started.
    void keep(const std::string& content) { copies_.keep(path(), content); }
    /// Whether there is a copy that differs from the file.
    bool hasCopy() { return copies_.newestOtherThan(path(), present()).has_value(); }
    /// Puts the newest good copy that differs from the file in its place, and keeps what it
    /// replaces. Says in words what was done; with no copy nothing is. Errors of the file go to
    /// the caller.
    std::string restore(const PathConversion& toHostPath);
    /// The lines that tell a user of a start that failed: the file, the line that can't be read,
    /// and where the last good copy lies.
    std::string explain(const SettingsFault& fault, const PathConversion& toHostPath);

  private:
    std::string path() const { return platform_.app.Path + "\\set.dat"; }
    std::optional<std::string> present();

    Platform& platform_;
    GoodCopies copies_;
};

}  // namespace velmora
