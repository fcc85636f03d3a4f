// What a watch tells the service manager: that it watches, how it stands, that it doesn't hang, and
// its end.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "app/service_manager.h"
#include "platform/clock.h"

namespace velmora {

class ServiceNotice {
  public:
    /// `status` gives the state of the watch in words; `isEndRequested` is asked at most once a
    /// second. From now on each step of the program's work is a chance for a sign of life, twice in
    /// the time of the watchdog. During the start and the end it asks for more time too.
    ServiceNotice(
        ServiceManager manager, Clock& clock, std::function<std::string()> status,
        std::function<bool()> isEndRequested = [] { return false; });
    ~ServiceNotice();
    ServiceNotice(const ServiceNotice&) = delete;
    ServiceNotice& operator=(const ServiceNotice&) = delete;

    /// The settings are loaded and the watch begins. From now on a changed status is told within a
    /// second, and so is the end once somebody asks for it, also in the middle of a check.
    void ready();
    /// The end begins, unless that was told already.
    void stopping();
    /// Milliseconds until there may be something to say: a sign of life, or a status that may have
    /// changed since the last look. A step of work is to be made then. Nothing without a manager.
    std::optional<std::int64_t> untilNext() const;

  private:
    enum class Phase { starting, watching, ending };

    void goOn();
    std::int64_t timeBetweenSigns() const;
    void giveSign(std::int64_t now);
    void tellStatus();

    ServiceManager manager_;
    Clock& clock_;
    std::function<std::string()> status_;
    std::function<bool()> isEndRequested_;
    Phase phase_ = Phase::starting;
    std::string toldStatus_;
    std::int64_t lastLook_ = 0;  // at the status
    std::int64_t lastSign_ = 0;
    bool hasWorked_ = false;  // since the last look
};

}  // namespace velmora
