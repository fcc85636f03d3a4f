#include "qt/surface/box_look.h"

namespace velmora::qt {

QMessageBox::Icon shownIcon(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::critical:
            return QMessageBox::Critical;
        case BoxIcon::question:
            return QMessageBox::Question;
        case BoxIcon::information:
            return QMessageBox::Information;
        case BoxIcon::none:
            break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons shownButtons(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::yesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::yesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case BoxButtons::ok:
            break;
    }
    return QMessageBox::Ok;
}

}  // namespace velmora::qt
