// The rules of the list of actions: which entries exclude each other, what an entry needs, and what
// its tick brings with it.
#pragma once

#include <string>

#include "forms/forms.h"
#include "platform/host.h"

namespace velmora {

class ActionListRules {
  public:
    /// Connects lstAct.
    ActionListRules(Forms& forms, Host& host);
    ActionListRules(const ActionListRules&) = delete;
    ActionListRules& operator=(const ActionListRules&) = delete;

    /// The tick of that entry has changed. Nothing happens when it was taken away.
    void lstAct_ItemCheck(int index);
    void lstAct_Click();

  private:
    void exclude(int other, const std::string& what);
    void requireTarget();
    void offerMailSettings();

    Forms& forms_;
    Host& host_;
};

}  // namespace velmora
