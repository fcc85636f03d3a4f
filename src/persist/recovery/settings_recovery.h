// The way back to settings that the program starts with.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "persist/recovery/good_copies.h"
#include "persist/recovery/settings_fault.h"
#include "platform/platform.h"

namespace velmora {

/// What came of putting settings back.
struct Restored {
    bool isDone = false;
    std::string text;  ///< the same in words
};

class SettingsRecovery {
  public:
    using PathConversion = std::function<std::string(const std::string&)>;

    explicit SettingsRecovery(Platform& platform)
        : platform_(platform), copies_(platform.userState, platform.app.FolderKey) {}

    /// Keeps the content with which the program has started.
    void keep(const std::string& content) { copies_.keep(content); }
    /// The content ended the start: it is put back no more.
    void endedStart(const std::string& content) { copies_.endedStart(content); }
    /// Whether there is a copy to put back.
    bool hasCopy() { return copies_.next(readable()).has_value(); }
    /// Puts a good copy that differs from the file in its place: the newest, and from restore to
    /// restore an older one. What it replaces is kept first; where it can't be, that is an error
    /// (75, or that of reading the file) and nothing changes. Without a copy nothing is done.
    /// Errors of writing the file go to the caller.
    Restored restore(const PathConversion& toHostPath);
    /// The lines that tell a user of a start that failed: the file, the line that can't be read,
    /// and where the last good copy lies.
    std::string explain(const SettingsFault& fault, const PathConversion& toHostPath);

  private:
    std::string path() const { return platform_.app.DataPath + "\\set.dat"; }
    std::optional<std::string> present(const std::string& file);
    std::optional<std::string> readable();
    std::string keepFirst(const std::string& content, const std::string& file);

    Platform& platform_;
    GoodCopies copies_;
};

}  // namespace velmora
