// The handlers of the window of the mail settings. Its controls are the settings: nothing is saved
// or undone here.
#pragma once

#include "forms/forms.h"
#include "notify/inventory.h"
#include "notify/recipients.h"
#include "platform/host.h"

namespace velmora {

class NotifyWindow {
  public:
    /// Connects its handlers and shows the first page.
    NotifyWindow(Forms& forms, Host& host, Inventory& inventory);
    NotifyWindow(const NotifyWindow&) = delete;
    NotifyWindow& operator=(const NotifyWindow&) = delete;

    /// From now on ticking the section of the custom file asks for one. Not before the settings
    /// are read: a start must not wait for an answer.
    void afterLoad();

  private:
    void connectButtons();
    void Command1_Click();
    void cmdApply_Click();
    void cmdNotOpenFile_Click();
    void chkProxy_Click();
    void TabStrip1_Click();
    void lstNotContent_ItemCheck(int index);
    bool lacksAccountSetting();
    /// Sets the timers of the watch running again.
    void runMonitoringTimers();

    FrmNotify& form_;
    Form1& form1_;
    Host& host_;
    Inventory& inventory_;
    Recipients recipients_;
};

}  // namespace velmora
