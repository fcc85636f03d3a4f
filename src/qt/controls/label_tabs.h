// A strip of labels that act as tabs: one stop of the Tab key, whose arrow keys change the page.
#pragma once

#include <span>

#include "qt/controls/label_button.h"
#include "qt/controls/one_stop.h"

namespace velmora::qt {

class LabelTabs : public QWidget {
    Q_OBJECT
  public:
    /// `name` is what the strip chooses from, for a screen reader.
    LabelTabs(std::span<Label> labels, UserHand& hand, LabelButton::Shape shape,
              const QString& name, QWidget* parent = nullptr);

  private:
    void followSelection();

    std::vector<LabelButton*> tabs_;
    OneStop* stop_ = nullptr;
};

}  // namespace velmora::qt
