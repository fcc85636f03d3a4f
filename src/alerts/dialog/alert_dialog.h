// The alert dialog's placing and showing.
#pragma once

namespace velmora {

class AlertDialog {
  public:
    virtual ~AlertDialog() = default;
    /// Places the dialog in the lower right corner of the work area and shows it.
    virtual void show() {}
};

}  // namespace velmora
