#include "persist/recovery/hint_note.h"

#include "base/text.h"

namespace velmora {

HintNote::HintNote(Form1& form1, Hints& hints) : form1_(form1) {
    hints.Said.connect([this](const Hint& hint) { say(hint.text); });
    form1.cmdHint.Click.connect([this] { take(); });
}

void HintNote::say(const std::string& line) {
    std::string text = form1_.lblHint.Caption();
    if (!text.empty()) text += lineEnd;
    form1_.lblHint.setCaption(text + line);
    form1_.fraHint.setVisible(true);
}

void HintNote::take() {
    form1_.fraHint.setVisible(false);
    form1_.lblHint.setCaption("");
}

}  // namespace velmora
