// The place of a window on the screen: the one that its form has, or the one that is found for it.
#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

#include "controls/form.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// What a window is to the others.
enum class WindowRole {
    main,    ///< the window system finds its first place
    dialog,  ///< belongs to the main window and comes over it, or in the middle of the screen
    notice,  ///< stands by itself with its lower right corner where the form has it, also when it
             ///< is larger than the form, and takes no keyboard
};

class FormPlace {
  public:
    /// With `isKept` the user's moves become the form's place, where it also comes again; a dialog
    /// is centred each time otherwise.
    FormPlace(QWidget& window, Form& form, WindowRole role, bool isKept);

    /// The main window, for the others.
    void setMain(QWidget* window) { main_ = window; }
    /// Before the window is shown: whose it is, and where it comes. Its size is known.
    void beforeShowing();
    /// Moves the window when the program has given the form another place.
    void show();
    /// The program means the form's place, wherever the window is now.
    void showAgain() { shown_.reset(); }
    /// The window was moved, and not by the program.
    void takeMove(UserHand& hand);
    /// Whether the window system has made the window's frame, or another one, since the last call.
    bool frameChanged();
    /// The greatest size of the window without its frame that its screen has room for.
    QSize room() const;

  private:
    void belongToMain();
    void moveTo(const QPoint& corner);
    void moveCorner();
    QRect frameOfForm() const;
    QRect centred() const;
    QSize frameSize() const;
    QRect screen() const;
    QWidget* visibleMain() const;

    QWidget& window_;
    Form& form_;
    WindowRole role_;
    bool isKept_;
    QPointer<QWidget> main_;
    std::optional<QPoint> shown_;  // twips: the form's place that the window was moved to last
    QMargins frame_;
};

}  // namespace velmora::qt
