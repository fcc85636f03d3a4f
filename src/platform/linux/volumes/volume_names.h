// Names of file systems as programs of the other system know them.
#pragma once

#include <string>

#include "platform/linux/volumes/device_messages.h"

namespace velmora::linuxhost {

/// By what lies on the device: "FAT12", "FAT16", "FAT32", "NTFS", "EXFAT", and the type in capitals
/// for all others. Empty when nothing is known to lie there.
std::string fileSystemNameOf(const FileSystemNames& names);

/// By the type in the mount table, of a FUSE file system by its subtype ("fuseblk.ntfs-3g"). It
/// can't tell the kinds of FAT apart.
std::string fileSystemNameOf(const std::string& mountType);

/// Puts a text and a NUL over the front of the buffer, which keeps its size. A text that is too
/// long is cut between characters. False, and nothing is changed, when the buffer has no room even
/// for the NUL.
bool putInFront(std::string& buffer, const std::string& text);

}  // namespace velmora::linuxhost
