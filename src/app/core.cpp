#include "app/core.h"

namespace velmora {

Core::Core(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea)
    : ports_(idle_.all()),
      alerts_(forms, platform, notifyArea, ports_.alertDialog),
      watchList_(forms, platform, alerts_),
      watchListCommands_(forms, platform, host, alerts_, watchList_, ports_),
      minimumSpace_(forms, platform, host),
      triggerEntry_(forms, platform, host, ports_.driveView),
      checkCycle_(forms, platform, host, alerts_, ports_),
      lifeCycle_(forms, platform, host, notifyArea, ports_.stayOnTop) {}

void addTimers(Forms& forms, TimerQueue& queue) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (auto* timer = dynamic_cast<Timer*>(control)) queue.add(*timer);
        }
    }
}

}  // namespace velmora
