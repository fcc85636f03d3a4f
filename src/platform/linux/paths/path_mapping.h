// Drive paths mapped to paths of this host and back. See path_names.h for the names in them.
#pragma once

#include <string>
#include <vector>

namespace velmora::linuxhost {

/// Where a drive's root lies on this host. A network mount has two of them, its letter first.
struct DriveRoot {
    std::string drive;  ///< "C:" or "\\host\share"
    std::string mountPoint;
};

/// An absolute path of the host as a drive path, by the longest mount point that it lies in:
/// "/mnt/d/foo" as "D:\foo", "/mnt/d" as "D:\". Empty when no root holds it.
std::string drivePathOf(const std::string& hostPath, const std::vector<DriveRoot>& roots);

/// The mount point of the drive that an absolute path of the host lies on, the longest one; empty
/// when none holds it. The path has no "." and "..".
std::string mountPointOf(const std::string& hostPath, const std::vector<DriveRoot>& roots);

/// The absolute path of the host for a drive path with "\" or "/" between its names; letters and
/// shares without regard to case. ".." never leads above a drive's root. A path without a drive
/// begins at the root filesystem's root, or at the working folder when it doesn't begin with a
/// separator. Empty for an empty path, one with a NUL and one on a drive that isn't there.
std::string hostPathOf(const std::string& drivePath, const std::vector<DriveRoot>& roots);

/// One path in both forms.
struct MappedPath {
    /// In full: drive, a back-slash, and the names with single back-slashes between them and none
    /// at the end. The drive stays as it is written. A share's root has no back-slash at the end.
    std::string onDrive;
    std::string onHost;  ///< what `hostPathOf` gives
};
MappedPath mapDrivePath(const std::string& drivePath, const std::vector<DriveRoot>& roots);

/// The working folder; "/" when it is gone.
std::string workingFolder();

}  // namespace velmora::linuxhost
