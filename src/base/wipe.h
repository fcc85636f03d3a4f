// Erasing a secret from memory.
#pragma once

#include <string>

namespace velmora {

/// Overwrites all that the text's storage can hold, then empties the text; the storage stays. What
/// an earlier, smaller storage held is gone only if that was wiped as well, so wipe before a text
/// is given another value.
void wipe(std::string& text);

}  // namespace velmora
