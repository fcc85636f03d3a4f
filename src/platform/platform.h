// The machine as the program sees it: one interface a capability, gathered for handing over.
#pragma once

#include <memory>
#include <string>

#include "base/regional.h"
#include "platform/advapi32.h"
#include "platform/clock.h"
#include "platform/data_folder.h"
#include "platform/file_system_object.h"
#include "platform/internet_transfer.h"
#include "platform/kernel32.h"
#include "platform/other_starts.h"
#include "platform/processes.h"
#include "platform/rasapi32.h"
#include "platform/raw_volumes.h"
#include "platform/shell32.h"
#include "platform/smtp_client.h"
#include "platform/start_options.h"
#include "platform/text_files.h"
#include "platform/user_state.h"
#include "platform/winmm.h"
#include "platform/winsock.h"
#include "platform/wmi.h"
#include "platform/wscript_shell.h"

namespace velmora {

/// The program's own name, folder and command line.
struct Application {
    std::string Path;     ///< drive path of its folder, without a back-slash at the end
    std::string EXEName;  ///< name of the executable without extension
    std::string Command;  ///< the command line after the options, each path in quotes
    StartOptions Options = {};
    /// Drive path of the folder with set.dat, log.dat and clen.dat, likewise; `Path` or another.
    std::string DataPath = {};
    /// Tells that folder from any other, the same at every start: drives can have other letters by
    /// then, and where case doesn't count there is one spelling.
    std::string FolderKey = {};
    /// The command line for a running program that takes this start, in the backend's own form.
    std::string ForOthers = {};
};

struct Platform {
    FileSystemObject& fso;
    Kernel32& kernel32;
    Clock& clock;
    TextFiles& files;
    Advapi32& advapi32;
    Shell32& shell32;
    Winmm& winmm;
    WScriptShell& wscriptShell;
    Winsock& winsock;
    InternetTransfer& internet;
    Rasapi32& rasapi32;
    SmtpClient& smtpClient;
    Processes& processes;
    Wmi& wmi;
    RawVolumes& rawVolumes;
    UserState& userState;
    OtherStarts& otherStarts;
    Regional regional;
    Application app;
};

/// A backend: owns the interfaces of one machine. Which one `openMachine` gives is chosen by the
/// build.
class Machine {
  public:
    virtual ~Machine() = default;
    virtual Platform& platform() = 0;
    /// A path of the host, as a dialog or the command line gives it, as a drive path, with the
    /// links above it resolved: nothing is moved or removed through a link. A path that already is
    /// one comes back as `WithoutLinks` gives it.
    virtual std::string toDrivePath(const std::string& hostPath) = 0;
    /// The reverse, for handing a path to the host.
    virtual std::string toHostPath(const std::string& drivePath) = 0;
    /// The command line of a later start, as `Application::Command` would have it in this program.
    virtual std::string toCommand(const std::string& forOthers) = 0;
    /// Makes the folder of `Application::DataPath` where it is missing, for its user alone, and
    /// lays a copy of the program's set.dat into it where it has none. A folder that was chosen is
    /// made within one that is there only. Nothing is done to the program's own folder.
    virtual DataFolderState prepareDataFolder() = 0;
};

std::unique_ptr<Machine> openMachine();

}  // namespace velmora
