#include "platform/linux/settings/linux_advapi32.h"

#include <algorithm>

#include "base/text.h"
#include "platform/linux/entries/replace_file.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/programs/program_file.h"
#include "platform/linux/settings/desktop_entry.h"
#include "platform/linux/system/read_whole.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/system/user_name.h"

namespace velmora::linuxhost {

namespace {

constexpr std::int32_t success = 0;
constexpr std::int32_t noSuchKey = code::fileNotFound;
constexpr std::int32_t accessDenied = code::accessDenied;
constexpr std::int32_t invalidHandle = code::invalidHandle;
constexpr std::int32_t invalidParameter = code::invalidParameter;
constexpr std::int32_t canNotWrite = 1013;

constexpr std::uint32_t textType = 1;

constexpr std::uint32_t queryValueRight = 1;
constexpr std::uint32_t setValueRight = 2;

bool isFileName(const std::string& name) {
    return !name.empty() && name.front() != '.' && name.find('/') == std::string::npos &&
           name.find('\0') == std::string::npos;
}

std::string entryPath(const std::string& name) {
    return configFolder() + "/autostart/" + lowerCase(name) + ".desktop";
}

// The registry reports every failure to write but denied access as one.
std::int32_t writingCodeOf(int failure) {
    if (failure == 0) return success;
    return codeWithoutLoops(failure) == code::accessDenied ? accessDenied : canNotWrite;
}

}  // namespace

std::int32_t LinuxAdvapi32::RegOpenKeyExA(std::uint32_t hive, const std::string& subKey,
                                          std::uint32_t /*options*/, std::uint32_t access,
                                          RegistryKey& key) {
    constexpr const char* runKey = R"(software\microsoft\windows\currentversion\run)";
    if (hive != hive::localMachine || lowerCase(subKey) != runKey) return noSuchKey;
    key = ++lastKey_;
    open_[key] = access;
    return success;
}

std::int32_t LinuxAdvapi32::RegSetValueExA(RegistryKey key, const std::string& name,
                                           std::uint32_t reserved, std::uint32_t type,
                                           const std::string& data, std::uint32_t length) {
    if (const std::int32_t failure = check(key, setValueRight); failure != 0) return failure;
    if (reserved != 0 || type != textType || !isFileName(name)) return invalidParameter;
    std::string program = data.substr(0, length);
    program.resize(std::min(program.find('\0'), program.size()));
    if (!program.empty()) {
        program = volumes_.hostPathOf(program);
        if (program.empty()) return invalidParameter;
        program = programFile(program);
    }
    return writingCodeOf(replaceFile(entryPath(name), autostartEntry(name, program), 0644));
}

std::int32_t LinuxAdvapi32::RegQueryValueExA(RegistryKey key, const std::string& name,
                                             std::uint32_t& type, std::string& data) {
    if (const std::int32_t failure = check(key, queryValueRight); failure != 0) return failure;
    if (!isFileName(name)) return noSuchKey;
    const auto program = autostartProgram(contentOfFile(entryPath(name)));
    if (!program) return noSuchKey;
    type = textType;
    data = program->empty() ? "" : drivePathOf(*program, volumes_.roots());
    return success;
}

std::int32_t LinuxAdvapi32::check(RegistryKey key, std::uint32_t right) const {
    const auto opened = open_.find(key);
    if (opened == open_.end()) return invalidHandle;
    return (opened->second & right) != 0 ? success : accessDenied;
}

std::int32_t LinuxAdvapi32::RegCloseKey(RegistryKey key) {
    return open_.erase(key) > 0 ? success : invalidHandle;
}

bool LinuxAdvapi32::GetUserNameA(std::string& buffer, std::uint32_t& size) {
    const std::string user = userName();
    if (user.empty()) return false;
    const std::string name = user + '\0';
    const bool fits = name.size() <= size;
    size = static_cast<std::uint32_t>(name.size());
    if (fits) buffer.replace(0, name.size(), name);
    return fits;
}

}  // namespace velmora::linuxhost
