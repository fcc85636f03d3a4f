#include "shell/tool_bar_commands.h"

#include "base/text.h"
#include "shell/maker_pages.h"

namespace velmora {

ToolBarCommands::ToolBarCommands(Forms& forms, Platform& platform, Host& host, WindowLayout& layout)
    : forms_(forms), platform_(platform), host_(host), layout_(layout) {
    forms_.form1.Toolbar1.ButtonClick.connect([this](int index) { Toolbar1_ButtonClick(index); });
}

void ToolBarCommands::Toolbar1_ButtonClick(int index) {
    Form1& form1 = forms_.form1;
    // A copy: the command may change it.
    const std::string caption = form1.Toolbar1.Buttons(index).Caption;
    if (caption == "Adv. Info") {
        form1.cmdAdv.Click();
    } else if (caption == "Wizard Settings") {
        forms_.frmWizard.Show();
    } else if (caption == "Start" || caption == "Pause") {
        form1.cmdPause.Click();
    } else if (caption == "Help") {
        askForHelp();
    } else if (contains(caption, "View")) {
        layout_.toggleView();
    } else if (contains(caption, "Functions")) {
        form1.mnuFunc.PopUp();
    }
}

void ToolBarCommands::askForHelp() {
    const BoxAnswer answer = host_.MsgBox(
        {.text = "We recommend viewing an updated help section on our website.  Go to website?",
         .icon = BoxIcon::question,
         .buttons = BoxButtons::yesNo});
    if (answer == BoxAnswer::yes) {
        openMakerPage(forms_, platform_.shell32, maker_page::help);
    } else {
        openByShell(forms_, platform_.shell32, platform_.app.Path + "\\velmora.html");
    }
}

}  // namespace velmora
