#include "platform/linux/linux_kernel32.h"

#include <cstdlib>
#include <string_view>

#include "platform/linux/path_mapping.h"

namespace velmora::linuxhost {

std::uint32_t LinuxKernel32::GetLogicalDriveStringsA(std::uint32_t length, std::string& buffer) {
    std::string roots;
    for (const char letter : volumes_.letters()) {
        roots += letter;
        roots += ":\\";
        roots += '\0';
    }
    const auto used = static_cast<std::uint32_t>(roots.size());
    if (used >= length) return used + 1;
    roots += '\0';
    buffer.replace(0, roots.size(), roots);
    return used;
}

std::string LinuxKernel32::GetWindowsDirectoryA() {
    std::string folder = drivePathOf("/usr/share/sounds", volumes_.roots());
    if (folder.ends_with('\\')) folder.pop_back();
    return folder;
}

std::string LinuxKernel32::GetEnvironmentVariableA(const std::string& name) {
    // The system's look-up would take the front of a value for a part of the name.
    if (name.find_first_of(std::string_view("=\0", 2)) != std::string::npos) return {};
    const char* text = std::getenv(name.c_str());
    return text ? text : "";
}

}  // namespace velmora::linuxhost
