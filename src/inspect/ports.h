// What the drive inspection asks of the alerts, which lie beside it.
#pragma once

#include <string>

namespace velmora {

/// Where the change watcher raises its alerts.
class AlertSink {
  public:
    virtual ~AlertSink() = default;
    /// An alert without flags that belongs to no row.
    virtual void raise(const std::string& strTime, const std::string& strRating,
                       const std::string& strAlert) = 0;
};

}  // namespace velmora
