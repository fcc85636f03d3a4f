// A whole copy of a file or a link in another folder, as moving to another filesystem needs it.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/linux/entries/own_entry.h"

namespace velmora::linuxhost {

/// What was copied, and the copy.
struct CopiedEntry {
    struct stat source {};
    EntryIdentity copy;
};

/// Copies an entry of the one folder to a name that the other doesn't have yet: a file with its
/// content, times, mode, owner and attributes as far as the filesystem keeps them, on the disk when
/// this returns; a link as the link that it is. Nothing appears at the name but the whole file. 0,
/// or the errno with nothing left over: EEXIST when something has that name, EXDEV for anything but
/// a file or a link, EBUSY for a file that changed meanwhile or that a program holds open for
/// writing.
int copyEntry(int fromFolder, const std::string& from, int toFolder, const std::string& to,
              CopiedEntry& copied);

/// Whether both are of one file of the same size.
bool isSameFile(const struct stat& one, const struct stat& other);
/// Whether the file hasn't been written to between them either, by its times.
bool isUnchanged(const struct stat& one, const struct stat& other);

/// Whether a program holds the file at the name open for writing; false where that isn't known.
bool isOpenForWriting(int folder, const std::string& name);

}  // namespace velmora::linuxhost
