#include <windows.h>

#include "platform/contract/machine_under_test.h"
#include "platform/windows/support/run_value.h"

namespace velmora::contract {

std::shared_ptr<void> leaveUserAlone() {
    return std::make_shared<windows::KeptRunValue>(L"VelmoraContract");
}

}  // namespace velmora::contract
