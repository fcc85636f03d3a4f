// Notes in the main window.
#include "qt/controls/buttons.h"
#include "qt/surface/field.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

QWidget* makeNote(Frame& frame, Label& words, CommandButton& close, UserHand& hand) {
    auto* note = row({});
    note->addWidget(makeCaption(words, true), 1);
    note->addWidget(makeButton(close, hand));
    note->setContentsMargins(gap, gap, gap, gap);
    auto* strip = new QFrame;
    strip->setLayout(note);
    strip->setFrameShape(QFrame::StyledPanel);
    bindField(strip, frame, [] {});
    return strip;
}

}  // namespace velmora::qt
