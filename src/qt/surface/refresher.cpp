#include "qt/surface/refresher.h"

#include <QMetaObject>

namespace velmora::qt {

Refresher::Refresher(QObject* view, std::function<void()> refresh)
    : QObject(view), refresh_(std::move(refresh)) {
    refresh_();
}

void Refresher::touch() {
    if (touched_) return;
    touched_ = true;
    QMetaObject::invokeMethod(this, &Refresher::refreshNow, Qt::QueuedConnection);
}

void Refresher::refreshNow() {
    touched_ = false;
    if (fieldExists()) refresh_();
}

}  // namespace velmora::qt
