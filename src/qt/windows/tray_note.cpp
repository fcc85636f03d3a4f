// The note about a missing notification area.
#include "qt/controls/buttons.h"
#include "qt/surface/field.h"
#include "qt/windows/layouts.h"
#include "qt/windows/panels.h"

namespace velmora::qt {

QWidget* makeTrayNote(Form1& form, UserHand& hand) {
    auto* note = row({});
    note->addWidget(makeCaption(form.lblTrayNote, true), 1);
    note->addWidget(makeButton(form.cmdTrayNote, hand));
    note->setContentsMargins(gap, gap, gap, gap);
    auto* strip = new QFrame;
    strip->setLayout(note);
    strip->setFrameShape(QFrame::StyledPanel);
    bindField(strip, form.fraTrayNote, [] {});
    return strip;
}

}  // namespace velmora::qt
