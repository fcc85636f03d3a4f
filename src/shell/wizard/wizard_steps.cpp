#include "shell/wizard/wizard_steps.h"

#include <string>

namespace velmora {

namespace {

constexpr int lastStep = static_cast<int>(wizard_step::count) - 1;

// In twips. What the form has beyond a frame holds the list of the steps and the buttons.
constexpr int frameLeft = 1800;
constexpr int frameTop = 600;
constexpr int beyondWidth = 1900;
constexpr int beyondHeight = 2700;

}  // namespace

WizardSteps::WizardSteps(FrmWizard& form) : form_(form) {
    form_.cmdProgress.Click.connect([this] { cmdProgress_Click(); });
    form_.cmdReverse.Click.connect([this] { cmdReverse_Click(); });
    form_.Resize.connect([this] { placeFrames(); });
    for (Label& label : form_.lblStep) {
        label.Click.connect([this, step = label.Index()] { goTo(step); });
    }
}

void WizardSteps::begin() {
    placeFrames();
    show(0);
}

void WizardSteps::placeFrames() {
    for (Frame& frame : form_.Frame1) {
        frame.setBounds(
            {frameLeft, frameTop, form_.Width() - beyondWidth, form_.Height() - beyondHeight});
    }
}

int WizardSteps::shownStep() const {
    int step = 0;
    while (step < lastStep && !form_.Frame1[static_cast<std::size_t>(step)].Visible()) ++step;
    return step;
}

void WizardSteps::show(int step) {
    for (Frame& frame : form_.Frame1) frame.setVisible(frame.Index() == step);
    form_.lblOp.setCaption("Options: " + std::to_string(step + 1) + "/" +
                           std::to_string(form_.Frame1.size()));
    form_.cmdReverse.setEnabled(step > 0);
    form_.cmdProgress.setEnabled(step < lastStep);
}

void WizardSteps::cmdProgress_Click() {
    if (const int step = shownStep(); step < lastStep) show(step + 1);
}

void WizardSteps::cmdReverse_Click() {
    if (const int step = shownStep(); step > 0) show(step - 1);
}

// By the buttons, so that whatever holds for them holds here too.
void WizardSteps::goTo(int step) {
    while (shownStep() < step) form_.cmdProgress.Click();
    while (shownStep() > step) form_.cmdReverse.Click();
}

}  // namespace velmora
