// Keeps a window and its form the same: title, visibility, size and state, and the place that the
// program gives to the form.
#pragma once

#include <QPoint>
#include <QWidget>

#include "controls/control.h"
#include "controls/form.h"
#include "qt/surface/refresher.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

struct WindowKind {
    bool sized = false;  ///< the window has the size of the form
    bool dialog = true;  ///< Escape closes it, as its frame does; Enter presses its default button
};

class FormBinding : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as the window.
    FormBinding(QWidget* window, Form& form, UserHand& hand, WindowKind kind = {});

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void raise();
    void refresh();
    void showVisibility();
    void showSize();
    void showPlace();
    void placeAgain();
    void reportSize();
    void reportState();
    bool takesKey(int key);

    QWidget* window_;
    Form& form_;
    UserHand& hand_;
    WindowKind kind_;
    QPoint place_;            // twips, as shown last; null when the window system has chosen it
    bool isDragged_ = false;  // the user has moved the window since
    bool applying_ = false;   // the window is being changed to the form's size
    bool isWaiting_ = false;  // the window could not get that size yet
    Refresher* refresher_;
    ScopedConnection raised_;
};

}  // namespace velmora::qt
