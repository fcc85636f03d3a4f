#include "platform/windows/system/com_apartment.h"

#include <objbase.h>
#include <windows.h>

namespace velmora::windows {

namespace {

DWORD modelOf(ApartmentKind kind) {
    return kind == ApartmentKind::ownThread ? COINIT_APARTMENTTHREADED : COINIT_MULTITHREADED;
}

}  // namespace

ComApartment::ComApartment(ApartmentKind kind)
    : isOurs_(SUCCEEDED(CoInitializeEx(nullptr, modelOf(kind) | COINIT_DISABLE_OLE1DDE))) {}

ComApartment::~ComApartment() {
    if (isOurs_) CoUninitialize();
}

}  // namespace velmora::windows
