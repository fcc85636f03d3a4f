// What every widget has in common with its field: name, visibility, enabled state, tool-tip, and
// the words that a screen reader says.
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "controls/control.h"
#include "qt/surface/refresher.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// The field's name as the program writes it: "chkLog", "lblTab(2)".
QString fieldName(const Control& control);

/// What a widget does while its field is disabled.
enum class WhenDisabled {
    isDisabled,  ///< it is disabled too; the focus goes elsewhere
    keepsFocus,  ///< it stays as it is, and takes no input by itself
};

/// Names the widget after its field and takes visibility, enabled state and tool-tip from it.
/// `refresh` shows the rest and runs whenever the field has changed.
Refresher* bindField(QWidget* widget, Control& control, std::function<void()> refresh,
                     WhenDisabled whenDisabled = WhenDisabled::isDisabled);

}  // namespace velmora::qt
