// What a watch tells the service manager: that it watches, how it stands, that it doesn't hang, and
// its end.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/service_manager.h"
#include "platform/clock.h"

namespace velmora {

class ServiceNotice {
  public:
    /// `status` gives the state of the watch in words.
    ServiceNotice(ServiceManager manager, Clock& clock, std::function<std::string()> status);
    ~ServiceNotice();
    ServiceNotice(const ServiceNotice&) = delete;
    ServiceNotice& operator=(const ServiceNotice&) = delete;

    /// The settings are loaded and the watch begins. From now on each step of the program's work
    /// is a chance for a sign of life, twice in the time of the watchdog, and a changed status is
    /// told within a second.
    void ready();
    /// The end begins; what is still done for it gives signs of life as before.
    void stopping();

  private:
    void goOn();
    void tellStatus();

    ServiceManager manager_;
    Clock& clock_;
    std::function<std::string()> status_;
    std::string toldStatus_;
    std::int64_t lastLook_ = 0;  // at the status
    std::int64_t lastSign_ = 0;
};

}  // namespace velmora
