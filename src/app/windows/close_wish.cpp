#include "app/close_wish.h"

#include <windows.h>
// After the one above, which it needs.
#include <sddl.h>

#include <memory>
#include <string>

#include "app/windows/close_wish_name.h"

namespace velmora {

namespace {

// Set by others, and reset by each look: a sleep that it ends leaves it as it is. It lasts as long
// as the program.
HANDLE wishes = nullptr;

// Everything for the owner (OW); for administrators (BA) and the system (SY), who may install for
// another user, EVENT_MODIFY_STATE and SYNCHRONIZE.
constexpr const wchar_t* whoMayWish = L"D:(A;;GA;;;OW)(A;;0x100002;;;BA)(A;;0x100002;;;SY)";
static_assert((EVENT_MODIFY_STATE | SYNCHRONIZE) == 0x100002);

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

HANDLE makeEvent(const std::wstring& name) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(whoMayWish, SDDL_REVISION_1, &descriptor,
                                                         nullptr);
    const std::unique_ptr<void, FreeLocal> freed(descriptor);
    // Without one the system's own is taken: those of the same user can still wish.
    SECURITY_ATTRIBUTES attributes{sizeof attributes, descriptor, FALSE};
    return CreateEventW(&attributes, TRUE, FALSE, name.c_str());
}

}  // namespace

bool openToCloseWishes() {
    if (!wishes) wishes = makeEvent(windows::closeWishName(GetCurrentProcessId()));
    return wishes != nullptr;
}

bool takeCloseWish() {
    if (!wishes || WaitForSingleObject(wishes, 0) != WAIT_OBJECT_0) return false;
    ResetEvent(wishes);
    return true;
}

}  // namespace velmora
