// Entry of a password that must not stay in memory: the widget holds a dot for each character, and
// only the field holds the characters.
#pragma once

#include <QLineEdit>

#include "controls/text_box.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class PasswordEdit : public QLineEdit {
    Q_OBJECT
  public:
    PasswordEdit(TextBox& field, UserHand& hand, QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void paste();
    void insertAtCaret(const QString& characters);
    void removeAtCaret(bool forward);
    /// Replaces `length` characters from `start` on.
    void replace(int start, int length, const QString& characters);
    void showDots();
    /// Gives the field what something else than the keyboard has put into the line.
    void takeOver();

    TextBox& field_;
    UserHand& hand_;
};

}  // namespace velmora::qt
