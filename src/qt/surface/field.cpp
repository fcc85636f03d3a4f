#include "qt/surface/field.h"

#include "controls/form.h"
#include "forms/field_words.h"
#include "qt/surface/text.h"

namespace velmora::qt {

QString fieldName(const Control& control) {
    const QString name = shown(control.Name());
    return control.Index() < 0 ? name : QStringLiteral("%1(%2)").arg(name).arg(control.Index());
}

Refresher* bindField(QWidget* widget, Control& control, std::function<void()> refresh,
                     WhenDisabled whenDisabled) {
    const QString name = fieldName(control);
    widget->setObjectName(name);
    widget->setAccessibleName(
        shown(std::string(fieldWords(control.form().Name(), control.fullName()))));
    const bool follows = whenDisabled == WhenDisabled::isDisabled;
    return follow(control.Changed, widget, [=, &control, refresh = std::move(refresh)] {
        if (follows) widget->setEnabled(control.Enabled());
        if (!control.Visible()) {
            widget->hide();
        } else if (widget->parentWidget() != nullptr) {
            // Without a parent it would become a window of its own.
            widget->show();
        }
        if (widget->toolTip() != shown(control.ToolTipText())) {
            widget->setToolTip(shown(control.ToolTipText()));
        }
        refresh();
    });
}

}  // namespace velmora::qt
