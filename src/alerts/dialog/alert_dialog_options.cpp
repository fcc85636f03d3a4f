#include "alerts/dialog/alert_dialog_options.h"

#include <array>
#include <string_view>

#include "base/runtime_error.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "platform/show_window.h"
#include "rows/watch_row.h"

namespace velmora {

namespace {

constexpr std::size_t sorbane = 0;  // in lblAct

constexpr const char* moveWord = "move";
constexpr const char* deleteWord = "delete";

struct Option {
    const char* suggestion;
    const char* word;  ///< kept as the tag of the wizard's label
};

// By the place in lblAct.
constexpr std::array<Option, 5> options{{
    {"", ""},
    {"You can open the default compression program to try to save space.", "compress"},
    {"You can select to attempt to clear any files in the recycle bin.", "recycle"},
    {"You can select files to be deleted to free up space.", deleteWord},
    {"You can select files to be moved to another path to free up space.", moveWord},
}};

// The actions on files.
constexpr int firstFileAction = act::move;
constexpr int lastFileAction = act::autoMove;

}  // namespace

AlertDialogOptions::AlertDialogOptions(Form1& form1, DlgAlert& dlgAlert, Platform& platform,
                                       Host& host)
    : form1_(form1), dlgAlert_(dlgAlert), platform_(platform), host_(host) {
    for (std::size_t i = 0; i < dlgAlert_.lblAct.size(); ++i) {
        dlgAlert_.lblAct[i].Click.connect([this, i] { lblAct_Click(i); });
    }
    dlgAlert_.lblAl[alert_button::wizard].Click.connect([this] { Wizard_Click(); });
}

void AlertDialogOptions::lblAct_Click(std::size_t index) {
    if (index == sorbane) {
        startSorbane();
        return;
    }
    dlgAlert_.lblSuggest.setCaption(options[index].suggestion);
    dlgAlert_.lblAl[alert_button::wizard].setTag(options[index].word);
}

void AlertDialogOptions::startSorbane() {
    const Application& app = platform_.app;
    const std::string path = app.DataPath + "\\clen.dat";
    attempt("hand the drive to the cleaner", path,
            [&] { platform_.files.writeOver(path, driveInAlert().append(lineEnd)); });
    platform_.shell32.ShellExecuteA(form1_.Name(), "open", app.Path + "\\sorbane.exe", "", "",
                                    normalWindow);
}

std::string AlertDialogOptions::driveInAlert() {
    const ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        const ConstWatchRow row(list.ListItems(i));
        if (row.isInAlert()) return row.path();
    }
    return "c:\\";
}

void AlertDialogOptions::Wizard_Click() {
    const std::string word = dlgAlert_.lblAl[alert_button::wizard].Tag();
    if (word != moveWord && word != deleteWord) return;
    chooseFiles();
    clearFileActions();
}

void AlertDialogOptions::chooseFiles() {
    const std::string chosen =
        host_.OpenFileDialog({.DialogTitle = "Choose File/Folder ",
                              .Filter = "All Files (*.*)|*.*",
                              .Flags = file_dialog::explorer | file_dialog::allowMultiselect});
    if (chosen.empty()) {
        host_.MsgBox({.text = "No file(s) were selected."});
        return;
    }
    form1_.cboFile.setText(replaceAll(chosen, std::string_view("\0", 1), ";"));
    form1_.Command2.Click();
    host_.MsgBox({.text = "The files are now listed in the Spec. file(s)\r\n"
                          "If you change your mind, you can go select the file and hit remove"});
}

// No other entry is ticked instead: the user chooses on the option's page.
void AlertDialogOptions::clearFileActions() {
    ListBox& actions = form1_.lstAct;
    for (int i = firstFileAction; i < actions.ListCount() && i <= lastFileAction; ++i) {
        actions.setSelected(i, false);
    }
}

}  // namespace velmora
