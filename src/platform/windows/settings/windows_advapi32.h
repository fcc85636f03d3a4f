// The registry's operations: here they are just that, with texts in UTF-8.
#pragma once

#include <cstdint>
#include <string>

#include "platform/advapi32.h"

namespace velmora::windows {

class WindowsAdvapi32 final : public Advapi32 {
  public:
    std::int32_t RegOpenKeyExA(std::uint32_t hive, const std::string& subKey, std::uint32_t options,
                               std::uint32_t access, RegistryKey& key) override;
    /// A text is written with the NUL at its end that readers expect.
    std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t reserved,
                                std::uint32_t type, const std::string& data,
                                std::uint32_t length) override;
    std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                  std::string& data) override;
    std::int32_t RegCloseKey(RegistryKey key) override;
    bool GetUserNameA(std::string& buffer, std::uint32_t& size) override;
};

}  // namespace velmora::windows
