// A list of the shell's items that is freed with its owner.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <objbase.h>
#include <shtypes.h>

#include <memory>
#include <type_traits>

namespace velmora::windows {

struct FreeItems {
    void operator()(PIDLIST_ABSOLUTE items) const { CoTaskMemFree(items); }
};
/// Null for none.
using UniqueItems = std::unique_ptr<std::remove_pointer_t<PIDLIST_ABSOLUTE>, FreeItems>;

}  // namespace velmora::windows
