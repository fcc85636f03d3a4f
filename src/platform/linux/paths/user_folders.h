// The user's folders, as the desktops on this host agree on them. Paths of the host, without a
// slash at the end.
#pragma once

#include <string>

namespace velmora::linuxhost {

/// $HOME, else that of the user database; "/" when neither has one.
std::string homeFolder();
/// $XDG_CONFIG_HOME, else ".config" in the home. A relative path in the variable doesn't count.
std::string configFolder();
/// $XDG_DATA_HOME, else ".local/share" in the home; likewise.
std::string dataFolder();
/// $XDG_STATE_HOME, else ".local/state" in the home; likewise.
std::string stateFolder();

/// A folder that the user may have chosen or that the language has named, by its key in the file
/// user-dirs.dirs ("XDG_DESKTOP_DIR"); `name` in the home when the file has none.
std::string userFolder(const std::string& key, const std::string& name);

/// The folder for the key in a text of that file (lines like XDG_DESKTOP_DIR="$HOME/Desktop"); the
/// last such line counts, as in a shell. Empty when there is none or it is no absolute path.
std::string userFolderIn(const std::string& text, const std::string& key, const std::string& home);

}  // namespace velmora::linuxhost
