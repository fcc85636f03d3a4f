// What the drive inspection asks of other parts of the program.
#pragma once

#include <string>

namespace velmora {

/// Where the change watcher raises its alerts.
class AlertSink {
  public:
    virtual ~AlertSink() = default;
    /// An alert without flags that belongs to no row.
    virtual void raise(const std::string& /*strTime*/, const std::string& /*strRating*/,
                       const std::string& /*strAlert*/) {}
};

}  // namespace velmora
