// The rules of a list of actions: which entries exclude each other, what an entry requires, and
// what else its tick changes. The same hold in the main window and in the setup wizard.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "forms/form1.h"
#include "forms/frm_notify.h"
#include "platform/host.h"

namespace velmora {

/// The fields of one form that the rules are about.
struct ActionListFields {
    ListBox& lstAct;
    TextBox& txtDrive;
    ListView& list;  ///< the watched rows

    static ActionListFields of(Form1& form1) {
        return {.lstAct = form1.lstAct, .txtDrive = form1.txtDrive, .list = form1.ListView1};
    }
};

class ActionListRules {
  public:
    /// A changed tick: entry and whether it is ticked.
    using Ticks = std::vector<std::pair<int, bool>>;

    /// The rules hold once they are connected.
    ActionListRules(const ActionListFields& fields, FrmNotify& frmNotify, Host& host)
        : fields_(fields), frmNotify_(frmNotify), host_(host) {}
    /// Connected already.
    ActionListRules(Form1& form1, FrmNotify& frmNotify, Host& host)
        : ActionListRules(ActionListFields::of(form1), frmNotify, host) {
        connect();
    }
    ActionListRules(const ActionListRules&) = delete;
    ActionListRules& operator=(const ActionListRules&) = delete;

    void connect();
    /// Any ticks are taken then, and nothing is asked or told.
    void disconnect() { connections_.clear(); }

    /// The tick of that entry has changed. Removing a tick has no further effect.
    void lstAct_ItemCheck(int index);
    void lstAct_Click();
    /// Takes over ticks that were made in another list under these rules, each as a click. Those
    /// that are removed go first, so that an exclusion has nothing to tell; what the user was asked
    /// there isn't asked again.
    void take(const Ticks& ticks);

  private:
    void exclude(int other, const std::string& what);
    void requireTarget();
    void offerMailSettings();

    ActionListFields fields_;
    FrmNotify& frmNotify_;
    Host& host_;
    std::vector<ScopedConnection> connections_;
    bool isAsked_ = false;  // whether to see the mail settings
};

}  // namespace velmora
