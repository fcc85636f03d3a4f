// An alert: the fields of one alert by name, over a row of LVAlert. `ConstAlertRow` reads,
// `AlertRow` writes too. Both hold a reference to the row.
#pragma once

#include <string>
#include <utility>

#include "controls/list_item.h"

namespace velmora {

class ConstAlertRow {
  public:
    explicit ConstAlertRow(const ListItem& item) : item_(item) {}

    /// "High" or "Medium".
    const std::string& rating() const { return item_.Text(); }
    /// As the caller stamped it; there are several forms.
    const std::string& time() const { return item_.SubItems(columnTime); }
    /// May hold line breaks.
    const std::string& text() const { return item_.SubItems(columnText); }

  protected:
    // Sub-items.
    static constexpr int columnTime = 1;
    static constexpr int columnText = 2;

  private:
    const ListItem& item_;
};

class AlertRow : public ConstAlertRow {
  public:
    explicit AlertRow(ListItem& item) : ConstAlertRow(item), item_(item) {}

    void setTime(std::string time) { item_.setSubItems(columnTime, std::move(time)); }
    void setText(std::string text) { item_.setSubItems(columnText, std::move(text)); }

  private:
    ListItem& item_;
};

}  // namespace velmora
