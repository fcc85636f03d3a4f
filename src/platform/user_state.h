// Small files of the program for its user alone: what it remembers from one run to the next and
// what is no setting. They lie in one folder that nobody else may read:
//   $XDG_STATE_HOME/velmora, else ~/.local/state/velmora; %LOCALAPPDATA%\Velmora
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A name is of the letters a to z, digits, "-", "_" and "."; it begins with a letter or a digit,
/// ends with no dot and has at most 64 characters. Nothing is kept under any other.
bool isUserStateName(std::string_view name);

/// The greatest content, in bytes.
inline constexpr std::size_t mostUserState = 64 * 1024 * 1024;

/// Nothing here throws or asks. Where the folder can't be made, or made private, or where a link or
/// a folder of another user lies in its place, nothing is kept.
class UserState {
  public:
    virtual ~UserState() = default;
    /// What is kept under the name; nothing when there is none.
    virtual std::optional<std::string> read(const std::string& name) = 0;
    /// Keeps `content` under the name. A failure, also for one that is too great, gives false and
    /// leaves what was kept before; no reader ever sees a part of a content.
    virtual bool write(const std::string& name, std::string_view content) = 0;
    /// Keeps under the name `to` what is kept under `from`, in place of what is there. Needs no
    /// room. A failure, also when there is nothing to move, gives false and changes nothing.
    virtual bool move(const std::string& from, const std::string& to) = 0;
    /// The file of that name as the host writes it, whether it is there or not: for words to a
    /// user. Empty where there is no folder.
    virtual std::string placeOf(const std::string& name) = 0;
};

}  // namespace velmora
