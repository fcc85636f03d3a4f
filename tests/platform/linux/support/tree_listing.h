// All that lies in a folder, for comparing it before and after.
#pragma once

#include <filesystem>
#include <set>
#include <string>

namespace velmora::linuxhost {

/// Each entry's path below the folder, with a slash after a folder and " -> target" after a link.
inline std::set<std::string> listingOf(const std::string& folder) {
    namespace fs = std::filesystem;
    std::set<std::string> listing;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        std::string line = entry.path().string().substr(folder.size() + 1);
        if (entry.is_symlink()) {
            line += " -> " + fs::read_symlink(entry.path()).string();
        } else if (entry.is_directory()) {
            line += '/';
        }
        listing.insert(line);
    }
    return listing;
}

}  // namespace velmora::linuxhost
