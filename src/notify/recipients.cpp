#include "notify/recipients.h"

#include "base/text.h"
#include "controls/keys.h"

namespace velmora {

Recipients::Recipients(ComboBox& cboNotEmail, Buttons buttons) : box_(cboNotEmail) {
    buttons.cmdAdd.Click.connect([this] { cmdAdd_Click(); });
    buttons.cmdRemove.Click.connect([this] { cmdRemove_Click(); });
    buttons.cmdClear.Click.connect([this] { box_.Clear(); });
    box_.KeyPress.connect([this](int code) { cboNotEmail_KeyPress(code); });
}

void Recipients::cmdAdd_Click() {
    const std::string& text = box_.Text();
    if (contains(text, "@") && contains(text, ".")) box_.AddItem(trim(text));
}

void Recipients::cboNotEmail_KeyPress(int code) {
    if (code == key::enter) box_.AddItem(box_.Text());
}

void Recipients::cmdRemove_Click() {
    if (box_.ListIndex() < 0) return;
    box_.RemoveItem(box_.ListIndex());
}

}  // namespace velmora
