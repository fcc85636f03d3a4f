// Widgets for controls that take text, a number or a time.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSlider>
#include <QTimeEdit>

#include "controls/list_box.h"
#include "controls/pickers.h"
#include "controls/text_box.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

QLineEdit* makeLineEdit(TextBox& field, UserHand& hand);
QSlider* makeSlider(Slider& field, UserHand& hand);
/// A vertical slider for a field whose least value is at the top: it shows what is missing to the
/// greatest one.
QSlider* makeUprightSlider(Slider& field, UserHand& hand);
/// `picture` as QTimeEdit's display format, "HH:mm:ss" for a time of day to the second.
QTimeEdit* makeTimeEdit(DatePicker& field, const QString& picture, UserHand& hand);
/// An editable text with the list's entries to choose from.
QComboBox* makeComboBox(ComboBox& field, UserHand& hand);
/// One of the list's entries, without typing.
QComboBox* makeChoice(ComboBox& field, UserHand& hand);
/// A text of several lines.
QPlainTextEdit* makeTextEdit(TextBox& field, UserHand& hand);
/// A text of several lines that is only read, in letters of one width.
QPlainTextEdit* makeTextView(TextBox& field);
/// Two arrows that turn the spinner.
QWidget* makeUpDown(UpDown& field, UserHand& hand);

}  // namespace velmora::qt
