// The reports of the mail, for a reader who wants to see one without sending it.
#pragma once

#include <string>

#include "console/words.h"
#include "notify/inventory.h"
#include "notify/message_content.h"

namespace velmora::console {

class Reports {
  public:
    /// Both must outlive it.
    Reports(Inventory& inventory, MessageContent& content)
        : inventory_(inventory), content_(content) {}

    /// The report that the words name, with CR LF as line ends. CommandError when they name none.
    std::string make(Words& words);

  private:
    Inventory& inventory_;
    MessageContent& content_;
};

}  // namespace velmora::console
