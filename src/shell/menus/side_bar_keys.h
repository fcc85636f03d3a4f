// The keys of a side bar in the caption language.
#pragma once

#include <string>
#include <string_view>

#include "shell/menus/caption_tokens.h"
#include "shell/menus/side_bar.h"

namespace velmora {

/// Puts the value of a key into the side bar. False when the value isn't understood; the bar stays
/// as it is then.
bool takeSideBarKey(SideBar& bar, mark::Key key, std::string_view value);

/// The side bar as a group of the caption language; what is as it would be without a key is left
/// out.
std::string writeSideBar(const SideBar& bar);

}  // namespace velmora
