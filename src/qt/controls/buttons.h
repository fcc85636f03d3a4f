// Widgets for controls that are clicked: check boxes, option buttons, command buttons, captions.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "controls/buttons.h"
#include "qt/icons/glyph.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

QCheckBox* makeCheckBox(CheckBox& field, UserHand& hand);
QRadioButton* makeOptionButton(OptionButton& field, UserHand& hand);
QPushButton* makeButton(CommandButton& field, UserHand& hand);
/// A button that shows a picture; its caption is its tool-tip unless it has one.
QToolButton* makeIconButton(CommandButton& field, Glyph glyph, UserHand& hand);
/// A caption that is only read. Long ones wrap when `wraps` is set.
QLabel* makeCaption(Label& field, bool wraps = false);
/// A caption that is clicked like a link.
QPushButton* makeLink(Label& field, UserHand& hand);

}  // namespace velmora::qt
