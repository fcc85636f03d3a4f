// Other running programs that were started from the same folder.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace velmora {

/// Nothing here throws.
class OtherStarts {
  public:
    virtual ~OtherStarts() = default;

    /// Marks the program's folder as watched by this program until it ends. False when another one
    /// watches it already, of any user.
    virtual bool holdFolder() = 0;

    using Taken = std::function<bool(const std::string& command)>;
    /// From now on takes the command lines of this user's later starts. `taken` runs on another
    /// thread and gives whether the program has taken it, which is the answer to that start. False
    /// when another program takes them already, or none can.
    virtual bool listen(Taken taken) = 0;
    /// Hands a command line to the program that listens. False when it doesn't take it, or gives no
    /// answer within `handOverPatience`.
    virtual bool handOver(const std::string& command) = 0;
    /// Gives the folder up and listens no more, so that another program can take its place.
    virtual void release() = 0;
};

/// How long a start waits for the program that listens.
inline constexpr std::chrono::seconds handOverPatience{10};

/// The longest command line that is handed over, in bytes.
inline constexpr std::size_t mostHandedOver = 1024 * 1024;

}  // namespace velmora
