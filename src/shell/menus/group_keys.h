// The keys in a group of braces, such as "|TIP:Help|Default" in "{IMG:3|TIP:Help|Default}".
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "shell/menus/caption_tokens.h"

namespace velmora {

/// Takes a key with its value, empty for a flag. False when the value isn't understood.
using TakeKey = std::function<bool(mark::Key key, std::string_view value)>;

/// Gives each of the keys in the content to `take`, from left to right; a value runs to the next
/// key or to the end. Returns what was not taken: what isn't a key's, and keys with values that
/// aren't understood.
std::string takeKeys(std::string_view content, std::span<const mark::KeyToken> keys,
                     const TakeKey& take);

}  // namespace velmora
