// The reports of the program, for a reader who wants to see one without a mail or a window.
#pragma once

#include <string>

#include "console/report.h"
#include "console/words.h"
#include "forms/form1.h"
#include "notify/inventory.h"
#include "notify/message_content.h"
#include "platform/platform.h"

namespace velmora::console {

class Reports {
  public:
    /// All must outlive it.
    Reports(Inventory& inventory, MessageContent& content, Platform& platform, const Forms& forms)
        : inventory_(inventory),
          content_(content),
          platform_(platform),
          forms_(forms),
          form1_(forms.form1) {}

    /// The report that the words name. CommandError when they name none, or it can't be made.
    Report make(Words& words);
    /// The watch on one screen: its state, the next check, and each row with its figures.
    Report status();

  private:
    Report ntEvents(Words& words);
    Report driveAttributes(const std::string& drive);
    Report bootSector(const std::string& drive);
    Report chart();
    Report watch();

    Inventory& inventory_;
    MessageContent& content_;
    Platform& platform_;
    const Forms& forms_;
    const Form1& form1_;
};

}  // namespace velmora::console
