#include "platform/windows/system/com_apartment.h"

#include <objbase.h>
#include <windows.h>

namespace velmora::windows {

ComApartment::ComApartment()
    : isOurs_(
          SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE))) {}

ComApartment::~ComApartment() {
    if (isOurs_) CoUninitialize();
}

}  // namespace velmora::windows
