// Keeps a window in line with its form: title, visibility, size and state both ways, and the place
// that the program gives it.
#pragma once

#include <QPoint>
#include <QWidget>

#include "controls/control.h"
#include "controls/form.h"
#include "qt/surface/refresher.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

struct WindowKind {
    bool sized = false;  ///< the form's measures are the window's
    bool dialog = true;  ///< Escape closes it, as its frame does; Enter presses its default button
};

class FormBinding : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as the window.
    FormBinding(QWidget* window, Form& form, UserHand& hand, WindowKind kind = {});

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void refresh();
    void showVisibility();
    void showSize();
    void showPlace();
    void placeAgain();
    void tellSize();
    void tellState();
    bool takesKey(int key);

    QWidget* window_;
    Form& form_;
    UserHand& hand_;
    WindowKind kind_;
    QPoint place_;            // twips, as shown last; none for the window system's own
    bool isDragged_ = false;  // the user has put it elsewhere since
    bool applying_ = false;   // the form's size is being given to the window
    bool isWaiting_ = false;  // the window could not take it yet
    Refresher* refresher_;
};

}  // namespace velmora::qt
