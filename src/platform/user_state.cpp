#include "platform/user_state.h"

#include <algorithm>

namespace velmora {

bool isUserStateName(std::string_view name) {
    constexpr std::size_t longest = 64;
    const auto isPlain = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); };
    const auto isAllowed = [&](char c) { return isPlain(c) || c == '-' || c == '_' || c == '.'; };
    return !name.empty() && name.size() <= longest && isPlain(name.front()) && name.back() != '.' &&
           std::all_of(name.begin(), name.end(), isAllowed);
}

}  // namespace velmora
