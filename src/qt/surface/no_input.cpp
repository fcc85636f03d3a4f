#include "qt/surface/no_input.h"

#include <QApplication>
#include <QEvent>

namespace velmora::qt {

NoInput::NoInput() {
    qApp->installEventFilter(this);
}

bool NoInput::eventFilter(QObject*, QEvent* event) {
    // Except for a box that a check has opened meanwhile: it has to be answered.
    if (QApplication::activeModalWidget() != nullptr) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            return true;
        case QEvent::Close:
            event->ignore();
            return true;
        default:
            return false;
    }
}

}  // namespace velmora::qt
