#include "monitor/monitor.h"

namespace velmora {

Monitor::Monitor(Forms& forms, Platform& platform, const Surface& surface, Parts parts,
                 Window window)
    : statistics_(forms.form1, forms.globals, platform, surface.host),
      driveMeter_(forms.form1, forms.frmIndDri, platform.fso, platform.regional),
      events_(forms, platform,
              {.alerts = parts.alerts.list(),
               .waitTest = parts.inspect.waitTest(),
               .systemActions = parts.alerts.systemActions(),
               .alertDialog = parts.alerts.dialog()}),
      watchControl_(forms, platform.clock, platform.regional, surface.host,
                    {.alerts = parts.alerts.list(),
                     .alertDialog = parts.alerts.dialog(),
                     .tray = window.tray}),
      watchList_(forms.form1, forms.globals, platform, parts.alerts.list()),
      watchListCommands_(forms.form1, forms.globals, platform, surface.host,
                         {.watchList = watchList_,
                          .driveMeter = driveMeter_,
                          .alerts = parts.alerts.list(),
                          .stayOnTop = window.stayOnTop}),
      minimumSpace_(forms.form1, platform.regional, surface.host),
      triggerEntry_(forms.form1, forms.frmIndDri, platform.regional, surface.host, driveMeter_),
      rowCheck_(forms, platform, surface.host,
                {.alerts = parts.alerts.list(),
                 .alertDialog = parts.alerts.dialog(),
                 .actions = parts.alerts.actions(),
                 .events = events_,
                 .statistics = statistics_}),
      history_(forms, platform, surface.host),
      checkCycle_(forms, platform.clock, platform.regional, surface.host,
                  {.rowCheck = rowCheck_,
                   .alerts = parts.alerts.list(),
                   .log = parts.alerts.log(),
                   .settings = parts.persist.settingsFile(),
                   .statistics = statistics_,
                   .history = history_,
                   .rowIcons = window.rowIcons,
                   .options = platform.app.Options}),
      commandLine_(forms.form1.LVFile, platform.app, platform.fso, parts.alerts.files(),
                   parts.persist.shellLinks()),
      lifeCycle_(forms, platform, surface.host,
                 {.checkCycle = checkCycle_,
                  .watchList = watchList_,
                  .watchControl = watchControl_,
                  .events = events_,
                  .commandLine = commandLine_,
                  .settings = parts.persist.settingsFile(),
                  .updateCheck = parts.updateCheck,
                  .stayOnTop = window.stayOnTop,
                  .notifyArea = surface.notifyArea}) {
    forms.frmNotify.cmdOK.Click.connect(
        [this, &forms] { driveMeter_.prcSrvMeterPreSet(forms.frmIndDri.Combo1.Text()); });
}

}  // namespace velmora
