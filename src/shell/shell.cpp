#include "shell/shell.h"

namespace velmora {

Shell::Shell(Forms& forms, Platform& platform, const Surface& surface, Parts parts,
             const std::string& version)
    : lock_(forms, surface.host, parts.desktop.tray()),
      aboutBox_(forms, platform, surface.host, version),
      recycleBin_(forms, platform.shell32),
      reachability_(forms, surface.notifyArea),
      layout_(forms),
      tabs_(forms, layout_),
      labelLook_(forms),
      toolBarCommands_(forms, platform, surface.host, layout_),
      menuCommands_(forms, platform, surface.host,
                    {.alerts = parts.alerts.list(),
                     .systemActions = parts.alerts.systemActions(),
                     .driveMeter = parts.monitor.driveMeter(),
                     .tray = parts.desktop.tray(),
                     .aboutBox = aboutBox_,
                     .recycleBin = recycleBin_}),
      buttonCommands_(forms, aboutBox_, parts.persist.settingsFile()) {}

}  // namespace velmora
