// The mounts of this host, as /proc/self/mountinfo lists them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora::linuxhost {

struct Mount {
    int id = 0;
    int parent = 0;          ///< id of the mount that the mount point lies in
    std::string device;      ///< "major:minor", the same for all mounts of one filesystem
    std::string mountPoint;  ///< absolute, without a slash at the end unless it is "/"
    std::string options;     ///< of this mount
    std::string type;        ///< "ext4", "fuse.sshfs", ...
    std::string source;      ///< a device file, "host:/path", a mere word, or nothing
    std::string fsOptions;   ///< of the filesystem, shared by all of its mounts
};

/// The mounts in the order of the listing. Octal escapes are decoded; lines that aren't mounts are
/// passed over.
std::vector<Mount> parseMountTable(std::string_view text);

/// Whether a comma-separated list of options has the option, as a word or as "option=value".
bool hasOption(std::string_view options, std::string_view option);

/// The value after "option=", empty when there is none.
std::string_view optionValue(std::string_view options, std::string_view option);

/// The mounts that a path can still reach, in the same order: of those at one mount point only the
/// topmost, and none that lies in a mount which another one covers.
std::vector<Mount> reachableMounts(const std::vector<Mount>& mounts);

}  // namespace velmora::linuxhost
