#include "qt/window_rig.h"

#include <QThread>

#include "persist/scramble.h"

namespace velmora::tests {

void WindowRig::start(const std::string& settings) {
    machine.files[settingsPath] = settings;
    program = std::make_unique<WindowProgram>(
        machine,
        [this](int status) {
            ended = status;
            // Also leaves the loops of open boxes, as the program's own end does.
            if (QThread::currentThread()->loopLevel() > 0) QApplication::exit(status);
        },
        makePrinters());
    program->whenRestored([this] { ++startsAgain; });
    program->whenFailing([this] {
        if (whenFailing) whenFailing();
    });
    program->load();
    settle();
}

void WindowRig::start() {
    start(prcEn("txtTime=60\r\n") + "\r\n");
}

void WindowRig::whenBoxOpens(const std::function<void(QMessageBox&)>& then) {
    auto* look = new QTimer;
    QObject::connect(look, &QTimer::timeout, look, [look, then] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        look->stop();
        look->deleteLater();
        then(*box);
    });
    look->start(1);
}

}  // namespace velmora::tests
