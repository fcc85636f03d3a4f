#include <QLabel>

#include "qt/controls/buttons.h"
#include "qt/controls/password_edit.h"
#include "qt/icons/program_icon.h"
#include "qt/windows/dialog_pieces.h"
#include "qt/windows/dialogs.h"
#include "qt/windows/layouts.h"

namespace velmora::qt {

namespace {

constexpr int stateWidth = 340;
constexpr int pictureSize = 48;

}  // namespace

QWidget* makeLockWindow(FrmLock& form, UserHand& hand) {
    auto* picture = new QLabel;
    picture->setPixmap(programIcon().pixmap(pictureSize, pictureSize));
    picture->setAlignment(Qt::AlignTop);
    auto* state = makeCaption(form.lblLock, true);
    state->setMinimumWidth(stateWidth);
    auto* password = new PasswordEdit(form.Text1, hand);
    auto* words = makeCaption(form.Label1);
    words->setBuddy(password);
    auto* lock = makeButton(form.Command1[0], hand);
    lock->setDefault(true);
    auto* texts = column({state, words, password});
    texts->addLayout(row({nullptr, lock, makeButton(form.Command1[1], hand)}));
    auto* content = row({picture});
    content->setSpacing(2 * gap);
    content->addLayout(texts, 1);
    return dialog(form, content, hand);
}

}  // namespace velmora::qt
