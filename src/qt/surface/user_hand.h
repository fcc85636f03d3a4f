// All that the user does passes through here on its way to the program, so that no exception of a
// handler reaches Qt's event loop, which can't carry any.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/regional.h"
#include "controls/control.h"
#include "platform/host.h"

namespace velmora::qt {

class UserHand {
  public:
    UserHand() = default;
    UserHand(const UserHand&) = delete;
    UserHand& operator=(const UserHand&) = delete;

    /// Shows the box of a run-time error; to be set before anything else.
    void setHost(Host& host) { host_ = &host; }
    /// Runs once when the program ends; takes the exit status.
    void whenEnded(std::function<void(int)> ended) { whenEnded_ = std::move(ended); }

    /// Runs before the box of an error that ends the program.
    void whenFailing(std::function<void()> failing) { whenFailing_ = std::move(failing); }
    /// To be called before such a box by who shows it.
    void failing() const {
        if (whenFailing_) whenFailing_();
    }

    using PathConversion = std::function<std::string(const std::string&)>;
    /// Converts a path of this machine to a drive path, and back; without it, paths stay as they
    /// are.
    void setPaths(PathConversion toDrivePath, PathConversion toHostPath = {}) {
        toDrivePath_ = std::move(toDrivePath);
        toHostPath_ = std::move(toHostPath);
    }
    std::string drivePathOf(const std::string& hostPath) const {
        return toDrivePath_ ? toDrivePath_(hostPath) : hostPath;
    }

    /// As the host writes it; the path itself where the host has none for it.
    std::string hostPathOf(const std::string& drivePath) const {
        std::string path = toHostPath_ ? toHostPath_(drivePath) : drivePath;
        return path.empty() ? drivePath : path;
    }

    /// How numbers are written for the user; without it, with a comma between groups of digits.
    void setRegional(const Regional& regional) { regional_ = regional; }
    const Regional& regional() const { return regional_; }

    /// From now on a run-time error that no handler takes is told, and the program goes on.
    void keepRunning() { keepsRunning_ = true; }

    /// Runs a handler of a control, as below.
    void does(const Control& control, const std::function<void()>& what);
    /// Runs a handler. A refusal is dropped: nothing has changed, and the view shows the field as
    /// it is. A run-time error that no handler has caught shows its box and ends the program with
    /// status 1, unless it keeps running. Does nothing once the program has ended.
    void does(const std::function<void()>& what);

    /// The exit status once the program has ended.
    std::optional<int> ended() const { return ended_; }
    /// Throws ProgramEnd when the program has ended: for handlers that yielded meanwhile.
    void throwWhenEnded() const;

  private:
    void failed();
    void end(int status);

    Host* host_ = nullptr;
    std::function<void(int)> whenEnded_;
    std::function<void()> whenFailing_;
    PathConversion toDrivePath_;
    PathConversion toHostPath_;
    Regional regional_;
    std::optional<int> ended_;
    bool keepsRunning_ = false;
};

}  // namespace velmora::qt
