// The body of the mail: the sections that the user ticked, as plain text.
#pragma once

#include <cstdint>
#include <string>

#include "forms/forms.h"
#include "notify/inventory.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class MessageContent {
  public:
    MessageContent(Forms& forms, Platform& platform, Host& host, Inventory& inventory)
        : forms_(forms), platform_(platform), host_(host), inventory_(inventory) {}

    /// The ticked sections in the order of the list. Yields while lists are read. Errors: 6 when
    /// the number of events doesn't fit 16 bits, those of reading the custom file.
    std::string prcNotPreContent();
    /// What a mail says: the ticked sections, then the custom message. Empty when the sections
    /// fail.
    std::string mailBody();
    /// The section of one list view: its Tag as the heading, then its rows, at most 15 alerts and
    /// 150 rows of other lists.
    std::string prcNotContent(const ListView& listView);
    /// The section of the custom text file, read field by field.
    std::string prcNotOpenCustFile();
    /// How long the system is running.
    std::string prcTimeRunning();
    /// The name of the user that the program runs as; empty when the system has none.
    std::string prcCurrentUser();

  private:
    std::string section(int index);
    std::string memory();
    std::string events();

    Forms& forms_;
    Platform& platform_;
    Host& host_;
    Inventory& inventory_;
};

}  // namespace velmora
