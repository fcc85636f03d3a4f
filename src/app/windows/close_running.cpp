// Asks the programs of an installed folder to close, for the installer:
//   velmora-close FOLDER [SECONDS]
// Windows of these programs get the wish to close, as if their user had closed them: the program
// asks its own question. A console belongs to whoever sits before it. Nothing is ended by force.
// SECONDS is how long to wait, 0 to 3600; without it nothing is asked. The status is 0 when none of
// the programs runs (any more), 1 when one does, 2 for wrong arguments.
#include <windows.h>
// After the one above, which it needs.
#include <shellapi.h>

#include <string>
#include <vector>

namespace {

constexpr const wchar_t* programs[] = {L"velmora.exe", L"velmora-console.exe"};
constexpr DWORD pause = 200;
constexpr unsigned long longestWait = 3600;

// The file of a running program can't be opened for writing, in whatever session it runs.
bool isRunning(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}

bool isAnyRunning(const std::vector<std::wstring>& paths) {
    for (const std::wstring& path : paths) {
        if (isRunning(path)) return true;
    }
    return false;
}

bool isSameFile(const std::wstring& one, const std::wstring& other) {
    const auto open = [](const std::wstring& path) {
        return CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                           nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    const HANDLE first = open(one);
    const HANDLE second = open(other);
    BY_HANDLE_FILE_INFORMATION a{};
    BY_HANDLE_FILE_INFORMATION b{};
    // A path can be written in several ways.
    const bool areKnown =
        GetFileInformationByHandle(first, &a) && GetFileInformationByHandle(second, &b);
    if (first != INVALID_HANDLE_VALUE) CloseHandle(first);
    if (second != INVALID_HANDLE_VALUE) CloseHandle(second);
    return areKnown && a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
           a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
}

std::wstring programOf(HWND window) {
    DWORD number = 0;
    GetWindowThreadProcessId(window, &number);
    const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number);
    if (!process) return {};
    std::wstring path(32768, L'\0');
    DWORD length = static_cast<DWORD>(path.size());
    if (!QueryFullProcessImageNameW(process, 0, path.data(), &length)) length = 0;
    CloseHandle(process);
    path.resize(length);
    return path;
}

// The main window, shown or hidden: others belong to it, or have other titles.
bool isMainWindow(HWND window) {
    wchar_t title[16] = L"";
    GetWindowTextW(window, title, 16);
    return GetWindow(window, GW_OWNER) == nullptr && std::wstring(title).starts_with(L"Velmora");
}

BOOL CALLBACK askToClose(HWND window, LPARAM paths) {
    if (!isMainWindow(window)) return TRUE;
    const std::wstring program = programOf(window);
    for (const std::wstring& path : *reinterpret_cast<const std::vector<std::wstring>*>(paths)) {
        if (program.empty() || !isSameFile(program, path)) continue;
        // This program was started by the user, so the question may come to the front.
        AllowSetForegroundWindow(ASFW_ANY);
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    return TRUE;
}

bool waitForTheEnd(const std::vector<std::wstring>& paths, unsigned long seconds) {
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
    std::vector<std::wstring> paths;
    for (const wchar_t* name : programs) paths.push_back(words[1] + (L'\\' + std::wstring(name)));
    if (count == 3 && isAnyRunning(paths))
        EnumWindows(askToClose, reinterpret_cast<LPARAM>(&paths));
    return waitForTheEnd(paths, seconds) ? 0 : 1;
}
