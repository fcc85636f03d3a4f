// Prints charts: the pages, the way to the system's printers, and what the user is told.
#pragma once

#include <functional>
#include <memory>

#include "base/date_time.h"
#include "platform/host.h"
#include "qt/print/printout.h"
#include "qt/surface/user_hand.h"
#include "qt/system/print_system.h"

namespace velmora::qt {

class Printing {
  public:
    /// Without a system nothing can be printed. Host and hand must outlive it.
    Printing(std::unique_ptr<PrintSystem> system, Host& host, UserHand& hand,
             std::function<DateTime()> now);

    bool isOffered() const { return system_ != nullptr; }
    DateTime now() const { return now_(); }
    const Regional& regional() const { return hand_.regional(); }
    /// Asks in front of a window for a printer and prints. A box says what went wrong. To be called
    /// by the user's hand.
    void print(QWidget* window, Printout printout);

  private:
    std::unique_ptr<PrintSystem> system_;
    Host& host_;
    UserHand& hand_;
    std::function<DateTime()> now_;
};

}  // namespace velmora::qt
