// Asks the programs of an installed folder to close, for the installer:
//   velmora-close FOLDER [SECONDS]
// A window asks its user before it ends, a console that keeps watch ends by itself, and one with a
// prompt belongs to whoever sits before it. Nothing is ended by force. SECONDS is how long to wait,
// 0 to 3600; without it nothing is asked. The status is 0 when none of the programs runs (any
// more), 1 when one does, 2 for wrong arguments.
#include <windows.h>
// After the one above, which they need.
#include <psapi.h>
#include <shellapi.h>

#include <string>
#include <vector>

#include "app/windows/close_wish_name.h"

namespace {

using Paths = std::vector<std::wstring>;

constexpr const wchar_t* programs[] = {L"velmora.exe", L"velmora-console.exe"};
constexpr DWORD everyoneElse = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr DWORD pause = 200;
constexpr unsigned long longestWait = 3600;
constexpr std::size_t longestPath = 32768;
constexpr std::size_t mostProcesses = 65536;

HANDLE openFile(const std::wstring& path, DWORD access) {
    return CreateFileW(path.c_str(), access, everyoneElse, nullptr, OPEN_EXISTING,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The file of a running program can't be opened for writing, in whatever session it runs.
bool isRunning(const std::wstring& path) {
    const HANDLE file = openFile(path, GENERIC_WRITE);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

bool isAnyRunning(const Paths& paths) {
    for (const std::wstring& path : paths) {
        if (isRunning(path)) return true;
    }
    return false;
}

bool factsOf(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& facts) {
    const HANDLE file = openFile(path, 0);
    if (file == INVALID_HANDLE_VALUE) return false;
    const bool areKnown = GetFileInformationByHandle(file, &facts);
    CloseHandle(file);
    return areKnown;
}

// A path can be written in several ways.
bool isSameFile(const std::wstring& one, const std::wstring& other) {
    BY_HANDLE_FILE_INFORMATION a{};
    BY_HANDLE_FILE_INFORMATION b{};
    return factsOf(one, a) && factsOf(other, b) &&
           a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
           a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
}

// Empty for one that may not be asked.
std::wstring programOf(DWORD number) {
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number);
    if (!process) return {};
    std::wstring path(longestPath, L'\0');
    auto length = static_cast<DWORD>(path.size());
    if (!QueryFullProcessImageNameW(process, 0, path.data(), &length)) length = 0;
    CloseHandle(process);
    path.resize(length);
    return path;
}

bool isOneOf(const std::wstring& program, const Paths& paths) {
    for (const std::wstring& path : paths) {
        if (!program.empty() && isSameFile(program, path)) return true;
    }
    return false;
}

void wishForClose(DWORD process) {
    const std::wstring name = velmora::windows::closeWishName(process);
    const HANDLE wish = OpenEventW(EVENT_MODIFY_STATE, FALSE, name.c_str());
    if (!wish) return;
    // The installer is in front now, and the question is to get there.
    AllowSetForegroundWindow(process);
    SetEvent(wish);
    CloseHandle(wish);
}

void askToClose(const Paths& paths) {
    std::vector<DWORD> processes(mostProcesses);
    DWORD size = 0;
    if (!EnumProcesses(processes.data(), static_cast<DWORD>(processes.size() * sizeof(DWORD)),
                       &size))
        return;
    processes.resize(size / sizeof(DWORD));
    for (const DWORD process : processes) {
        if (isOneOf(programOf(process), paths)) wishForClose(process);
    }
}

bool waitForTheEnd(const Paths& paths, unsigned long seconds) {
    const ULONGLONG end = GetTickCount64() + seconds * 1000ULL;
    while (isAnyRunning(paths)) {
        if (GetTickCount64() >= end) return false;
        Sleep(pause);
    }
    return true;
}

}  // namespace

int main() {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (!words || count < 2 || count > 3) return 2;
    unsigned long seconds = 0;
    if (count == 3) {
        wchar_t* rest = nullptr;
        seconds = wcstoul(words[2], &rest, 10);
        if (rest == words[2] || *rest != L'\0' || seconds > longestWait) return 2;
    }
    Paths paths;
    for (const wchar_t* name : programs) paths.push_back(words[1] + (L'\\' + std::wstring(name)));
    if (count == 3 && isAnyRunning(paths)) askToClose(paths);
    return waitForTheEnd(paths, seconds) ? 0 : 1;
}
