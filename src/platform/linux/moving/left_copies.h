// Copies that a move left unfinished under their temporary names, as when its process was killed.
// Each is noted in the user's own state before it is made; the next start removes what the notes of
// dead processes name.
#pragma once

#include <string>

#include "platform/linux/drives/volumes.h"
#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// The temporary names of copies begin so.
inline constexpr const char* temporaryCopy = ".velmora-";

/// A name for a copy that no other process has given or will give, also not one that gets the same
/// number later: an old note of that one must not lead to this copy.
std::string temporaryCopyName();

/// Notes that a copy is being made at that name in the folder, as long as this object and its
/// process live. A copy that can't be noted is made all the same.
class CopyNote {
  public:
    CopyNote(int folder, std::string name);
    /// Takes the note back, unless something has stayed at the name.
    ~CopyNote();
    /// Takes it back at once: the copy couldn't be made, and what lies at the name is another's.
    void forget();
    CopyNote(const CopyNote&) = delete;
    CopyNote& operator=(const CopyNote&) = delete;

  private:
    int folder_;
    std::string name_;
    UniqueFd state_;    // the folder of the notes
    UniqueFd note_;     // locked, which shows that its process lives
    std::string file_;  // of the note; empty without one
};

/// Removes the copies of processes that live no more. A place that can't be reached now is
/// remembered for a month. Anything but a file of such a name stays.
void removeLeftCopies(Volumes& volumes);

}  // namespace velmora::linuxhost
