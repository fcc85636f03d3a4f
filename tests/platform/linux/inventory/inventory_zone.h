// A time zone for one test.
#pragma once

#include <time.h>

#include <string>

#include "platform/linux/support/environment.h"

namespace velmora::linuxhost {

class InventoryZone {
    // Read again once the variable is what it was before.
    struct ReadAgain {
        ReadAgain() = default;
        ~ReadAgain() { tzset(); }
        ReadAgain(const ReadAgain&) = delete;
        ReadAgain& operator=(const ReadAgain&) = delete;
    };

  public:
    explicit InventoryZone(const std::string& zone) : variable_("TZ", zone) { tzset(); }

  private:
    ReadAgain last_;
    Environment variable_;
};

}  // namespace velmora::linuxhost
