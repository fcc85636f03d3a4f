#include "app/core.h"

namespace velmora {

Core::Core(Forms& forms, Platform& platform, Host& host, NotifyArea& notifyArea)
    : settings_(forms, platform, host),
      alerts_(forms, platform, notifyArea, idle_.alertDialog),
      registry_(platform.advapi32, host),
      shellLinks_(platform),
      fileList_(platform.fso),
      options_(forms, platform, registry_),
      statistics_(forms, platform, host),
      driveMeter_(forms, platform),
      watchControl_(forms, platform, host, alerts_, idle_.tray, idle_.alertDialog),
      watchList_(forms, platform, alerts_),
      watchListCommands_(forms, platform, host, alerts_, watchList_, ports()),
      minimumSpace_(forms, platform, host),
      triggerEntry_(forms, platform, host, driveMeter_),
      checkCycle_(forms, platform, host, alerts_, ports()),
      lifeCycle_(forms, platform, host,
                 {checkCycle_, watchList_, watchControl_, fileList_, shellLinks_, notifyArea},
                 ports()) {
    forms.form1.Command8.Click.connect([this] { settings_.prcSettings(1); });
}

// The program's own parts in the place of those that do nothing.
MonitorPorts Core::ports() {
    return {idle_.events,   idle_.actions, statistics_,     settings_,   idle_.log,
            idle_.rowIcons, watchControl_, idle_.stayOnTop, driveMeter_, idle_.alertDialog,
            idle_.tray,     idle_.tabs,    idle_.updates};
}

void addTimers(Forms& forms, TimerQueue& queue) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (auto* timer = dynamic_cast<Timer*>(control)) queue.add(*timer);
        }
    }
}

}  // namespace velmora
