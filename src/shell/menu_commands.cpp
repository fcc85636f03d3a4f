#include "shell/menu_commands.h"

#include "alerts/journal/alert_time.h"
#include "base/resume_next.h"
#include "base/runtime_error.h"
#include "forms/form_numbers.h"
#include "platform/show_window.h"
#include "rows/watch_row.h"
#include "shell/maker_pages.h"
#include "shell/program_lock.h"
#include "shell/window_layout.h"

namespace velmora {

namespace {
constexpr std::int16_t addIcon = 1;
}  // namespace

MenuCommands::MenuCommands(Forms& forms, Platform& platform, Host& host, MenuParts parts)
    : forms_(forms), form1_(forms.form1), platform_(platform), host_(host), parts_(parts) {
    connectTrayMenu();
    connectListMenu();
    connectFunctionsMenu();
}

void MenuCommands::connectTrayMenu() {
    form1_.mnuLock.Click.connect([this] { mnuLock_Click(); });
    form1_.mnuHide.Click.connect([this] { mnuHide_Click(); });
    form1_.mnuContent.Click.connect([this] { mnuContent_Click(); });
    form1_.mnuPWP.Click.connect([this] { mnuPWP_Click(); });
    form1_.mnuAbout.Click.connect([this] { parts_.aboutBox.showAbout(); });
}

void MenuCommands::connectListMenu() {
    form1_.mnuExplore.Click.connect([this] { mnuExplore_Click(); });
    form1_.mnuParam.Click.connect([this] { mnuParam_Click(); });
    form1_.mnuRemove.Click.connect([this] { form1_.cmdLVRemove.Click(); });
    form1_.mnuInfo.Click.connect([this] { mnuInfo_Click(); });
}

void MenuCommands::connectFunctionsMenu() {
    form1_.mnuProgSet.Click.connect([this] { mnuProgSet_Click(); });
    form1_.mnuRecyc.Click.connect([this] { parts_.recycleBin.RecycleBin(); });
    form1_.mnuDefrag.Click.connect([this] { mnuDefrag_Click(); });
    form1_.mnuEmptyRecyc.Click.connect([this] { mnuEmptyRecyc_Click(); });
    form1_.mnuNotif.Click.connect([this] { mnuNotif_Click(); });
    form1_.Label5[program_button::getUpdates].Click.connect([this] { mnuPWP_Click(); });
    form1_.mnuCleaner.Click.connect([this] { parts_.systemActions.prcCleanMan("", ""); });
    form1_.mnuToSystray.Click.connect([this] { mnuToSystray_Click(); });
}

void MenuCommands::mnuLock_Click() {
    prcSrvFrm(forms_);
    forms_.frmLock.Text1.setText("");
    forms_.frmLock.Show();
}

void MenuCommands::mnuHide_Click() {
    form1_.mnuHide.setChecked(!form1_.mnuHide.Checked());
    if (form1_.mnuHide.Checked()) {
        form1_.Hide();
    } else {
        form1_.Show();
    }
}

void MenuCommands::mnuContent_Click() {
    openMakerPage(form1_, platform_.shell32, maker_page::help);
}

void MenuCommands::mnuNotif_Click() {
    if (forms_.frmNotify.Visible()) {
        forms_.frmNotify.Hide();
    } else {
        forms_.frmNotify.Show();
    }
}

void MenuCommands::mnuPWP_Click() {
    openMakerPage(form1_, platform_.shell32, maker_page::program);
}

void MenuCommands::mnuExplore_Click() {
    const ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (!row.selected()) continue;
        platform_.shell32.ShellExecuteA(form1_.Name(), "explore", row.path(), "", "", normalWindow);
    }
}

void MenuCommands::mnuParam_Click() {
    ListItem* row = form1_.ListView1.SelectedItem();
    if (row == nullptr) return;
    parts_.driveMeter.prcShowfrmIndDri(ConstWatchRow(*row).path());
    parts_.driveMeter.prcSrvMeter(*row);
}

void MenuCommands::mnuInfo_Click() {
    const ListItem* row = form1_.ListView1.SelectedItem();
    if (row == nullptr) return;
    parts_.systemActions.prcShowProperties(ConstWatchRow(*row).path(), form1_.Name());
}

void MenuCommands::mnuProgSet_Click() {
    if (form1_.Height() < form1_size::fullHeight) {
        form1_.Toolbar1.ButtonClick(tool::view);
    } else {
        host_.MsgBox({.text = "The program settings and options are already shown.",
                      .icon = BoxIcon::information});
    }
}

void MenuCommands::mnuDefrag_Click() {
    openByShell(form1_, platform_.shell32,
                platform_.kernel32.GetEnvironmentVariableA("windir") + "\\system32\\dfrg.msc");
}

void MenuCommands::mnuEmptyRecyc_Click() {
    try {
        parts_.systemActions.MakeRecycleBinEmpty("", 0, 0, 0);
        raise("User cleared recycle bin");
    } catch (const std::exception&) {
        // The words end in a blank of their own.
        const std::string text = "Error on Command  " + currentRuntimeError().description();
        resumeNext([&] { raise(text); });
    }
}

void MenuCommands::raise(const std::string& text) {
    parts_.alerts.prcAlertInfo(Format(platform_.clock.Now(), alert_time::seconds), rating::medium,
                               text, {}, nullptr);
}

void MenuCommands::mnuToSystray_Click() {
    if (!form1_.chkSystray.ticked()) {
        parts_.tray.prcAddSystray(addIcon, forms_.globals.sTrayTip);
    }
    form1_.Hide();
}

}  // namespace velmora
