// The view on the recycle bin and the scheduled tasks: both are shown by the system's shell.
#pragma once

#include "forms/dialogs.h"
#include "platform/shell32.h"

namespace velmora {

class RecycleBinView {
  public:
    /// Connects the buttons.
    RecycleBinView(Icon1& icon1, Shell32& shell32);
    RecycleBinView(const RecycleBinView&) = delete;
    RecycleBinView& operator=(const RecycleBinView&) = delete;

    /// Failures of both are passed over.
    void RecycleBin();
    void ScheduledTasks();

  private:
    void explore(const char* place);

    Icon1& icon1_;
    Shell32& shell32_;
};

}  // namespace velmora
