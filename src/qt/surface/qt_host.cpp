#include "qt/surface/qt_host.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QStatusBar>

#include <utility>
#include <vector>

#include "qt/surface/box_look.h"
#include "qt/surface/no_input.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// The time of a frame on the screen: more frequent yields would not be noticed.
constexpr qint64 yieldInterval = 16;

// Milliseconds of a listing that nobody takes for a wait.
constexpr qint64 listingInstant = 200;

BoxAnswer answerOf(int button, BoxButtons buttons) {
    switch (button) {
        case QMessageBox::Ok:
            return BoxAnswer::ok;
        case QMessageBox::Yes:
            return BoxAnswer::yes;
        case QMessageBox::No:
            return BoxAnswer::no;
        default:
            return cancellingAnswer(buttons);
    }
}

QMessageBox::StandardButton escape(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel:
        case BoxButtons::yesNoCancel:
            return QMessageBox::Cancel;
        case BoxButtons::yesNo:
            return QMessageBox::No;
        case BoxButtons::ok:
            break;
    }
    return QMessageBox::Ok;
}

// "Text (*.txt)|*.txt|All (*.*)|*.*" as Qt has it: "Text (*.txt)", "All (*)".
QStringList nameFilters(const std::string& filter) {
    const QStringList parts = shown(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString words = parts[i].section(QStringLiteral(" ("), 0, 0);
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << words + QStringLiteral(" (") + patterns.trimmed() + QLatin1Char(')');
    }
    return filters;
}

// One path as it is; for several, the folder of the first and then the names. Files of other
// folders are given by their whole paths.
std::string oneOrSeveral(const std::vector<std::string>& paths) {
    if (paths.size() <= 1) return paths.empty() ? std::string{} : paths.front();
    const std::string folder = parentFolderOf(paths.front());
    std::string all = folder;
    for (const std::string& path : paths) {
        all += '\0' + (parentFolderOf(path) == folder ? fileNameOf(path) : path);
    }
    return all;
}

}  // namespace

QtHost::QtHost(Machine& machine, UserHand& hand, const WindowsByName& windows)
    : machine_(machine),
      hand_(hand),
      windows_(windows),
      shellLinks_(machine.platform().shell32, machine.platform().wscriptShell) {
    sinceYield_.start();
}

// The window that the user works with, or the main window when that is another program's. Without
// one, a box comes in the middle of the screen.
QWidget* QtHost::owner() const {
    if (QWidget* active = QApplication::activeWindow()) return active;
    QWidget* main = windows_.find("Form1");
    return main != nullptr && main->isVisible() && !main->isMinimized() ? main : nullptr;
}

BoxAnswer QtHost::MsgBox(const Box& box) {
    return show(box, nullptr);
}

SeriesAnswer QtHost::MsgBoxOfSeries(const Box& box, const std::string& words) {
    QCheckBox offer(shown(words));
    const BoxAnswer answer = show(box, &offer);
    return {.answer = answer, .isForTheRest = offer.isChecked()};
}

void QtHost::ShowBusy(bool isBusy) {
    if (isBusy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

// Drawn right here, since handlers would run in the event loop. There the message goes by itself.
void QtHost::ShowListing(const std::string& folder, std::size_t entries) {
    const bool begins = entries <= std::exchange(entriesShown_, entries);
    if (begins || !sinceListing_.isValid()) sinceListing_.start();
    if (sinceListing_.elapsed() < listingInstant) return;
    sinceListing_.start();
    QWidget* main = windows_.find("Form1");
    auto* bar = main != nullptr ? main->findChild<QStatusBar*>() : nullptr;
    if (bar == nullptr || !main->isVisible()) return;
    const QString count = QLocale().toString(static_cast<qulonglong>(entries));
    bar->showMessage(QStringLiteral("Listing %1: %2 entries so far").arg(shown(folder), count), 1);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        QCoreApplication::sendPostedEvents(window, QEvent::UpdateRequest);
    }
}

// `offer` is null or stands below the text; it stays the caller's.
BoxAnswer QtHost::show(const Box& box, QCheckBox* offer) {
    QMessageBox dialog(shownIcon(box.icon), shown(box.title), shownLines(box.text),
                       shownButtons(box.buttons), owner());
    dialog.setTextFormat(Qt::PlainText);
    dialog.setInformativeText(shownLines(box.detail));
    // Which has a label of its own, and may contain the name of any file.
    if (auto* detail = dialog.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        detail->setTextFormat(Qt::PlainText);
    }
    dialog.setEscapeButton(escape(box.buttons));
    dialog.setObjectName(QStringLiteral("MsgBox"));
    if (offer != nullptr) dialog.setCheckBox(offer);
    const BoxAnswer answer = answerOf(dialog.exec(), box.buttons);
    if (offer != nullptr) offer->setParent(nullptr);
    // The program may have ended while the box was open.
    hand_.throwWhenEnded();
    return answer;
}

void QtHost::Tell(const Box& box) {
    told_.tell(box, owner());
}

std::string QtHost::BrowseForFolder(const std::string& title) {
    const auto chosen = [&] {
        const NoInput noInput;
        return shellLinks_.prcBrowseForFolder("Form1", title,
                                              [] { QApplication::processEvents(); });
    }();
    hand_.throwWhenEnded();
    if (chosen) return *chosen;
    const QString path = QFileDialog::getExistingDirectory(owner(), shown(title));
    hand_.throwWhenEnded();
    return path.isEmpty() ? std::string{} : machine_.toDrivePath(typed(path));
}

std::string QtHost::OpenFileDialog(const FileDialog& asked) {
    QFileDialog dialog(owner(), shown(asked.DialogTitle),
                       shown(machine_.toHostPath(asked.InitDir)));
    dialog.setObjectName(QStringLiteral("FileDialog"));
    const bool takesSeveral = (asked.Flags & file_dialog::allowMultiselect) != 0;
    dialog.setFileMode(takesSeveral ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setNameFilters(nameFilters(asked.Filter));
    const bool isChosen = dialog.exec() == QDialog::Accepted;
    hand_.throwWhenEnded();
    if (!isChosen) return {};
    std::vector<std::string> paths;
    for (const QString& path : dialog.selectedFiles()) {
        paths.push_back(machine_.toDrivePath(typed(path)));
    }
    return oneOrSeveral(paths);
}

void QtHost::Beep() {
    QApplication::beep();
}

bool QtHost::DoEventsRan() {
    if (sinceYield_.elapsed() < yieldInterval) return false;
    QApplication::processEvents();
    sinceYield_.start();
    hand_.throwWhenEnded();
    return true;
}

}  // namespace velmora::qt
