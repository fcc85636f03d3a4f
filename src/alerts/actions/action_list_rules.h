// The rules of the list of actions: which entries exclude each other, what an entry requires, and
// what else its tick changes.
#pragma once

#include <string>

#include "forms/form1.h"
#include "forms/frm_notify.h"
#include "platform/host.h"

namespace velmora {

class ActionListRules {
  public:
    /// Connects lstAct.
    ActionListRules(Form1& form1, FrmNotify& frmNotify, Host& host);
    ActionListRules(const ActionListRules&) = delete;
    ActionListRules& operator=(const ActionListRules&) = delete;

    /// The tick of that entry has changed. Removing a tick has no further effect.
    void lstAct_ItemCheck(int index);
    void lstAct_Click();

  private:
    void exclude(int other, const std::string& what);
    void requireTarget();
    void offerMailSettings();

    Form1& form1_;
    FrmNotify& frmNotify_;
    Host& host_;
};

}  // namespace velmora
