#include "qt/controls/file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// Things that are no file of this machine, such as pages, are left out.
std::vector<QString> filesOf(const QMimeData& data) {
    std::vector<QString> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) files.push_back(url.toLocalFile());
    }
    return files;
}

}  // namespace

FileDrops::FileDrops(QWidget* widget, UserHand& hand, std::function<bool()> takes,
                     std::function<void(const std::vector<std::string>&)> dropped)
    : QObject(widget), hand_(hand), takes_(std::move(takes)), dropped_(std::move(dropped)) {
    widget->setAcceptDrops(true);
    widget->installEventFilter(this);
}

bool FileDrops::offersFiles(const QDropEvent& event) const {
    return takes_() && !filesOf(*event.mimeData()).empty();
}

// Dropping never takes a file away from where it is, whatever the file manager proposes.
bool FileDrops::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            break;
        default:
            return false;
    }
    auto* drag = static_cast<QDropEvent*>(event);
    if (!offersFiles(*drag)) return false;
    drag->setDropAction(Qt::CopyAction);
    drag->accept();
    if (event->type() != QEvent::Drop) return true;
    std::vector<std::string> paths;
    for (const QString& file : filesOf(*drag->mimeData()))
        paths.push_back(hand_.drivePathOf(typed(file)));
    // Questions may follow, for which the file manager must not wait.
    QMetaObject::invokeMethod(
        this, [this, paths] { hand_.does([&] { dropped_(paths); }); }, Qt::QueuedConnection);
    return true;
}

}  // namespace velmora::qt
