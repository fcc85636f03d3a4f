// The maker's addresses, set when the build is configured.
#pragma once

namespace velmora::maker {

inline constexpr const char* scheme = VELMORA_MAKER_SCHEME;  ///< of the status page's address
inline constexpr const char* host = VELMORA_MAKER_HOST;
inline constexpr const char* supportAddress = VELMORA_SUPPORT_ADDRESS;

}  // namespace velmora::maker
