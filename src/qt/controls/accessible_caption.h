// A caption that shows a value, such as a figure, for a screen reader: its name says what the value
// is, and its text is the value.
#pragma once

#include <QLabel>

namespace velmora::qt {

/// A label whose text is the value of its accessible name. Without one its text is its name, as of
/// any label.
class CaptionLabel : public QLabel {
    Q_OBJECT
  public:
    using QLabel::QLabel;
};

/// Makes captions and shortened texts known; may be called more than once.
void makeCaptionsAccessible();

}  // namespace velmora::qt
