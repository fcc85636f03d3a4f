#include "shell/help_question.h"

#include "shell/maker_pages.h"

namespace velmora {

void askForHelp(const Form1& form1, Platform& platform, Host& host) {
    const BoxAnswer answer = host.MsgBox(
        {.text = "We recommend viewing an updated help section on our website.  Go to website?",
         .icon = BoxIcon::question,
         .buttons = BoxButtons::yesNo});
    if (answer == BoxAnswer::yes) {
        openMakerPage(form1, platform.shell32, maker_page::help);
    } else {
        openByShell(form1, platform.shell32, platform.app.Path + "\\velmora.html");
    }
}

}  // namespace velmora
