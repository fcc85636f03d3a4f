#include "app/core.h"

namespace velmora {

Core::Core(Forms& forms, Platform& platform, Surface surface)
    : forms_(forms),
      host_(surface.host),
      alertDialog_(forms, surface.workArea),
      settings_(forms, platform, surface.host),
      alerts_(forms, platform, surface.notifyArea, alertDialog_),
      systemActions_(forms, platform, surface.user32),
      registry_(platform.advapi32, surface.host),
      shellLinks_(platform),
      properties_(shellLinks_),
      fileList_(platform, surface.host),
      options_(forms, platform, registry_),
      statistics_(forms, platform, surface.host),
      driveMeter_(forms, platform),
      tray_(forms, platform, surface),
      windowEffects_(forms, surface.user32),
      journalLog_(forms, platform, surface.host, windowEffects_),
      soundButtons_(forms, platform, surface.host, systemActions_),
      alertDialogHiding_(forms, windowEffects_, journalLog_),
      alertDialogOptions_(forms, platform, surface.host),
      actions_(forms, platform, surface.host, alerts_, systemActions_, alertPorts()),
      fileListButtons_(forms, surface.host, fileList_, alertPorts()),
      programList_(forms, platform, surface.host),
      manualOperations_({forms, platform, surface.host, alerts_, systemActions_}, alertPorts()),
      watchAlerts_(alerts_),
      waitTest_(forms, platform, surface.host, watchAlerts_),
      events_(forms, platform, alerts_, waitTest_, systemActions_, alertDialog_),
      rowIcons_(forms.form1.picBuffer, surface.shellIcons),
      lock_(forms, surface.host, tray_),
      aboutBox_(forms, platform, surface.host, VELMORA_VERSION),
      recycleBin_(forms, platform.shell32),
      reachability_(forms, surface.notifyArea),
      layout_(forms),
      tabs_(forms, layout_),
      labelLook_(forms),
      watchControl_(forms, platform, surface.host, alerts_, tray_, alertDialog_),
      watchList_(forms, platform, alerts_),
      watchListCommands_(forms, platform, surface.host, alerts_, watchList_, ports()),
      minimumSpace_(forms, platform, surface.host),
      triggerEntry_(forms, platform, surface.host, driveMeter_),
      checkCycle_(forms, platform, surface.host, alerts_, ports()),
      lifeCycle_(
          forms, platform, surface.host,
          {checkCycle_, watchList_, watchControl_, fileList_, shellLinks_, surface.notifyArea},
          ports()),
      shellPorts_(forms, tray_, aboutBox_, recycleBin_),
      toolBarCommands_(forms, platform, surface.host, layout_),
      menuCommands_(forms, platform, surface.host,
                    {alerts_, systemActions_, shellLinks_, driveMeter_, shellPorts_, shellPorts_,
                     shellPorts_, shellPorts_}),
      // The about box comes after the saving: handlers run in the order of their connection.
      buttonCommands_(
          (forms.form1.Command8.Click.connect([this] { settings_.prcSettings(1); }), forms),
          shellPorts_) {}

void Core::load() {
    lifeCycle_.Form_Load();
    soundButtons_.setDefaults();
    // The rules are for the hand. Ticks that come back from the settings were taken once already,
    // and a start must not wait for an answer.
    actionListRules_.emplace(forms_, host_);
}

// The program's own parts in the place of those that do nothing.
MonitorPorts Core::ports() {
    return {events_,   actions_,      statistics_,    settings_,   journalLog_,
            rowIcons_, watchControl_, windowEffects_, driveMeter_, alertDialog_,
            tray_,     tabs_,         idle_.updates};
}

AlertPorts Core::alertPorts() {
    return {watchControl_, windowEffects_, checkCycle_, idleAlerts_.mail,
            properties_,   windowEffects_, alertDialog_};
}

void addTimers(Forms& forms, TimerQueue& queue) {
    for (Form* form : forms.all()) {
        for (Control* control : form->controls()) {
            if (auto* timer = dynamic_cast<Timer*>(control)) queue.add(*timer);
        }
    }
}

}  // namespace velmora
