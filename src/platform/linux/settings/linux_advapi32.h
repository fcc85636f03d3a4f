// This host has no registry. The one key that it knows, the programs that start with the system, is
// the user's autostart folder; the values in it are its entries.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/advapi32.h"
#include "platform/linux/drives/volumes.h"

namespace velmora::linuxhost {

class LinuxAdvapi32 final : public Advapi32 {
  public:
    explicit LinuxAdvapi32(Volumes& volumes) : volumes_(volumes) {}

    std::int32_t RegOpenKeyExA(std::uint32_t hive, const std::string& subKey, std::uint32_t options,
                               std::uint32_t access, RegistryKey& key) override;
    /// A text alone: the drive path of a program, for which an entry of the value's name in lower
    /// case starts it. With an empty text the entry stays, as the value does, but starts nothing.
    /// 87 for a name that no file can have and a program on a drive that isn't there, 5 when the
    /// entry may not be written, 1013 when it can't for another reason.
    std::int32_t RegSetValueExA(RegistryKey key, const std::string& name, std::uint32_t reserved,
                                std::uint32_t type, const std::string& data,
                                std::uint32_t length) override;
    /// The drive path of the program that a value's entry starts; 2 also for an entry in another
    /// form.
    std::int32_t RegQueryValueExA(RegistryKey key, const std::string& name, std::uint32_t& type,
                                  std::string& data) override;
    std::int32_t RegCloseKey(RegistryKey key) override;
    bool GetUserNameA(std::string& buffer, std::uint32_t& size) override;

  private:
    /// 0 when the key is open with that right.
    std::int32_t check(RegistryKey key, std::uint32_t right) const;

    Volumes& volumes_;
    std::map<RegistryKey, std::uint32_t> open_;  // with the access that each was opened for
    RegistryKey lastKey_ = 0;
};

}  // namespace velmora::linuxhost
