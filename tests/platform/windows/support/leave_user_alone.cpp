#include <windows.h>

#include "platform/contract/machine_under_test.h"
#include "platform/windows/support/environment.h"
#include "platform/windows/support/run_value.h"
#include "platform/windows/support/scratch_folder.h"

namespace velmora::contract {

namespace {

struct UserOfTests {
    windows::KeptRunValue run{L"VelmoraContract"};
    windows::ScratchFolder local;
    windows::Environment state{L"LOCALAPPDATA", windows::toUtf16(local.path())};
};

}  // namespace

std::shared_ptr<void> leaveUserAlone() {
    return std::make_shared<UserOfTests>();
}

}  // namespace velmora::contract
