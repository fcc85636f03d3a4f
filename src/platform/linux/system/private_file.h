// Files that are for the program's user alone.
#pragma once

#include <string>
#include <string_view>

namespace velmora::linuxhost {

/// Writes the whole content of a file in the open folder, which is made or overwritten, with the
/// rights of its user alone when it is made. A link in its place is refused. It is on the disk when
/// this returns. False on any failure; a part of the content can be there then.
bool writePrivateFile(int folder, const std::string& name, std::string_view content);

}  // namespace velmora::linuxhost
