// Asks the maker's status page for a newer version.
#pragma once

#include <string>

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class UpdateCheck {
  public:
    /// Connects "Check Updates". `version` as the program has it ("1.2.0").
    UpdateCheck(Forms& forms, Platform& platform, Host& host, const std::string& version);
    UpdateCheck(const UpdateCheck&) = delete;
    UpdateCheck& operator=(const UpdateCheck&) = delete;

    /// Fetches the status page and reports the outcome in a box. Errors of the fetching go to the
    /// caller.
    void prcCheckUpdate();
    /// Whether the first dial-up connection is connected.
    bool fIsRasConnected();
    /// Reports the version that a status page names, if it is newer than this one; whether it is.
    /// Error 13 where this one, with its point, is no number in the regional form.
    bool announceNewer(const std::string& page);

  private:
    void Label5_Click();

    Form1& form1_;
    Platform& platform_;
    Host& host_;
    std::string major_;
    std::string minor_;
};

}  // namespace velmora
