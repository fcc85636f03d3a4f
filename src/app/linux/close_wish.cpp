#include "app/close_wish.h"

namespace velmora {

// The package manager replaces files of programs that run on.
bool openToCloseWishes() {
    return false;
}

bool takeCloseWish() {
    return false;
}

}  // namespace velmora
