// Keeps a window in line with its form: title, visibility, place, size and state, both ways.
#pragma once

#include <QWidget>

#include "controls/control.h"
#include "controls/form.h"
#include "qt/surface/refresher.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

class FormBinding : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as the window. With `sized` the form's measures are the window's.
    FormBinding(QWidget* window, Form& form, UserHand& hand, bool sized = false);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void refresh();
    void showVisibility();
    void showSize();
    void tellSize();
    void tellState();

    QWidget* window_;
    Form& form_;
    UserHand& hand_;
    bool sized_;
    bool applying_ = false;   // the form's size is being given to the window
    bool isWaiting_ = false;  // the window could not take it yet
    Refresher* refresher_;
};

}  // namespace velmora::qt
