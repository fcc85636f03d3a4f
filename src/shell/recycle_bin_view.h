// The view on the recycle bin and the scheduled tasks: both are shown by the system's shell.
#pragma once

#include "forms/forms.h"
#include "platform/shell32.h"

namespace velmora {

class RecycleBinView {
  public:
    /// Connects the buttons.
    RecycleBinView(Forms& forms, Shell32& shell32);
    RecycleBinView(const RecycleBinView&) = delete;
    RecycleBinView& operator=(const RecycleBinView&) = delete;

    /// Failures of both are passed over.
    void RecycleBin();
    void ScheduledTasks();

  private:
    void explore(const char* place);

    Forms& forms_;
    Shell32& shell32_;
};

}  // namespace velmora
