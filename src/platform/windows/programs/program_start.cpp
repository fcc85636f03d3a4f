#include "platform/windows/programs/program_start.h"

#include <windows.h>

#include "base/runtime_error.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/unique_handle.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

void startProgram(const std::string& commandLine, std::int32_t windowState) {
    // The system would read it up to its first NUL.
    const bool isWhole = !commandLine.empty() && commandLine.find('\0') == std::string::npos;
    if (!isWhole) throw RuntimeError(error::invalidCall);
    std::wstring line = toUtf16(commandLine);  // which the call may write into
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = static_cast<WORD>(windowState);
    PROCESS_INFORMATION started{};
    // Not with this program's ways to treat drives without a medium.
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                       nullptr, nullptr, &start, &started)) {
        const UniqueHandle thread(started.hThread);
        const UniqueHandle process(started.hProcess);
        return;
    }
    throw RuntimeError(errorOfStarting(GetLastError()));
}

}  // namespace velmora::windows
