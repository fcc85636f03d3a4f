// The steps of the setup wizard, of which exactly one is shown: forward, back, and their counter.
#pragma once

#include "forms/frm_wizard.h"

namespace velmora {

class WizardSteps {
  public:
    /// Connects the buttons and the list of the steps.
    explicit WizardSteps(FrmWizard& form);
    WizardSteps(const WizardSteps&) = delete;
    WizardSteps& operator=(const WizardSteps&) = delete;

    /// Places the frames and shows the first step.
    void begin();
    /// Steps on or back by one; nothing on the last or first step.
    void cmdProgress_Click();
    void cmdReverse_Click();

  private:
    int shownStep() const;
    void show(int step);
    void placeFrames();
    void goTo(int step);

    FrmWizard& form_;
};

}  // namespace velmora
