#include <QApplication>
#include <QMessageBox>
#include <QProcess>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>

#include "app/data_folder.h"
#include "app/later_starts.h"
#include "app/option_answers.h"
#include "app/single_start.h"
#include "app/window_program.h"
#include "qt/controls/legible_style.h"
#include "qt/icons/program_icon.h"

namespace {

// With the same arguments, but without the option that puts other settings in place.
void startAgain() {
    QStringList arguments = QApplication::arguments().mid(1);
    qsizetype option = 0;
    while (option < arguments.size()) {
        const std::size_t length = velmora::startOptionLength(arguments[option].toStdString());
        if (length == 0) break;
        if (arguments[option] == QLatin1String("--restore-settings")) {
            arguments.removeAt(option);
        } else {
            option += static_cast<qsizetype>(length);
        }
    }
    QProcess::startDetached(QApplication::applicationFilePath(), arguments);
}

// On Windows a program with windows has no standard output.
[[noreturn]] void endWith(int status, const std::ostringstream& said) {
#ifdef _WIN32
    QMessageBox::information(nullptr, QStringLiteral("Velmora"),
                             QString::fromStdString(said.str()));
#else
    (status == 0 ? std::cout : std::cerr) << said.str() << std::flush;
#endif
    std::_Exit(status);
}

// Ends the program where there is nothing to start.
void endOrGoOn(velmora::Machine& machine) {
    constexpr auto kind = velmora::ProgramKind::window;
    std::ostringstream said;
    const auto& options = machine.platform().app.Options;
    if (const auto status = velmora::answerOptions(options, kind, said, said))
        endWith(*status, said);
    if (const auto status = velmora::prepareDataFolder(machine, kind, said)) endWith(*status, said);
}

[[noreturn]] void refuse() {
    std::cerr << velmora::whyRefused << '\n';
    QMessageBox::warning(nullptr, QStringLiteral("Velmora"),
                         QString::fromUtf8(velmora::whyRefused));
    std::_Exit(1);
}

}  // namespace

int main(int argc, char* argv[]) {
    const auto machine = velmora::openMachine();
#ifndef _WIN32
    // A text needs no display.
    endOrGoOn(*machine);
#endif
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

#ifdef _WIN32
    endOrGoOn(*machine);
#endif
    velmora::LaterStarts laterStarts([&] {
        const auto take = [&laterStarts] { laterStarts.takeWaiting(); };
        QMetaObject::invokeMethod(&application, take, Qt::QueuedConnection);
    });
    const auto as = velmora::startAs(machine->platform(), [&laterStarts](const std::string& start) {
        return laterStarts.offer(start);
    });
    if (as == velmora::StartAs::handedOver) std::_Exit(0);
    if (as == velmora::StartAs::refused) refuse();
    machine->platform().otherStarts.holdFolder();

    std::optional<int> status;
    velmora::WindowProgram program(*machine, [&](int ended) {
        laterStarts.close();
        status = ended;
        QApplication::exit(ended);
    });
    program.whenFailing([&laterStarts] { laterStarts.close(); });
    program.whenRestored([&machine] {
        machine->platform().otherStarts.release();
        startAgain();
    });
    program.load();
    laterStarts.open([&program](const std::string& start) { program.take(start); });
    const int result = status ? *status : QApplication::exec();
    // Otherwise the icons would stay in the notification area.
    program.notifyArea().clear();
    // At once, without waiting for a drive that doesn't answer.
    std::_Exit(status.value_or(result));
}
