#include "alerts/lists/program_list_buttons.h"

#include "alerts/lists/listed_rows.h"
#include "base/text.h"
#include "forms/form_numbers.h"
#include "platform/show_window.h"
#include "rows/listed_program.h"

namespace velmora {

ProgramListButtons::ProgramListButtons(Form1& form1, ProgramList& programs, FileSystemObject& fso,
                                       Shell32& shell32, Host& host)
    : form1_(form1), programs_(programs), fso_(fso), shell32_(shell32), host_(host) {
    for (Label& label : form1_.Label5) {
        label.Click.connect([this, index = label.Index()] { Label5_Click(index); });
    }
    form1_.cmdPAdd.Click.connect([this] { cmdPAdd_Click(); });
}

void ProgramListButtons::Label5_Click(int index) {
    switch (index) {
        case program_button::add:
            if (programs_.boxNamesFile()) programs_.addRow();
            return;
        case program_button::remove:
            return removeSelectedRow(form1_.LVProg, host_);
        case program_button::clear:
            return form1_.LVProg.Clear();
        case program_button::run:
            return runSelected();
        case program_button::browse:
            return programs_.browse();
        default:
            return;
    }
}

void ProgramListButtons::cmdPAdd_Click() {
    if (programs_.boxNamesFile()) programs_.addEntry();
}

void ProgramListButtons::runSelected() {
    if (form1_.LVProg.Count() == 0) {
        host_.MsgBox({.text = "No listed item."});
        return;
    }
    const ListItem* row = form1_.LVProg.SelectedItem();
    if (row == nullptr) return;
    const std::string path = ConstListedProgram(*row).path();
    std::string outcome = " - Specified Program Execution Failed (File Does Not Exist): ";
    if (fso_.FileExists(path)) {
        shell32_.ShellExecuteA(form1_.Name(), "open", path, "", "", normalWindow);
        outcome = " - Specified Program Executed: ";
    }
    const std::string end(lineEnd);
    form1_.txtAlert.prepend(outcome + end + path + end + end + " . " + end);
}

}  // namespace velmora
