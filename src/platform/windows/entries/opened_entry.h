// Files and folders opened by their names in an opened folder, as what they are themselves: no link
// is ever followed. Each operation on such an entry is on the one that was opened, even when
// something else is put at its path meanwhile.
//
// Results are the system's error codes, 0 for success.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows/paths/exact_path.h"
#include "platform/windows/system/unique_handle.h"

namespace velmora::windows {

/// A path that leads through a link isn't followed: ERROR_STOPPED_ON_SYMLINK.
inline constexpr DWORD ledThroughLink = 681;

enum class EntryKind {
    plain,
    link,      ///< a symbolic link or a junction, opened itself
    mounted,   ///< another drive's place in this one
    hostLink,  ///< a link of the host below Wine: only what it points to can be opened
};

/// Whether an entry with these fields of a listing is a link, or anything else that leads to
/// another place.
bool isLink(DWORD attributes, DWORD reparseTag);

/// Whether the program runs under Wine, which knows no links of its own and follows those of its
/// host unseen.
bool isUnderWine();

class OpenedEntry {
  public:
    /// Two are of the same entry when volume and index are the same.
    struct Facts {
        DWORD attributes = 0;
        FILETIME created{};
        FILETIME accessed{};
        FILETIME written{};
        std::uint64_t size = 0;
        DWORD volume = 0;
        std::uint64_t index = 0;
    };
    struct Child {
        std::wstring name;
        DWORD attributes = 0;
        DWORD reparseTag = 0;
    };

    /// A folder by its path, which may lead through links: the root of a drive, or where the user
    /// has put a folder. By default it can be looked at, but not listed.
    DWORD openPath(const std::wstring& path, ACCESS_MASK access = FILE_READ_ATTRIBUTES);
    /// An entry of an opened folder. `options` are those of the system's native calls, `sharing`
    /// what others may do meanwhile.
    DWORD openIn(const OpenedEntry& folder, const std::wstring& name, ACCESS_MASK access,
                 ULONG options = 0,
                 ULONG sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    void close() { handle_.reset(); }

    DWORD facts(Facts& result) const;
    /// What the entry is, opened by this name in this folder.
    DWORD kindIn(const OpenedEntry& folder, const std::wstring& name, EntryKind& result) const;
    /// All entries of a folder without "." and "..".
    DWORD children(std::vector<Child>& result) const;
    /// Removes the entry, with `force` also when it is read-only. It must have been opened for
    /// that, with `force` also to write attributes. A folder must be empty.
    DWORD remove(bool force) const;

    HANDLE handle() const { return handle_.get(); }

  private:
    UniqueHandle handle_;
};

/// Opens the parent folder of a path, step by step from the root of its drive. Returns
/// `ledThroughLink` when a step is a link or a drive mounted there. With `isHeld` no other program
/// can rename or remove that folder while it is open.
DWORD openParent(const ExactPath& path, bool isHeld, OpenedEntry& parent);

}  // namespace velmora::windows
