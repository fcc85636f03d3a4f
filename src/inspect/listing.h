// One pass over the entries of a folder, which is closed on an error too.
#pragma once

#include <string>

#include "platform/kernel32.h"

namespace velmora {

/// The path in the form for listings: with a back-slash at its end.
std::string withBackSlash(const std::string& sPath);

class Listing {
  public:
    /// Begins at the first entry. `folder` ends with a back-slash.
    Listing(Kernel32& kernel32, const std::string& folder);
    ~Listing();
    Listing(const Listing&) = delete;
    Listing& operator=(const Listing&) = delete;

    /// Whether there is a first entry.
    bool found() const { return handle_ != 0; }
    /// The present entry; the next one takes its place.
    const FindData& entry() const { return entry_; }
    /// Goes on to the next entry; false at the end. Tries again when the system reports anything
    /// but the end.
    bool next();

  private:
    Kernel32& kernel32_;
    FindData entry_;
    FindHandle handle_;
};

}  // namespace velmora
