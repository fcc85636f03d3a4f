// The drives of a pass. A drive of many rows is looked up once, and its reading serves them all as
// long as nothing can have changed it.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/file_system_object.h"

namespace velmora {

class PassDrives {
  public:
    PassDrives(FileSystemObject& fso, Clock& clock) : fso_(fso), clock_(clock) {}

    /// The drive of a row's path. One that was given for another row has the reading of that row,
    /// unless it was told to be forgotten or is older than 50 ms. Error 5 for a path without a
    /// drive.
    std::shared_ptr<Drive> of(std::string_view path);
    /// Something has run that may have changed a drive: every drive is measured anew.
    void forget() { ++pass_; }

  private:
    struct Known {
        std::shared_ptr<Drive> drive;
        std::uint64_t pass = 0;  // in which it was measured
        std::int64_t tick = 0;   // at which
    };
    Known& knownAs(std::string_view name);
    std::shared_ptr<Drive> get(std::string_view path);

    FileSystemObject& fso_;
    Clock& clock_;
    std::uint64_t pass_ = 1;
    std::array<Known, 26> byLetter_;
    std::map<std::string, Known, std::less<>> shares_;
};

}  // namespace velmora
