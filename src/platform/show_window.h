// How the window of a started program is shown, as ShellExecuteA and Shell take it.
#pragma once

#include <cstdint>

namespace velmora {

inline constexpr std::int32_t normalWindow = 1;  ///< SW_SHOWNORMAL

}  // namespace velmora
