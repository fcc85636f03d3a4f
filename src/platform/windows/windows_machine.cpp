#include <windows.h>

#include <algorithm>
#include <memory>
#include <string>

#include "base/text.h"
#include "platform/network/mail_client.h"
#include "platform/network/polled_socket.h"
#include "platform/platform.h"
#include "platform/windows/desktop/windows_shell32.h"
#include "platform/windows/desktop/windows_winmm.h"
#include "platform/windows/desktop/windows_wscript_shell.h"
#include "platform/windows/files/windows_file_system_object.h"
#include "platform/windows/files/windows_kernel32.h"
#include "platform/windows/files/windows_text_files.h"
#include "platform/windows/inventory/windows_processes.h"
#include "platform/windows/inventory/windows_wmi.h"
#include "platform/windows/network/windows_internet.h"
#include "platform/windows/network/windows_rasapi32.h"
#include "platform/windows/network/windows_sockets.h"
#include "platform/windows/programs/command_line.h"
#include "platform/windows/settings/windows_advapi32.h"
#include "platform/windows/settings/windows_data_folder.h"
#include "platform/windows/settings/windows_regional.h"
#include "platform/windows/settings/windows_user_state.h"
#include "platform/windows/starts/windows_other_starts.h"
#include "platform/windows/system/utf16.h"
#include "platform/windows/system/windows_clock.h"
#include "platform/windows/volumes/windows_raw_volumes.h"

namespace velmora {

namespace windows {

namespace {

std::wstring executablePath() {
    std::wstring path(MAX_PATH, L'\0');
    while (true) {
        const auto room = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), room);
        if (length < room) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

Application ownApplication() {
    const std::string path = withoutLongPrefix(toUtf8(executablePath()));
    const auto slash = path.rfind('\\');
    std::string command = toUtf8(afterName(GetCommandLineW()));
    const StartOptions options = takeStartOptions(command);
    Application app{
        .Path = "", .EXEName = path, .Command = command, .Options = options, .ForOthers = command};
    if (slash == std::string::npos) return app;
    std::string name = path.substr(slash + 1);
    name.resize(std::min(name.rfind('.'), name.size()));
    app.Path = path.substr(0, slash);
    app.EXEName = name;
    return app;
}

class WindowsMachine final : public Machine {
  public:
    WindowsMachine() {
        // A drive without a medium is an answer; the system must not open a box that asks for one.
        SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
        platform_.app.DataPath = chooseDataFolder(dataFolders_);
        platform_.app.FolderKey = lowerCase(platform_.app.DataPath);
    }

    Platform& platform() override { return platform_; }

    std::string toDrivePath(const std::string& hostPath) override {
        std::string path = hostPath;
        std::replace(path.begin(), path.end(), '/', '\\');
        return withoutLongPrefix(path);
    }
    std::string toHostPath(const std::string& drivePath) override { return drivePath; }
    // Of the same session, and so with the same letters.
    std::string toCommand(const std::string& forOthers) override { return forOthers; }
    DataFolderState prepareDataFolder() override {
        return windows::prepareDataFolder(dataFolders_);
    }

  private:
    Application app_ = ownApplication();
    DataFolders dataFolders_ = dataFoldersOf(app_.Path, app_.Options.settings);
    // Shared by all interfaces, so that only one question a drive is pending.
    std::shared_ptr<DriveQuestions> questions_ = std::make_shared<DriveQuestions>(driveDeadline);
    WindowsFileSystemObject fso_{questions_};
    WindowsKernel32 kernel32_{questions_};
    WindowsClock clock_;
    WindowsTextFiles files_;
    WindowsAdvapi32 advapi32_;
    WindowsShell32 shell32_;
    WindowsWinmm winmm_;
    WindowsWScriptShell wscriptShell_;
    network::PolledSocket winsock_{std::make_shared<WindowsSockets>()};
    WindowsInternet internet_;
    WindowsRasapi32 rasapi32_;
    std::unique_ptr<SmtpClient> smtpClient_ = network::makeSmtpClient();
    WindowsProcesses processes_;
    WindowsWmi wmi_;
    WindowsRawVolumes rawVolumes_{questions_};
    WindowsUserState userState_;
    WindowsOtherStarts otherStarts_{chooseDataFolder(dataFolders_)};
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

}  // namespace windows

std::unique_ptr<Machine> openMachine() {
    return std::make_unique<windows::WindowsMachine>();
}

}  // namespace velmora
