#include <algorithm>
#include <memory>
#include <string>

#include "platform/file_system_object.h"
#include "platform/linux/desktop/linux_shell32.h"
#include "platform/linux/desktop/linux_winmm.h"
#include "platform/linux/desktop/linux_wscript_shell.h"
#include "platform/linux/drives/volumes.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/files/linux_file_system_object.h"
#include "platform/linux/files/linux_kernel32.h"
#include "platform/linux/files/linux_text_files.h"
#include "platform/linux/inventory/linux_processes.h"
#include "platform/linux/inventory/linux_wmi.h"
#include "platform/linux/moving/left_copies.h"
#include "platform/linux/network/linux_internet.h"
#include "platform/linux/network/linux_rasapi32.h"
#include "platform/linux/network/linux_sockets.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/paths/path_names.h"
#include "platform/linux/programs/command_line.h"
#include "platform/linux/programs/program_file.h"
#include "platform/linux/settings/linux_advapi32.h"
#include "platform/linux/settings/linux_data_folder.h"
#include "platform/linux/settings/linux_regional.h"
#include "platform/linux/settings/linux_user_state.h"
#include "platform/linux/starts/linux_other_starts.h"
#include "platform/linux/system/linux_clock.h"
#include "platform/linux/system/listed_times.h"
#include "platform/linux/volumes/linux_raw_volumes.h"
#include "platform/network/mail_client.h"
#include "platform/network/polled_socket.h"
#include "platform/platform.h"

namespace velmora {

namespace linuxhost {

namespace {

// Of the host, without a slash at the end.
std::string ownFolder() {
    const std::string path = executablePath();
    return path.substr(0, std::min(path.rfind('/'), path.size()));
}

// As applications name folders: without a back-slash at the end.
std::string asFolder(const std::string& hostPath, Volumes& volumes) {
    std::string folder = drivePathOf(hostPath, volumes.roots());
    if (folder.ends_with('\\')) folder.pop_back();
    return folder;
}

// A path of the command line as the host has it, also one that was typed as a drive path; empty for
// one on a drive that isn't there.
std::string hostPathOfTyped(const std::string& typed, Volumes& volumes) {
    return driveNameOf(typed).empty() ? toHostNames(typed) : volumes.hostPathOf(typed);
}

// Files stay as they were typed where no drive has them: it is said then that they can't be opened.
std::string fileOfTyped(const std::string& typed, Volumes& volumes) {
    const std::string path = hostPathOfTyped(typed, volumes);
    return path.empty() ? typed : path;
}

DataFolders ownDataFolders(const StartOptions& options, Volumes& volumes) {
    const std::string chosen = hostPathOfTyped(options.settings, volumes);
    DataFolders folders = dataFoldersOf(ownFolder(), chosen);
    if (chosen.empty() && !options.settings.empty()) folders.isUnknown = true;
    return folders;
}

Application ownApplication(Volumes& volumes) {
    const std::string path = executablePath();
    Application app{.Path = asFolder(ownFolder(), volumes),
                    .EXEName = withoutExtension(path.substr(path.rfind('/') + 1)),
                    .Command = ownCommand(volumes),
                    .ForOthers = ownTextForOthers(volumes)};
    app.Options = takeStartOptions(app.Command);
    for (std::string* file : {&app.Options.script, &app.Options.metricsFile})
        *file = fileOfTyped(*file, volumes);
    return app;
}

class LinuxMachine final : public Machine {
  public:
    LinuxMachine() {
        const std::string folder = chooseDataFolder(dataFolders_);
        platform_.app.DataPath = asFolder(folder, volumes_);
        platform_.app.FolderKey = folder + '/';
        removeLeftCopies(volumes_);
        removeLeftUserState();
    }

    Platform& platform() override { return platform_; }

    std::string toDrivePath(const std::string& hostPath) override {
        if (hostPath.empty()) return {};
        if (!driveNameOf(hostPath).empty()) return fso_.WithoutLinks(hostPath);
        const bool isAbsolute = hostPath[0] == '/';
        const std::string path = isAbsolute ? hostPath : workingFolder() + '/' + hostPath;
        // Removing and moving refuse links in a path, so they are resolved here.
        return drivePathOf(withoutLinksAbove(path, volumes_), volumes_.roots());
    }
    std::string toHostPath(const std::string& drivePath) override {
        return volumes_.hostPathOf(drivePath);
    }
    std::string toCommand(const std::string& forOthers) override {
        return commandFromOther(forOthers, volumes_);
    }
    DataFolderState prepareDataFolder() override {
        return linuxhost::prepareDataFolder(dataFolders_);
    }

  private:
    Volumes volumes_;
    Application app_ = ownApplication(volumes_);
    DataFolders dataFolders_ = ownDataFolders(app_.Options, volumes_);
    LinuxFileSystemObject fso_{volumes_};
    ListedTimes listedTimes_;
    LinuxKernel32 kernel32_{volumes_, &listedTimes_};
    LinuxClock clock_{&listedTimes_};
    LinuxTextFiles files_{volumes_};
    LinuxAdvapi32 advapi32_{volumes_};
    LinuxShell32 shell32_{volumes_};
    LinuxWinmm winmm_{volumes_};
    LinuxWScriptShell wscriptShell_{volumes_};
    network::PolledSocket winsock_{std::make_shared<LinuxSockets>()};
    LinuxInternet internet_;
    LinuxRasapi32 rasapi32_;
    std::unique_ptr<SmtpClient> smtpClient_ = network::makeSmtpClient();
    LinuxProcesses processes_{hostSources()};
    LinuxWmi wmi_{hostSources()};
    LinuxRawVolumes rawVolumes_{volumes_};
    LinuxUserState userState_;
    LinuxOtherStarts otherStarts_{chooseDataFolder(dataFolders_) + '/'};
    Platform platform_{.fso = fso_,
                       .kernel32 = kernel32_,
                       .clock = clock_,
                       .files = files_,
                       .advapi32 = advapi32_,
                       .shell32 = shell32_,
                       .winmm = winmm_,
                       .wscriptShell = wscriptShell_,
                       .winsock = winsock_,
                       .internet = internet_,
                       .rasapi32 = rasapi32_,
                       .smtpClient = *smtpClient_,
                       .processes = processes_,
                       .wmi = wmi_,
                       .rawVolumes = rawVolumes_,
                       .userState = userState_,
                       .otherStarts = otherStarts_,
                       .regional = userRegional(),
                       .app = app_};
};

}  // namespace

}  // namespace linuxhost

std::unique_ptr<Machine> openMachine() {
    return std::make_unique<linuxhost::LinuxMachine>();
}

}  // namespace velmora
