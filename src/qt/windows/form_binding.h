// Keeps a window and its form the same: title, visibility, size, state and place.
#pragma once

#include <QWidget>
#include <optional>

#include "controls/control.h"
#include "controls/form.h"
#include "qt/surface/refresher.h"
#include "qt/surface/user_hand.h"
#include "qt/windows/form_place.h"
#include "qt/windows/late_size.h"

namespace velmora::qt {

struct WindowKind {
    bool sized = false;       ///< the window has the size of the form
    bool keepsPlace = false;  ///< it comes again where the user has put it; so does a sized one
    /// Escape closes all but the main window, as their frame does; Enter presses their default
    /// button.
    WindowRole role = WindowRole::dialog;
};

class FormBinding : public QObject {
    Q_OBJECT
  public:
    /// Lives as long as the window.
    FormBinding(QWidget* window, Form& form, UserHand& hand, WindowKind kind = {});

    /// That of a window; null when it has none.
    static FormBinding* of(const QWidget* window);
    /// The main window, over which a dialog comes.
    void setMain(QWidget* window) { place_.setMain(window); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void raise();
    void refresh();
    void prepareShowing();
    void showVisibility();
    void showSize();
    void resizeTo(const QSize& size);
    bool isShownAs(const QSize& twips, const QSize& room) const;
    QSize formSize() const;
    void reportSize();
    void reportMove();
    void reportState();
    void takeFrame();
    bool takesKey(int key);

    QWidget* window_;
    Form& form_;
    UserHand& hand_;
    WindowKind kind_;
    FormPlace place_;
    std::optional<QSize> chosen_;  // twips: the form's size as the user has made it
    /// The last size that the program gave the form, and what the window made of it.
    struct {
        QSize twips;
        QSize pixels;
    } given_;
    LateSize late_;
    bool isDragged_ = false;  // the user has moved the window since the program has placed it
    bool applying_ = false;   // the window is being changed to the form's size or place
    bool isWaiting_ = false;  // the window could not get that size yet
    Refresher* refresher_;
    ScopedConnection raised_;
};

}  // namespace velmora::qt
