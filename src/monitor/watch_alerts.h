// The alert list, as the change watcher sees it through its port.
#pragma once

#include <string>

#include "alerts/journal/alert_list.h"
#include "inspect/ports.h"

namespace velmora {

class WatchAlerts final : public AlertSink {
  public:
    explicit WatchAlerts(AlertList& alerts) : alerts_(alerts) {}
    void raise(const std::string& strTime, const std::string& strRating,
               const std::string& strAlert) override {
        alerts_.prcAlertInfo(strTime, strRating, strAlert, {}, nullptr);
    }

  private:
    AlertList& alerts_;
};

}  // namespace velmora
