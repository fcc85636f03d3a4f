// What the small windows have in common.
#pragma once

#include <QLabel>
#include <QLayout>
#include <QWidget>

#include "controls/buttons.h"
#include "qt/surface/user_hand.h"
#include "qt/windows/form_binding.h"

namespace velmora::qt {

/// The width, in pixels, at which a paragraph reads well.
inline constexpr int readingWidth = 380;

/// A window around a layout, with the margins of a dialog.
QWidget* dialog(Form& form, QLayout* content, UserHand& hand, WindowKind kind = {});
/// A caption in large letters, above all else.
QLabel* heading(Label& field);
/// A caption in bold letters, above a part of a window.
QLabel* sectionHeading(Label& field);
/// A caption in the colour of what matters less.
QLabel* quietCaption(Label& field);
/// A caption over several lines.
QLabel* paragraph(Label& field);

}  // namespace velmora::qt
