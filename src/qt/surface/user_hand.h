// What the user's hand does reaches the program through here, so that nothing thrown by a handler
// meets Qt's event loop, which can't carry exceptions.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/host.h"

namespace velmora::qt {

class UserHand {
  public:
    UserHand() = default;
    UserHand(const UserHand&) = delete;
    UserHand& operator=(const UserHand&) = delete;

    /// Whoever shows the box of a run-time error; to be set before anything happens.
    void setHost(Host& host) { host_ = &host; }
    /// Runs once when the program ends; takes the exit status.
    void whenEnded(std::function<void(int)> ended) { whenEnded_ = std::move(ended); }

    /// How a path of this machine becomes a drive path; without it, it stays as it is.
    void setPaths(std::function<std::string(const std::string&)> toDrivePath) {
        toDrivePath_ = std::move(toDrivePath);
    }
    std::string drivePathOf(const std::string& hostPath) const {
        return toDrivePath_ ? toDrivePath_(hostPath) : hostPath;
    }

    /// Runs a handler. A refusal is dropped: nothing has changed, and the view shows the field as
    /// it is. A run-time error that nothing took shows its box and ends the program with status 1.
    /// Nothing happens any more once the program has ended.
    void does(const std::function<void()>& what);

    /// The exit status once the program has ended.
    std::optional<int> ended() const { return ended_; }
    /// Throws ProgramEnd in a handler that yielded to the one that ended the program.
    void throwWhenEnded() const;

  private:
    void end(int status);

    Host* host_ = nullptr;
    std::function<void(int)> whenEnded_;
    std::function<std::string(const std::string&)> toDrivePath_;
    std::optional<int> ended_;
};

}  // namespace velmora::qt
