// The setup wizard: it opens with the present settings, and what the user changes in it goes to the
// main window and to the mail settings when it is applied, nowhere before.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "alerts/alerts.h"
#include "forms/forms.h"
#include "monitor/monitor.h"
#include "platform/host.h"
#include "platform/platform.h"
#include "shell/wizard/mirror.h"
#include "shell/wizard/proposals.h"
#include "shell/wizard/wizard_rules.h"
#include "shell/wizard/wizard_steps.h"

namespace velmora {

class SetupWizard {
  public:
    /// The parts of the program whose rules the settings follow.
    struct Parts {
        Alerts& alerts;
        Monitor& monitor;
    };

    /// Connects the handlers to the forms. All of the arguments must outlive it.
    SetupWizard(Forms& forms, Platform& platform, Host& host, Parts parts);
    SetupWizard(const SetupWizard&) = delete;
    SetupWizard& operator=(const SetupWizard&) = delete;

    void Form_Load();
    /// Writes the wizard's values with `settings_order::write`, unless it is closed, and reads them
    /// with `settings_order::read`; nothing with any other number. No file is touched.
    void prcSettingW(std::int16_t bSet);
    void cmdApply_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

  private:
    template <typename Kind, typename... Args>
    void mirror(Args&&... args);
    template <typename Mine, typename Theirs>
    void mirrorField(Mine& mine, Theirs& theirs);

    void connectButtons();
    void mirrorWatch(Host& host, const Regional& regional);
    void mirrorLists();
    void mirrorMail();
    template <typename Choice>
    void readMirrors(Choice isRead);
    void readUntouched();
    /// Whether encryption can be chosen, and why not.
    void readEncryptionOffer();

    Forms& forms_;
    FrmWizard& form_;
    Platform& platform_;
    Host& host_;
    Parts parts_;
    WizardSteps steps_;
    Proposals proposals_;
    WizardRules rules_;
    std::vector<std::unique_ptr<Mirror>> mirrors_;  // in the order of writing
    const Mirror* actions_ = nullptr;
};

}  // namespace velmora
