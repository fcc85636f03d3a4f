#include "shell/tool_bar_commands.h"

#include "base/text.h"
#include "forms/start_pause.h"
#include "shell/help_question.h"

namespace velmora {

ToolBarCommands::ToolBarCommands(Form1& form1, FrmWizard& frmWizard, Platform& platform, Host& host,
                                 WindowLayout& layout)
    : form1_(form1), frmWizard_(frmWizard), platform_(platform), host_(host), layout_(layout) {
    form1_.Toolbar1.ButtonClick.connect([this](int index) { Toolbar1_ButtonClick(index); });
}

void ToolBarCommands::Toolbar1_ButtonClick(int index) {
    // A copy: the command may change it.
    const std::string caption = form1_.Toolbar1.Buttons(index).Caption;
    if (caption == "Adv. Info") {
        form1_.cmdAdv.Click();
    } else if (caption == "Wizard Settings") {
        frmWizard_.Show();
    } else if (caption == start_pause::start || caption == start_pause::pause) {
        form1_.cmdPause.Click();
    } else if (caption == "Help") {
        askForHelp(form1_, platform_, host_);
    } else if (contains(caption, "View")) {
        layout_.toggleView();
    } else if (contains(caption, "Functions")) {
        form1_.mnuFunc.PopUp();
    }
}

}  // namespace velmora
