#include "qt/controls/file_drops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// URLs that are no files of this machine, such as web pages, are left out.
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

// Always a copy: with the move that a file manager proposes, it would delete the file.
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
    // The handler may ask questions, and the file manager must not wait for the answers.
    QMetaObject::invokeMethod(
        this, [this, paths] { hand_.does([&] { dropped_(paths); }); }, Qt::QueuedConnection);
    return true;
}

}  // namespace velmora::qt
