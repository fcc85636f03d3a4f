#include "qt/surface/qt_host.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

// A frame of a screen: nobody sees or feels what happens more often.
constexpr qint64 yieldInterval = 16;

QMessageBox::Icon shownIcon(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::critical: return QMessageBox::Critical;
        case BoxIcon::question: return QMessageBox::Question;
        case BoxIcon::information: return QMessageBox::Information;
        case BoxIcon::none: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons shownButtons(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::yesNo: return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::ok: break;
    }
    return QMessageBox::Ok;
}

BoxAnswer answerOf(int button, BoxButtons buttons) {
    switch (button) {
        case QMessageBox::Ok: return BoxAnswer::ok;
        case QMessageBox::Yes: return BoxAnswer::yes;
        case QMessageBox::No: return BoxAnswer::no;
        default: return cancellingAnswer(buttons);
    }
}

QMessageBox::StandardButton escape(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::okCancel: return QMessageBox::Cancel;
        case BoxButtons::yesNo: return QMessageBox::No;
        case BoxButtons::ok: break;
    }
    return QMessageBox::Ok;
}

}  // namespace

QtHost::QtHost(Machine& machine, UserHand& hand)
    : machine_(machine), hand_(hand), shellLinks_(machine.platform()) {
    sinceYield_.start();
}

BoxAnswer QtHost::MsgBox(const Box& box) {
    QMessageBox dialog(shownIcon(box.icon), shown(box.title), shownLines(box.text),
                       shownButtons(box.buttons), QApplication::activeWindow());
    dialog.setTextFormat(Qt::PlainText);
    dialog.setEscapeButton(escape(box.buttons));
    dialog.setObjectName(QStringLiteral("MsgBox"));
    const BoxAnswer answer = answerOf(dialog.exec(), box.buttons);
    // The program may have ended behind the box.
    hand_.throwWhenEnded();
    return answer;
}

std::string QtHost::BrowseForFolder(const std::string& title) {
    const auto chosen =
        shellLinks_.prcBrowseForFolder("Form1", title, [] { QApplication::processEvents(); });
    hand_.throwWhenEnded();
    if (chosen) return *chosen;
    const QString path = QFileDialog::getExistingDirectory(QApplication::activeWindow(), shown(title));
    hand_.throwWhenEnded();
    return path.isEmpty() ? std::string{} : machine_.toDrivePath(typed(path));
}

std::string QtHost::OpenFileDialog(const std::string& title, const std::string& initialFolder) {
    const QString path = QFileDialog::getOpenFileName(
        QApplication::activeWindow(), shown(title), shown(machine_.toHostPath(initialFolder)));
    hand_.throwWhenEnded();
    return path.isEmpty() ? std::string{} : machine_.toDrivePath(typed(path));
}

void QtHost::DoEvents() {
    if (sinceYield_.elapsed() < yieldInterval) return;
    QApplication::processEvents();
    sinceYield_.start();
    hand_.throwWhenEnded();
}

}  // namespace velmora::qt
