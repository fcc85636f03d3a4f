// By what name a program is told that it should close.
#pragma once

#include <windows.h>

#include <string>

namespace velmora::windows {

/// The event of the process with that number, in whatever session it runs. It can be set by the
/// process's user, administrators and the system.
inline std::wstring closeWishName(DWORD process) {
    return L"Global\\Velmora-close-" + std::to_wstring(process);
}

}  // namespace velmora::windows
