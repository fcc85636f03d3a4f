// What the watch list and the check ask of other parts of the program. Each port does nothing by
// itself; the program puts the real ones in place.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/ports.h"
#include "controls/list_view.h"
#include "platform/file_system_object.h"

namespace velmora {

/// Looks for events on a row. Rows are named by their index, since a handler that ran in between
/// may have removed some.
class EventDetection {
  public:
    virtual ~EventDetection() = default;
    /// The event pass over a ready row.
    virtual void checkEvents(int /*row*/) {}
    /// A watched row whose drive isn't ready.
    virtual void rowNotReady(int /*row*/) {}
    /// Keeps the row's present figures for the next comparison and takes new ones. 1 on success, 0
    /// otherwise.
    virtual int prcSetPrevInfoLV(ListItem& /*row*/) { return 0; }
};

class Statistics {
  public:
    virtual ~Statistics() = default;
    virtual void updateSpaceChangeRate() {}
    virtual void prcUpdateStatistics() {}
    virtual void prcSrvAnimation(float /*clip*/, float /*play*/) {}
};

class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    /// 1 writes, 2 reads.
    virtual void prcSettings(std::int16_t /*bSet*/) {}
};

class RowIcons {
  public:
    virtual ~RowIcons() = default;
    virtual void prcRefreshRowIcon(ListItem& /*row*/) {}
};

/// The icon in the notification area.
class Tray {
  public:
    virtual ~Tray() = default;
    /// Shows the icon of that form, with the tip of `Globals::sTrayTip`.
    virtual void modifyIcon(const std::string& /*form*/) {}
    /// Shows another tip.
    virtual void prcToolTipText(const std::string& /*text*/) {}
};

class DriveView {
  public:
    virtual ~DriveView() = default;
    virtual void prcShowfrmIndDri(const std::string& /*path*/) {}
    virtual void prcSrvMeter(ListItem& /*row*/) {}
};

/// The window's tab strips.
class Tabs {
  public:
    virtual ~Tabs() = default;
    virtual void lblTab_Click(int /*index*/) {}
    virtual void lblSpectab_Click(int /*index*/) {}
};

class Updates {
  public:
    virtual ~Updates() = default;
    virtual void prcCheckUpdate() {}
};

struct MonitorPorts {
    EventDetection& events;
    ActionRunner& actions;
    Statistics& statistics;
    SettingsStore& settings;
    ActivityLog& log;
    RowIcons& rowIcons;
    WatchSwitch& watchSwitch;
    StayOnTop& stayOnTop;
    DriveView& driveView;
    AlertDialog& alertDialog;
    Tray& tray;
    Tabs& tabs;
    Updates& updates;
};

/// Ports that do nothing, for whoever replaces only some of them.
struct IdlePorts {
    EventDetection events;
    ActionRunner actions;
    Statistics statistics;
    SettingsStore settings;
    ActivityLog log;
    RowIcons rowIcons;
    WatchSwitch watchSwitch;
    StayOnTop stayOnTop;
    DriveView driveView;
    AlertDialog alertDialog;
    Tray tray;
    Tabs tabs;
    Updates updates;

    MonitorPorts all() {
        return {events,    actions,   statistics,  settings, log,  rowIcons, watchSwitch,
                stayOnTop, driveView, alertDialog, tray,     tabs, updates};
    }
};

}  // namespace velmora
