#include "forms/frm_wizard.h"

#include <span>
#include <utility>

#include "forms/form_numbers.h"
#include "forms/specified_columns.h"

namespace velmora {

namespace {

struct Step {
    const char* name;
    const char* explanation;
};

// By their places.
constexpr std::array<Step, wizard_step::count> steps{{
    {"Welcome",
     "This Wizard is design to assist the user in easily customizing the program.  Just follow the "
     "steps and answer each section accordingly.  Press 'OK' to apply the settings or press "
     "'Close' to cancel it."},
    {"Drives and Paths to Watch",
     "Tick each drive or path whose free space is to be watched. A folder or a share that isn't "
     "listed can be added."},
    {"Size in (KB) or Percentage",
     "An alert is raised when a ticked drive or path has less free space than this: a size in KB, "
     "or a percentage of its total size."},
    {"Action on Space Shortage",
     "What is done, besides the alert, when a ticked drive or path is short of space. It is done "
     "again at each check until there is enough space."},
    {"Specified Path to Move", "The Folder/Path to Move File to On Triggered Action"},
    {"Listed Specified Program(s)",
     "Programs to have at hand when space is short. The main window can run them."},
    {"Specified Files",
     "Files and folders that the actions may move, delete or send to the recycle bin. List only "
     "what can be spared."},
    {"Custom Watch Time ",
     "How often the free space is checked, and whether the watch starts and pauses by itself at "
     "set times of the day."},
    {" Alert on Selected Events",
     "Events that raise an alert too, even when there is enough space."},
    {"Notification Settings",
     "Where the action \"Notify specified Email(s)\" sends its mail, and by which account."},
}};

constexpr std::array eventCaptions{"No Change in Free Space Size (Stagnancy)",
                                   "Change in Free Space Size",
                                   "Change in Amount of File/Folder(s)", "Modification to file(s)",
                                   "Listed Drive/Path become N/A!"};

constexpr std::array mailWords{
    "Mail Server:", "Mail Server Port:",   "Encryption:", "Your Email:",         "User Name:",
    "Password:",    "Mail  From Display:", "Subject:",    "Email(s) to send to:"};

// In twips.
constexpr int startWidth = 13500;
constexpr int startHeight = 7050;

// A control array whose captions depend on the place.
template <typename Field, std::size_t N, typename CaptionAt>
std::array<Field, N> fields(Form& form, const char* name, CaptionAt captionAt) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<Field, N>{Field{form, name, captionAt(I), static_cast<int>(I)}...};
    }
    (std::make_index_sequence<N>{});
}

}  // namespace

FrmWizard::FrmWizard()
    : Form("frmWizard", "Velmora Wizard/Pref."),
      Frame1(fields<Frame, wizard_step::count>(*this, "Frame1",
                                               [](std::size_t i) { return steps[i].name; })),
      lblStep(fields<Label, wizard_step::count>(*this, "lblStep",
                                                [](std::size_t i) { return steps[i].name; })),
      lblExplain(fields<Label, wizard_step::count>(
          *this, "lblExplain", [](std::size_t i) { return steps[i].explanation; })),
      lstAct(*this, "lstAct", std::span(actionCaptions)),
      chkop(fields<CheckBox, eventCaptions.size()>(*this, "chkop",
                                                   [](std::size_t i) { return eventCaptions[i]; })),
      lblMail(fields<Label, mailWords.size()>(*this, "lblMail",
                                              [](std::size_t i) { return mailWords[i]; })) {
    setSize(startWidth, startHeight);
    for (std::size_t i = 1; i < Frame1.size(); ++i) Frame1[i].setVisible(false);
    OptionButton::group({&OpDriv[0], &OpDriv[1]});
    addProgramColumns(LVProg);
    addFileColumns(LVFile);
    for (const char* entry : connection_speed::entries) cboSpeed.AddItem(entry);
    for (const char* entry : mail_encryption::entries) cboEncryption.AddItem(entry);
    txtPass.setMasked(true);
    txtMailPort.setToolTipText(lblPortHint.Caption());
}

}  // namespace velmora
