#include "shell/tab_selection.h"

namespace velmora {

namespace {

constexpr Colour tabText = 0xC0C0C0;
constexpr Colour tabBack = 0x400000;
constexpr Colour pressedTabText = 0xFFFFFF;
constexpr Colour innerText = 0x400000;
constexpr Colour innerBack = 0xE0E0E0;

constexpr int notifyTab = 5;

void paint(Label& label, Colour text, Colour back) {
    label.setForeColor(text);
    label.setBackColor(back);
}

// The element of a control array; null for an index outside it.
template <typename Array>
auto* at(Array& controls, int index) {
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < controls.size() ? &controls[place] : nullptr;
}

}  // namespace

TabSelection::TabSelection(Form1& form1, FrmNotify& frmNotify, WindowLayout& layout)
    : form1_(form1), frmNotify_(frmNotify), layout_(layout) {
    for (Label& label : form1_.lblTab) {
        label.MouseDown.connect([&label] { label.setForeColor(pressedTabText); });
        label.MouseUp.connect([&label] { label.setForeColor(tabText); });
        label.Click.connect([this, &label] { lblTab_Click(label.Index()); });
    }
    for (Label& label : form1_.lblSpectab) {
        label.Click.connect([this, &label] { lblSpectab_Click(label.Index()); });
    }
}

void TabSelection::lblTab_Click(int index) {
    clearTabs();
    if (Frame* panel = panelOf(index)) showPanel(*panel);
    if (Label* label = at(form1_.lblTab, index)) {
        form1_.lblTabCap.setCaption(label->ToolTipText());
        paint(*label, colour::buttonText, colour::window);
    }
    layout_.Form_Resize();
}

void TabSelection::clearTabs() {
    for (Label& label : form1_.lblTab) paint(label, tabText, tabBack);
    for (Frame& panel : form1_.frmSp) panel.setVisible(false);
}

// The third and the fourth label show each other's panel.
Frame* TabSelection::panelOf(int index) {
    switch (index) {
        case 2:
            return &form1_.frmSp[3];
        case 3:
            return &form1_.frmSp[2];
        case notifyTab:
            frmNotify_.Show();
            return &form1_.frmSp[4];
        default:
            return at(form1_.frmSp, index);
    }
}

void TabSelection::showPanel(Frame& panel) {
    panel.setBackColor(colour::window);
    panel.setBounds(WindowLayout::panelPlace);
    panel.setVisible(true);
}

void TabSelection::lblSpectab_Click(int index) {
    for (Label& label : form1_.lblSpectab) paint(label, innerText, innerBack);
    for (Frame& panel : form1_.fr) panel.setVisible(false);
    Label* label = at(form1_.lblSpectab, index);
    if (label == nullptr) return;
    paint(*label, colour::window, innerText);
    at(form1_.fr, index)->setVisible(true);
}

bool isSelectedTab(const Label& label) {
    return label.BackColor() == colour::window;
}

bool isSelectedInnerTab(const Label& label) {
    return label.BackColor() == innerText;
}

}  // namespace velmora
