// No box of the system for a thread.
#pragma once

#include <windows.h>

namespace velmora::windows {

/// As long as it lives, a drive without a medium is an answer for its thread: the system opens no
/// box that asks for one.
class QuietErrors {
  public:
    QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_); }
    ~QuietErrors() { SetThreadErrorMode(before_, nullptr); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

  private:
    DWORD before_ = 0;
};

}  // namespace velmora::windows
