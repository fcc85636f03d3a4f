// Answers the message boxes of the window as a user does: by a click on a button of the box.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <vector>

namespace velmora::tests {

class BoxHand {
  public:
    struct Seen {
        std::string title;
        std::string text;
        QMessageBox::Icon icon;
    };

    BoxHand() { lookAgain(); }
    BoxHand(const BoxHand&) = delete;
    BoxHand& operator=(const BoxHand&) = delete;

    /// The buttons for the next boxes. A box that finds none left is unexpected, fails the test and
    /// is dismissed.
    std::deque<QMessageBox::StandardButton> answers;
    /// Runs once while the next box is open, in place of an answer.
    std::function<void(QMessageBox&)> onBox;
    /// The boxes so far, in order.
    std::vector<Seen> seen;

    std::string lastText() const { return seen.empty() ? std::string() : seen.back().text; }

  private:
    // A timer doesn't fire again within its own handler, and a box can open over another.
    void lookAgain() {
        QTimer::singleShot(1, &context_, [this] { look(); });
    }

    void look() {
        lookAgain();
        const QPointer<QMessageBox> box =
            qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box.isNull() || !box->isVisible() || box == answering_) return;
        const QPointer<QMessageBox> before = std::exchange(answering_, box);
        seen.push_back({box->windowTitle().toStdString(), box->text().toStdString(), box->icon()});
        if (const auto act = std::exchange(onBox, {})) {
            act(*box);
        } else {
            answer(*box);
        }
        answering_ = before;
    }

    void answer(QMessageBox& box) {
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected box: " << box.text().toStdString();
            box.reject();
            return;
        }
        QAbstractButton* button = box.button(answers.front());
        answers.pop_front();
        ASSERT_NE(button, nullptr) << box.text().toStdString();
        QTest::mouseClick(button, Qt::LeftButton);
    }

    QObject context_;
    QPointer<QMessageBox> answering_;
};

}  // namespace velmora::tests
