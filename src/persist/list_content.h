// The entries of a list as one run of text for the settings file.
#pragma once

#include <string>

#include "controls/list_box.h"
#include "controls/list_view.h"
#include "platform/host.h"

namespace velmora {

enum class ListContent { index = 1, text = 2 };

/// Key, "=", value and CR LF for every entry; the key is the control's tag, the value the entry's
/// index or text. Selected rows of a list view (from 1), selected entries of a list box (from 0),
/// every entry of a combo box (from 0). Empty for an empty list. Yields after each entry, chosen
/// or not; one that is gone after a yield is left out.
std::string prcLstContent(const ListView& list, ListContent mode, Host& host);
std::string prcLstContent(const ListBox& list, ListContent mode, Host& host);
std::string prcLstContent(const ComboBox& list, ListContent mode, Host& host);

}  // namespace velmora
