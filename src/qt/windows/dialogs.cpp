#include "qt/windows/dialogs.h"

#include "qt/controls/buttons.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

QWidget* makeProgressWindow(Icon0& form, UserHand& hand) {
    auto* content = column({paragraph(form.lblProgress)});
    content->addLayout(row({nullptr, makeButton(form.cmdCancel, hand)}));
    return dialog(form, content, hand);
}

QWidget* makeRecycleBinWindow(Icon1& form, UserHand& hand) {
    return dialog(form, row({makeButton(form.Command1, hand), makeButton(form.Command2, hand)}),
                  hand);
}

}  // namespace velmora::qt
