// The drive inspection as one part of the program.
#pragma once

#include "inspect/drive_info.h"
#include "inspect/ports.h"
#include "inspect/wait_test.h"

namespace velmora {

class Inspect {
  public:
    /// Connects the handlers to the forms. All of the arguments must outlive it.
    Inspect(Forms& forms, Platform& platform, Host& host, AlertSink& alerts)
        : waitTest_(forms.frmWaitTest, forms.globals, platform, host, alerts),
          driveInfo_(forms, platform, host) {}

    WaitTest& waitTest() { return waitTest_; }

  private:
    WaitTest waitTest_;
    DriveInfo driveInfo_;
};

}  // namespace velmora
