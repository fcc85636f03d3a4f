// What the alerts and actions ask of other parts of the program, and what the check asks of the
// actions. Each port does nothing by itself; the program puts the real ones in place.
#pragma once

#include <cstdint>
#include <string>

#include "alerts/dialog/alert_dialog.h"
#include "controls/form.h"
#include "platform/file_system_object.h"

namespace velmora {

/// What the actions of one short row share.
struct Shortage {
    int row = 0;          ///< index of the row in ListView1
    std::string rowText;  ///< what the row watches; another text there is another row
    Drive& drive;
    std::int32_t lngMinSpace;  ///< the row's trigger in KB
    std::string strAlert;      ///< the running text; actions add to it and empty it
    std::string strStamp;      ///< date and time of the shortage
    std::string strNote;       ///< text of one result
};

class ActionRunner {
  public:
    virtual ~ActionRunner() = default;
    /// Runs the action of that place in lstAct.
    virtual void run(int /*action*/, Shortage& /*shortage*/) {}
};

class ActivityLog {
  public:
    virtual ~ActivityLog() = default;
    /// Saves what the journal has gained since the last save.
    virtual void saveNewEntries() {}
};

class WatchSwitch {
  public:
    virtual ~WatchSwitch() = default;
    /// Starts the watch when it is paused and pauses it when it runs.
    virtual void cmdPause_Click() {}
};

class StayOnTop {
  public:
    virtual ~StayOnTop() = default;
    /// Lets a question come in front of the window.
    virtual void drop() {}
    virtual void restore() {}
};

/// One tick of the check, as its timer would give it.
class CheckTick {
  public:
    virtual ~CheckTick() = default;
    virtual void Timer1_Timer() {}
};

/// The notification mail.
class NotificationMail {
  public:
    virtual ~NotificationMail() = default;
    virtual void send() {}
};

class FileProperties {
  public:
    virtual ~FileProperties() = default;
    /// The system's properties sheet of a file, owned by the window of that form.
    virtual void prcShowProperties(const std::string& /*path*/, const std::string& /*owner*/) {}
};

class Translucency {
  public:
    virtual ~Translucency() = default;
    /// `percent` from 20 to 100, which is opaque. Whether the system took it.
    virtual bool SetTranslucency(const Form& /*form*/, int /*percent*/) { return false; }
};

struct AlertPorts {
    WatchSwitch& watchSwitch;
    StayOnTop& stayOnTop;
    CheckTick& checkTick;
    NotificationMail& mail;
    FileProperties& properties;
    Translucency& translucency;
    AlertDialog& alertDialog;
};

/// Ports that do nothing, for whoever replaces only some of them.
struct IdleAlertPorts {
    WatchSwitch watchSwitch;
    StayOnTop stayOnTop;
    CheckTick checkTick;
    NotificationMail mail;
    FileProperties properties;
    Translucency translucency;
    AlertDialog alertDialog;

    AlertPorts all() {
        return {watchSwitch, stayOnTop, checkTick, mail, properties, translucency, alertDialog};
    }
};

}  // namespace velmora
