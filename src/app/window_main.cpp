#include <QApplication>
#include <QProcess>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/single_start.h"
#include "app/window_program.h"
#include "qt/controls/legible_style.h"
#include "qt/icons/program_icon.h"

namespace {

// With the same arguments, but without the option that puts other settings in place.
void startAgain() {
    QStringList arguments = QApplication::arguments().mid(1);
    qsizetype option = 0;
    while (option < arguments.size() && velmora::isStartOption(arguments[option].toStdString())) {
        if (arguments[option] == QLatin1String("--restore-settings")) {
            arguments.removeAt(option);
        } else {
            ++option;
        }
    }
    QProcess::startDetached(QApplication::applicationFilePath(), arguments);
}

}  // namespace

int main(int argc, char* argv[]) {
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    QApplication application(argc, argv);
    // No display name: Qt would append it to each window's title.
    QApplication::setApplicationName(QStringLiteral("velmora"));
    QApplication::setDesktopFileName(QStringLiteral("velmora"));
    QApplication::setWindowIcon(velmora::qt::programIcon());
    QApplication::setStyle(new velmora::qt::LegibleStyle);
    // Hidden is a normal state of every window.
    QApplication::setQuitOnLastWindowClosed(false);

    const auto machine = velmora::openMachine();
    velmora::WindowProgram* started = nullptr;
    std::vector<std::string> early;  // taken before the program was there
    const auto takeLater = [&](const std::string& command) {
        const auto take = [&started, &early, command] {
            if (started == nullptr) {
                early.push_back(command);
            } else {
                started->take(command);
            }
        };
        QMetaObject::invokeMethod(&application, take, Qt::QueuedConnection);
    };
    if (velmora::isHandedOver(machine->platform(), takeLater)) std::_Exit(0);
    machine->platform().otherStarts.holdFolder();

    std::optional<int> status;
    velmora::WindowProgram program(*machine, [&status](int ended) {
        status = ended;
        QApplication::exit(ended);
    });
    program.whenRestored([&machine] {
        machine->platform().otherStarts.release();
        startAgain();
    });
    program.load();
    started = &program;
    for (const std::string& command : early) program.take(command);
    const int result = status ? *status : QApplication::exec();
    // Otherwise the icons would stay in the notification area.
    program.notifyArea().clear();
    // At once, without waiting for a drive that doesn't answer.
    std::_Exit(status.value_or(result));
}
