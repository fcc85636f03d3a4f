#include "platform/windows/inventory/wmi_source.h"

#include <objbase.h>

namespace velmora::windows {

namespace {

ComReference<IDispatch> boundTo(const std::wstring& moniker) {
    ComReference<IDispatch> services;
    if (FAILED(CoGetObject(moniker.c_str(), nullptr, IID_IDispatch, services.untypedPlace())))
        return {};
    return services;
}

ComReference<IDispatch> newLocator() {
    CLSID locatorClass{};
    ComReference<IDispatch> locator;
    if (FAILED(CLSIDFromProgID(L"WbemScripting.SWbemLocator", &locatorClass)) ||
        FAILED(CoCreateInstance(locatorClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                locator.untypedPlace())))
        return {};
    return locator;
}

}  // namespace

WmiSource systemWmi() {
    return {.bind = boundTo, .locator = newLocator};
}

}  // namespace velmora::windows
