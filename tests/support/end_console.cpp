// Tells a running console program of its end, as Windows does it:
//   end_console NAME close     the console's window is closed
//   end_console NAME logoff    somebody has logged off
// NAME is that of the program's file; only one such program may run. The status is 0 when the
// program has ended by itself before it was done with `close`, or goes on after `logoff`, else 1.
#include <windows.h>
// After the one above, which it needs.
#include <tlhelp32.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

constexpr DWORD longestWait = 40'000;

std::vector<DWORD> processesOf(const std::string& name) {
    std::vector<DWORD> found;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    const std::wstring wanted(name.begin(), name.end());
    for (BOOL any = Process32FirstW(snapshot, &entry); any;
         any = Process32NextW(snapshot, &entry)) {
        if (wanted == entry.szExeFile) found.push_back(entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return found;
}

// What the system starts in a console program to call its handlers lies at one place in all of
// them.
LPTHREAD_START_ROUTINE callerOfHandlers() {
    const HMODULE module = GetModuleHandleW(L"kernelbase.dll");
    return reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(module, "CtrlRoutine")));
}

// Whether the program has ended before its thread was done. One that ends takes the status of its
// program, which is 0 when it ends well; one that is done has another, under Wine.
bool hasEndedFirst(HANDLE process, HANDLE thread) {
    DWORD status = 1;
    GetExitCodeThread(thread, &status);
    return status == 0 && WaitForSingleObject(process, longestWait) == WAIT_OBJECT_0;
}

bool tell(HANDLE process, DWORD event) {
    const LPTHREAD_START_ROUTINE routine = callerOfHandlers();
    if (!routine) return false;
    const HANDLE thread = CreateRemoteThread(
        process, nullptr, 0, routine, reinterpret_cast<void*>(std::uintptr_t{event}), 0, nullptr);
    if (!thread || WaitForSingleObject(thread, longestWait) != WAIT_OBJECT_0) return false;
    if (event == CTRL_LOGOFF_EVENT) return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
    if (hasEndedFirst(process, thread)) return true;
    // As the system does it.
    TerminateProcess(process, 3);
    return false;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 1;
    const std::string what = arguments[2];
    const std::vector<DWORD> processes = processesOf(arguments[1]);
    if (processes.size() != 1 || (what != "close" && what != "logoff")) return 1;
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, processes.front());
    return process && tell(process, what == "close" ? CTRL_CLOSE_EVENT : CTRL_LOGOFF_EVENT) ? 0 : 1;
}
