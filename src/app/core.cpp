#include "app/core.h"

namespace velmora {

Core::Core(Forms& forms, Platform& platform, Surface surface)
    : persist_(forms, platform, surface.host),
      desktop_(forms, platform, surface),
      alerts_(forms, platform, surface,
              {.stayOnTop = desktop_.windowEffects(), .translucency = desktop_.windowEffects()}),
      watchAlerts_(alerts_.list()),
      inspect_(forms, platform, surface.host, watchAlerts_),
      notify_(forms, platform, surface.host, alerts_.list(), VELMORA_VERSION),
      monitor_(forms, platform, surface,
               {.alerts = alerts_,
                .persist = persist_,
                .inspect = inspect_,
                .updateCheck = notify_.updateCheck()},
               {.stayOnTop = desktop_.windowEffects(),
                .tray = desktop_.tray(),
                .rowIcons = desktop_.rowIcons()}),
      shell_(forms, platform, surface,
             {.desktop = desktop_, .alerts = alerts_, .persist = persist_, .monitor = monitor_},
             VELMORA_VERSION) {}

void Core::load() {
    monitor_.lifeCycle().Form_Load();
    alerts_.afterLoad();
    notify_.afterLoad();
}

void addTimers(Forms& forms, TimerQueue& queue) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (auto* timer = dynamic_cast<Timer*>(control)) queue.add(*timer);
        }
    }
}

}  // namespace velmora
