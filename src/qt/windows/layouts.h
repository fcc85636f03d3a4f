// Small pieces from which the windows are laid out.
#pragma once

#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <initializer_list>

namespace velmora::qt {

/// Space between widgets and around groups, in pixels.
inline constexpr int gap = 6;

/// Lines of entries and words don't get longer than this, in pixels, in a wide window.
inline constexpr int widestPage = 960;

/// A box with a heading around a layout.
QGroupBox* group(const QString& heading, QLayout* content);
/// Widgets side by side; a null one takes the remaining width.
QHBoxLayout* row(std::initializer_list<QWidget*> widgets);
/// Widgets below each other.
QVBoxLayout* column(std::initializer_list<QWidget*> widgets);
/// Shows or hides a piece. One that has no place yet stays without a window of its own.
void setShown(QWidget* piece, bool isShown);
/// A word before a widget; also the accessible name of a widget without one.
QLabel* wordFor(const QString& word, QWidget* widget);
/// A page that scrolls when the window is too small for it.
QScrollArea* scrolled(QWidget* page);
/// A part of a window that lets the window be lower than the part needs, and scrolls up and down
/// then. It takes no keyboard: what it holds comes into view with the focus.
QScrollArea* yielding(QWidget* part);
/// A widget around a layout, without margins.
QWidget* around(QLayout* layout);

/// Two columns side by side while there is room for both, below each other otherwise.
class TwoColumns : public QWidget {
    Q_OBJECT
  public:
    TwoColumns(QWidget* first, QWidget* second, int roomForBoth, QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QBoxLayout* layout_;
    int roomForBoth_;
};

}  // namespace velmora::qt
