#include "shell/first_steps.h"

namespace velmora {

namespace {

// The file that says it; what is in it doesn't matter.
constexpr const char* noteName = "watched";

bool isAnyWatched(const ListView& list) {
    for (int i = 1; i <= list.Count(); ++i) {
        if (list.ListItems(i).Checked()) return true;
    }
    return false;
}

}  // namespace

FirstSteps::FirstSteps(Form1& form1, UserState& state) : form1_(form1), state_(state) {
    form1_.cmdSetUp.setVisible(!state_.read(noteName));
    form1_.cmdSetUp.Click.connect([this] { form1_.Toolbar1.userClickPart(tool::wizard); });
    form1_.ListView1.ItemCheck.connect([this](ListItem&) { lookForWatchedRow(); });
    // For rows that the program has ticked.
    form1_.Timer1.Tick.connect([this] { lookForWatchedRow(); });
}

void FirstSteps::lookForWatchedRow() {
    if (!form1_.cmdSetUp.Visible() || !isAnyWatched(form1_.ListView1)) return;
    form1_.cmdSetUp.setVisible(false);
    state_.write(noteName, "");
}

}  // namespace velmora
