// Folders in one another, entered and left one by one. However deep it goes, few of them are open
// at once: one that was closed is opened again from the folder in it, and recognized by what it is.
#pragma once

#include <cstddef>
#include <deque>

#include "platform/linux/entries/open_folder.h"
#include "platform/linux/entries/own_entry.h"

namespace velmora::linuxhost {

class FolderStack {
  public:
    /// `top` must outlive it.
    explicit FolderStack(const OpenFolder& top) : top_(top) {}
    FolderStack(const FolderStack&) = delete;
    FolderStack& operator=(const FolderStack&) = delete;

    bool isAtTop() const { return entered_.empty(); }
    /// The innermost folder, which is always open. Its address stays while it is entered.
    const OpenFolder& innermost() const { return isAtTop() ? top_ : entered_.back().folder; }
    /// Enters an open folder of the innermost one.
    const OpenFolder& enter(OpenFolder folder, const EntryIdentity& identity);
    /// Opens the folder above the innermost one, if need be. 0, or the errno: ESTALE when folders
    /// were moved meanwhile.
    int openAbove();
    /// That folder, once it is open.
    const OpenFolder& above() const;
    /// Leaves the innermost folder.
    void leave() { entered_.pop_back(); }

  private:
    struct Entered {
        OpenFolder folder;
        EntryIdentity identity;
    };

    const OpenFolder& top_;
    std::deque<Entered> entered_;
};

}  // namespace velmora::linuxhost
