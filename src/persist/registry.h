// Writing a text value into the registry by a key's full path.
#pragma once

#include <cstdint>
#include <string>

#include "platform/advapi32.h"
#include "platform/host.h"

namespace velmora {

/// The handle of a hive by its name ("HKEY_LOCAL_MACHINE"); 0 for an unknown one.
std::uint32_t fRegRootKey(const std::string& name);

/// What a code of the registry's operations means, in words.
std::string fRegErrorText(std::int32_t code);

class Registry {
  public:
    Registry(Advapi32& advapi32, Host& host) : advapi32_(advapi32), host_(host) {}

    /// Splits a full key path into the hive's handle and the key below it, which replaces `path`.
    /// A path that doesn't begin with "HKEY_" or ends in a back-slash gives a box and leaves both
    /// as they are.
    void prcParseKey(std::string& path, std::uint32_t& hive);

    /// Writes a text value. Failures give a box with their text; nothing is thrown.
    void prcRegSetValue(const std::string& key, const std::string& name, const std::string& data);

  private:
    void report(std::int32_t code);

    Advapi32& advapi32_;
    Host& host_;
};

}  // namespace velmora
