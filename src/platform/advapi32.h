// The registry's operations that the program uses.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// Handles of the hives, as the system numbers them.
namespace hive {
inline constexpr std::uint32_t classesRoot = 0x80000000;
inline constexpr std::uint32_t currentUser = 0x80000001;
inline constexpr std::uint32_t localMachine = 0x80000002;
inline constexpr std::uint32_t users = 0x80000003;
inline constexpr std::uint32_t performanceData = 0x80000004;
inline constexpr std::uint32_t currentConfig = 0x80000005;
inline constexpr std::uint32_t dynData = 0x80000006;
}  // namespace hive

/// An open key; 0 for none.
using RegistryKey = std::uint64_t;

/// Results are the system's codes: 0 for success, 2 for a missing key, 5 for denied access, 87 for
/// an invalid parameter, ...
class Advapi32 {
  public:
    virtual ~Advapi32() = default;
    /// `hive` is one of the handles above; `access` the access mask: 0x20006 to write, 0x20019 to
    /// read. A key refuses with 5 what it wasn't opened for.
    virtual std::int32_t RegOpenKeyExA(std::uint32_t hive, const std::string& subKey,
                                       std::uint32_t options, std::uint32_t access,
                                       RegistryKey& key) = 0;
    /// `type` 1 is a text; `data` in UTF-8, of which the first `length` bytes are written.
    virtual std::int32_t RegSetValueExA(RegistryKey key, const std::string& name,
                                        std::uint32_t reserved, std::uint32_t type,
                                        const std::string& data, std::uint32_t length) = 0;
    /// Gives a value's type and its data: a text (types 1 and 2) in UTF-8 without the NUL that
    /// closes it, other data byte by byte. On a failure both stay as they are; 2 for a value that
    /// isn't there.
    virtual std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name,
                                          std::uint32_t& type, std::string& data) = 0;
    virtual std::int32_t RegCloseKey(RegistryKey key) = 0;

    /// The name of the user that the program runs as, closed by a NUL, over the front of `buffer`.
    /// `size` is the buffer's size and becomes the name's length with that NUL. False when it does
    /// not fit or there is none; then `size` is the one needed or stays, and nothing is written.
    virtual bool GetUserNameA(std::string& buffer, std::uint32_t& size) = 0;
};

}  // namespace velmora
