// What the fields of the setup wizard do while the user fills them in: the rules of the main
// window and of the mail settings, on the wizard's own fields. Nothing outside the wizard changes.
#pragma once

#include <string>
#include <vector>

#include "alerts/actions/action_list_rules.h"
#include "alerts/lists/file_list.h"
#include "alerts/lists/program_list.h"
#include "forms/forms.h"
#include "monitor/minimum_space.h"
#include "monitor/monitor.h"
#include "notify/recipients.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class WizardRules {
  public:
    WizardRules(Forms& forms, Platform& platform, Host& host, FileList& files, Monitor& monitor);
    WizardRules(const WizardRules&) = delete;
    WizardRules& operator=(const WizardRules&) = delete;

    /// From here on the fields follow the rules, and each field that a rule disables says why.
    void connect();
    /// The fields take any value: for reading what already follows the rules.
    void disconnect();

  private:
    void connectWatchList();
    void connectPrograms();
    void connectFiles();
    void connectTimes();
    void browseForPath();
    void addPath(const std::string& path);
    bool tickListed(const std::string& path);
    void addProgram();
    void removeProgram();
    void addFiles();
    void showReasons();

    FrmWizard& form_;
    Platform& platform_;
    Host& host_;
    FileList& files_;
    Monitor& monitor_;
    MinimumSpace minimumSpace_;
    ActionListRules actions_;
    ProgramList programs_;
    Recipients recipients_;
    std::vector<ScopedConnection> reasons_;
};

}  // namespace velmora
