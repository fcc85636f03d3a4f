#include "persist/registry.h"

#include <array>
#include <utility>

namespace velmora {

namespace {

constexpr std::uint32_t writeAccess = 0x20006;
constexpr std::uint32_t textType = 1;

constexpr std::array<std::pair<const char*, std::uint32_t>, 7> hives{{
    {"HKEY_CLASSES_ROOT", hive::classesRoot},
    {"HKEY_CURRENT_USER", hive::currentUser},
    {"HKEY_LOCAL_MACHINE", hive::localMachine},
    {"HKEY_USERS", hive::users},
    {"HKEY_PERFORMANCE_DATA", hive::performanceData},
    {"HKEY_CURRENT_CONFIG", hive::currentConfig},
    {"HKEY_DYN_DATA", hive::dynData},
}};

}  // namespace

std::uint32_t fRegRootKey(const std::string& name) {
    for (const auto& [known, handle] : hives) {
        if (name == known) return handle;
    }
    return 0;
}

std::string fRegErrorText(std::int32_t code) {
    switch (code) {
        case 2:
        case 1010:
            return "Bad Key Name";
        case 4:
        case 1012:
            return "Can't Read Key";
        case 5:
            return "Access to this key is denied";
        case 8:
        case 14:
            return "Out of memory";
        case 87:
            return "Invalid Parameter";
        case 234:
            return "There is more data than the buffer has been allocated to hold.";
        case 1009:
        case 1015:
            return "The Registry Database is corrupt!";
        case 1011:
            return "Can't Open Key";
        case 1013:
            return "Can't Write Key";
        default:
            return "Undefined Error Code:  " + std::to_string(code);
    }
}

void Registry::prcParseKey(std::string& path, std::uint32_t& hive) {
    if (!path.starts_with("HKEY_") || path.ends_with("\\")) {
        host_.MsgBox({.text = "Incorrect Format:\n\n" + path, .icon = BoxIcon::critical});
        return;
    }
    const std::size_t slash = path.find('\\');
    hive = fRegRootKey(path.substr(0, slash));
    path = slash == std::string::npos ? "" : path.substr(slash + 1);
}

void Registry::prcRegSetValue(const std::string& key, const std::string& name,
                              const std::string& data) {
    std::string subKey = key;
    std::uint32_t hive = 0;
    prcParseKey(subKey, hive);
    if (hive == 0) return;
    RegistryKey handle = 0;
    const std::int32_t opened = advapi32_.RegOpenKeyExA(hive, subKey, 0, writeAccess, handle);
    if (opened != 0) return report(opened);
    const auto length = static_cast<std::uint32_t>(data.size());
    const std::int32_t written = advapi32_.RegSetValueExA(handle, name, 0, textType, data, length);
    if (written != 0) report(written);
    advapi32_.RegCloseKey(handle);
}

void Registry::report(std::int32_t code) {
    host_.MsgBox({.text = fRegErrorText(code), .icon = BoxIcon::critical});
}

}  // namespace velmora
