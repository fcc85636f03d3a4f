#include "notify/notify_window.h"

#include <algorithm>

#include "forms/form_numbers.h"
#include "notify/report_text.h"

namespace velmora {

namespace {

constexpr int pageLeft = 600;
constexpr int pageHeight = 5000;

constexpr const char* textFiles = "*.txt,*.xml,*.html,*.htm|*.txt;*.xml;*.html;*.htm|*.*|*";

}  // namespace

NotifyWindow::NotifyWindow(Forms& forms, Host& host, Inventory& inventory)
    : form_(forms.frmNotify),
      form1_(forms.form1),
      host_(host),
      inventory_(inventory),
      recipients_(
          form_.cboNotEmail,
          {.cmdAdd = form_.cmdAdd, .cmdRemove = form_.cmdRemove, .cmdClear = form_.cmdClear}) {
    connectButtons();
    form_.TabStrip1.Click.connect([this] { TabStrip1_Click(); });
    form_.chkProxy.Click.connect([this] { chkProxy_Click(); });
    TabStrip1_Click();
}

void NotifyWindow::afterLoad() {
    form_.lstNotContent.ItemCheck.connect([this](int index) { lstNotContent_ItemCheck(index); });
}

void NotifyWindow::connectButtons() {
    form_.Command1.Click.connect([this] { Command1_Click(); });
    form_.cmdApply.Click.connect([this] { cmdApply_Click(); });
    form_.cmdOK.Click.connect([this] {
        form_.cmdApply.Click();
        form_.Hide();
    });
    form_.cmdCancel.Click.connect([this] { form_.Hide(); });
    form_.Command2.Click.connect([this] { form_.Hide(); });
    form_.cmdNotOpenFile.Click.connect([this] { cmdNotOpenFile_Click(); });
    // Its text goes nowhere.
    form_.cmdNT.Click.connect([this] { inventory_.prcWMI_NetStat(); });
}

void NotifyWindow::Command1_Click() {
    runMonitoringTimers();
    const BoxAnswer answer = host_.MsgBox(
        {.text = "Are you sure you want to send notifications now?", .buttons = BoxButtons::yesNo});
    runMonitoringTimers();
    if (answer == BoxAnswer::yes) form_.SendEmail();
}

void NotifyWindow::cmdApply_Click() {
    if (!lacksAccountSetting()) return;
    const std::string text = "You have not fill in all your email account settings" + endLine() +
                             "Mail Server, UserName, Password, To: Email(s), etc." + endLine() +
                             "Do you wish to leave it like it is";
    const BoxAnswer answer = host_.MsgBox({.text = text, .buttons = BoxButtons::yesNo});
    if (answer == BoxAnswer::no) runMonitoringTimers();
}

// The recipients are named in the question and not looked at.
bool NotifyWindow::lacksAccountSetting() {
    const TextBox* const texts[] = {&form_.txtMailPort, &form_.txtMailServer,
                                    &form_.txtMailFromDisplayName, &form_.txtUser, &form_.txtPass};
    return form_.lstNotContent.ListCount() == 0 ||
           std::any_of(std::begin(texts), std::end(texts),
                       [](const TextBox* box) { return box->empty(); });
}

void NotifyWindow::cmdNotOpenFile_Click() {
    const std::string chosen = host_.OpenFileDialog({.InitDir = "C:", .Filter = textFiles});
    if (!chosen.empty()) form_.txtCustomContent.setText(chosen);
}

void NotifyWindow::chkProxy_Click() {
    form_.txtProxy.setEnabled(form_.chkProxy.ticked());
    form_.txtPort.setEnabled(form_.chkProxy.ticked());
}

void NotifyWindow::TabStrip1_Click() {
    for (Frame& page : form_.frE) page.setVisible(false);
    const Bounds& strip = form_.TabStrip1.bounds();
    Frame& page = form_.frE[static_cast<std::size_t>(form_.TabStrip1.SelectedItem() - 1)];
    page.setBounds({pageLeft, strip.Top, strip.Width, pageHeight});
    page.setVisible(true);
}

void NotifyWindow::lstNotContent_ItemCheck(int index) {
    if (index != mail_section::customFile || !form_.lstNotContent.Selected(index)) return;
    if (form_.txtCustomContent.empty()) {
        runMonitoringTimers();
        const BoxAnswer answer =
            host_.MsgBox({.text = "A text base file must be specified.  Select a file now?",
                          .buttons = BoxButtons::yesNo});
        runMonitoringTimers();
        if (answer == BoxAnswer::yes) form_.cmdNotOpenFile.Click();
    }
    if (form_.txtCustomContent.empty()) form_.lstNotContent.setSelected(index, false);
}

void NotifyWindow::runMonitoringTimers() {
    for (Timer* timer : {&form1_.Timer1, &form1_.tmrStat, &form1_.TimerCust}) {
        timer->setEnabled(true);
    }
}

}  // namespace velmora
