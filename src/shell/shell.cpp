#include "shell/shell.h"

namespace velmora {

Shell::Shell(Forms& forms, Platform& platform, const Surface& surface, Parts parts,
             const std::string& version)
    : lock_(forms, surface.host, parts.desktop.tray()),
      aboutBox_(forms.frmAbout, platform, surface.host, version),
      recycleBin_(forms.icon1, platform.shell32),
      reachability_(forms, surface.notifyArea, platform.userState),
      driveView_(forms, platform, surface.host, parts.monitor.driveMeter()),
      layout_(forms.form1),
      tabs_(forms.form1, forms.frmNotify, layout_),
      labelLook_(forms.form1, forms.dlgAlert),
      toolBarCommands_(forms.form1, forms.frmWizard, platform, surface.host, layout_),
      menuCommands_(forms, platform, surface.host,
                    {.alerts = parts.alerts.list(),
                     .systemActions = parts.alerts.systemActions(),
                     .driveMeter = parts.monitor.driveMeter(),
                     .tray = parts.desktop.tray(),
                     .aboutBox = aboutBox_,
                     .recycleBin = recycleBin_}),
      buttonCommands_(forms.form1, forms.dlgDriveInfo, aboutBox_, parts.persist.settingsFile()),
      wizard_(forms, platform, surface.host, {.alerts = parts.alerts, .monitor = parts.monitor}),
      secondStart_(forms, platform.app, parts.monitor.commandLine(), surface.user32) {}

}  // namespace velmora
