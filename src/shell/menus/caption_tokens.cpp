#include "shell/menus/caption_tokens.h"

#include <algorithm>

namespace velmora::mark {

const KeyToken* keyAt(std::string_view text, std::span<const KeyToken> keys,
                      std::string_view after) {
    const auto isHere = [&](const KeyToken& token) {
        if (!text.starts_with(token.spelling)) return false;
        const std::string_view rest = text.substr(token.spelling.size());
        return token.takesValue() || rest.empty() || after.find(rest.front()) != after.npos;
    };
    const auto found = std::ranges::find_if(keys, isHere);
    return found == keys.end() ? nullptr : &*found;
}

std::string_view spelling(std::span<const KeyToken> keys, Key key) {
    return std::ranges::find(keys, key, &KeyToken::key)->spelling;
}

}  // namespace velmora::mark
