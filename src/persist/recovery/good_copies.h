// The last settings that the program has started with, kept in the user's own folder, and what was
// replaced by one of them.
#pragma once

#include <optional>
#include <string>

#include "persist/recovery/copy_marks.h"
#include "persist/recovery/kept_files.h"
#include "platform/user_state.h"

namespace velmora {

class GoodCopies {
  public:
    /// The settings of one program folder are told from those of another by its key.
    GoodCopies(UserState& state, const std::string& folderKey);

    using Copy = KeptFiles::Kept;

    /// Keeps what the settings file held when the program had started with it. The same content
    /// once more keeps nothing. Where nothing can be kept, nothing happens.
    void keep(const std::string& content);
    /// The content has ended a start. Such a copy isn't offered any more, unless the program
    /// starts with it after all.
    void endedStart(const std::string& content);
    /// What comes in place of what the file holds now, which may be nothing: the newest other copy
    /// that has not had its turn. Going back begins anew once all had theirs, and once a start had
    /// other settings than those that were put back.
    std::optional<Copy> next(const std::optional<std::string>& present);
    /// A copy has taken the place of what the file held: both have had their turn.
    void wasPutBack(const std::string& copy, const std::optional<std::string>& replaced);
    /// Keeps what is about to be replaced by a copy, unless it is one itself: the last five. Gives
    /// its place; empty where it can't be kept.
    std::string keepReplaced(const std::string& content);
    /// Where that is kept.
    std::string placeOfReplaced() { return replaced_.place(); }

  private:
    CopyMarks marks() { return readMarks(state_, marksName_); }
    void change(const CopyMarks& old, CopyMarks marks);

    UserState& state_;
    std::string marksName_;
    KeptFiles copies_;
    KeptFiles replaced_;
};

}  // namespace velmora
