#include "app/close_wish.h"

#include "app/windows/close_wish_name.h"

namespace velmora {

namespace {

// Set by others, and reset by each look. It lasts as long as the program.
HANDLE wishes = nullptr;

}  // namespace

bool openToCloseWishes() {
    const std::wstring name = windows::closeWishName(GetCurrentProcessId());
    if (!wishes) wishes = CreateEventW(nullptr, FALSE, FALSE, name.c_str());
    return wishes != nullptr;
}

bool takeCloseWish() {
    return wishes && WaitForSingleObject(wishes, 0) == WAIT_OBJECT_0;
}

}  // namespace velmora
