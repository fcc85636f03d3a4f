// Names of this host inside drive paths. A name here may hold any byte but "/" and NUL; a drive
// path is UTF-8 with back-slashes between its names. So a back-slash inside a name is carried as
// U+F05C, a double quote, which closes paths in the command line, as U+F022, and a byte that is no
// valid UTF-8 as U+F700 plus the byte; these stand-ins themselves are carried byte by byte, so that
// every name comes back as it was.
#pragma once

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// A path of the host with back-slashes for its slashes.
std::string toDriveNames(std::string_view hostPath);
/// The way back; "/" counts as a separator too.
std::string toHostNames(std::string_view driveNames);

/// The path below a root without ".", ".." and empty names, separators between the rest and none
/// around it: ".." never leads above the root, as on drives.
std::string normalized(std::string_view path, std::string_view separators, char separator);

/// Whether the host path `path` is `folder` or lies below it.
bool isWithin(std::string_view path, std::string_view folder);

/// Whether a name of a listing is "." or "..". Safe in a forked child.
bool isDots(std::string_view name);

}  // namespace velmora::linuxhost
