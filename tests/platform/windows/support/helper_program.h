// The program that lies beside the tests, for those that start one.
#pragma once

#include <windows.h>

#include <string>

#include "platform/windows/system/utf16.h"

namespace velmora::tests::windows {

/// The path of this test program.
inline std::wstring ownProgramPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

/// The path of windows_process, whose source tells what it does.
inline std::string helperProgram() {
    std::wstring path = ownProgramPath();
    path.resize(path.rfind(L'\\') + 1);
    return velmora::windows::toUtf8(path + L"windows_process.exe");
}

}  // namespace velmora::tests::windows
