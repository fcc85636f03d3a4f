// The recycle bin of the tests' own, where they have been given one: the user's own stays as it is.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/windows/files/windows_kernel32.h"
#include "platform/windows/system/utf16.h"

namespace velmora::tests::windows {

/// The folder of the bin; empty when there is none of the tests' own.
inline std::string ownBin() {
    return velmora::windows::WindowsKernel32().GetEnvironmentVariableA("VELMORA_OWN_RECYCLE_BIN");
}

/// Removes what lies in the bin. Wine's order to empty it leaves folders, which would be found by
/// the next run.
inline void clearOwnBin(const std::string& bin) {
    for (const char* part : {"\\files", "\\info"}) {
        std::error_code failure;
        std::vector<std::filesystem::path> paths;
        for (const auto& entry :
             std::filesystem::directory_iterator(velmora::windows::toUtf16(bin + part), failure))
            paths.push_back(entry.path());
        for (const auto& path : paths) std::filesystem::remove_all(path, failure);
    }
}

}  // namespace velmora::tests::windows
