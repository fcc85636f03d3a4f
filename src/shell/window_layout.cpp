#include "shell/window_layout.h"

#include "base/resume_next.h"
#include "forms/form_numbers.h"

namespace velmora {

namespace {

constexpr int leastHeight = 3900;
constexpr int compactMargin = 500;

// What stays free beside and below the controls that follow the window.
constexpr int buttonMargin = 600;
constexpr int frameMargin = 1400;
constexpr int listMargin = 150;
constexpr int headingMargin = 500;
constexpr int panelRightMargin = 255 + 200;
constexpr int panelBottomMargin = 4200;
constexpr int alertsMargin = 500;
constexpr int alertsOverJournalMargin = 2500;
constexpr int alertsRightMargin = 200;

// A measure of a panel below this is left as it was.
constexpr int leastMeasure = 4300;

void setLeft(Control& control, int left) {
    Bounds bounds = control.bounds();
    bounds.Left = left;
    control.setBounds(bounds);
}

void setWidth(Control& control, int width) {
    Bounds bounds = control.bounds();
    bounds.Width = width;
    control.setBounds(bounds);
}

void stretch(Control& control, int width, int height) {
    Bounds bounds = control.bounds();
    if (width >= leastMeasure) bounds.Width = width;
    if (height >= leastMeasure) bounds.Height = height;
    control.setBounds(bounds);
}

}  // namespace

WindowLayout::WindowLayout(Form1& form1) : form1_(form1) {
    form1_.Resize.connect([this] { Form_Resize(); });
}

int WindowLayout::compactHeight() const {
    return form1_.Toolbar1.bounds().Height + form1_.Frame8.bounds().Height + compactMargin;
}

void WindowLayout::toggleView() {
    if (form1_.State() != WindowState::normal) form1_.setState(WindowState::normal);
    const bool full = form1_.Height() != form1_size::fullHeight;
    form1_.setSize(form1_.Width(), full ? form1_size::fullHeight : compactHeight());
    form1_.Toolbar1.setButtonCaption(tool::view, full ? "View -" : "View +");
    form1_.Frame5.setVisible(full);
    form1_.Frame1.setVisible(full);
}

void WindowLayout::Form_Resize() {
    resumeNext([this] {
        keepLeastSize();
        placeHead();
        placePanels();
        placeAlertList();
    });
}

// Each setSize runs this step again as a resize of its own, which changes no more; the layout after
// it is then done twice with the same measures.
void WindowLayout::keepLeastSize() {
    if (form1_.Height() < leastHeight) form1_.setSize(form1_.Width(), compactHeight());
    if (form1_.Width() < form1_size::leastWidth)
        form1_.setSize(form1_size::leastWidth, form1_.Height());
}

void WindowLayout::placeHead() {
    setLeft(form1_.Command6, form1_.Width() - buttonMargin);
    setLeft(form1_.Command9, form1_.Width() - buttonMargin);
    setWidth(form1_.Frame8, form1_.Width() - frameMargin);
    setWidth(form1_.ListView1, form1_.Frame8.bounds().Width - listMargin);
}

void WindowLayout::placePanels() {
    const int width = form1_.Width() - panelPlace.Left;
    const int height = form1_.Height() - panelBottomMargin;
    stretch(form1_.lblTabCap, width - headingMargin, 0);
    for (Frame& panel : form1_.frmSp) stretch(panel, width - panelRightMargin, height);
}

// The list fills its panel, or has the journal below it.
void WindowLayout::placeAlertList() {
    constexpr int alertsPanel = 3;
    const Bounds& panel = form1_.frmSp[alertsPanel].bounds();
    const int below = form1_.chkLog.ticked() ? alertsOverJournalMargin : alertsMargin;
    stretch(form1_.LVAlert, panel.Width - alertsRightMargin, panel.Height - below);
}

}  // namespace velmora
