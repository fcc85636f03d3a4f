// The questions of the setup wizard whose answers propose values.
#pragma once

#include <string>

#include "forms/frm_wizard.h"

namespace velmora {

/// A value that an answer puts into a field, with its reason beside it.
class Proposal {
  public:
    Proposal(TextBox& field, Label& reason) : field_(field), reason_(reason) {}

    void make(const std::string& value, const std::string& reason);
    /// What was in the field before the proposal comes back; nothing when none is made.
    void withdraw();

  private:
    TextBox& field_;
    Label& reason_;
    bool isMade_ = false;
    std::string before_;
};

class Proposals {
  public:
    /// Connects the answers.
    explicit Proposals(FrmWizard& form);
    Proposals(const Proposals&) = delete;
    Proposals& operator=(const Proposals&) = delete;

    /// Takes all answers back.
    void begin();

  private:
    void answerKinds();
    void answerSpeed();

    FrmWizard& form_;
    Proposal types_;
    Proposal interval_;
};

/// The file types that are proposed as those that actions may use, by the kinds of files that are
/// used often: ".tmp|.bak". Documents and databases never are.
std::string proposedTypes(bool usesMedia, bool usesInternet);

/// The interval between checks that is proposed for an entry of cboSpeed, in seconds. Error 9 for
/// an index outside its entries.
int proposedInterval(int speed);

}  // namespace velmora
