#include "platform/windows/inventory/late_bound.h"

#include <utility>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

// Some objects know a property only when it is asked for as both, which is what scripts do.
constexpr WORD asScriptsRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

BSTR copied(const std::wstring& text) {
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

std::string textOf(BSTR text) {
    return toUtf8({text, SysStringLen(text)});
}

HRESULT memberOf(IDispatch& object, std::wstring name, DISPID& member) {
    LPOLESTR names = name.data();
    return object.GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
}

HRESULT invoke(IDispatch& object, DISPID member, WORD flags, DISPPARAMS& arguments,
               ScriptValue& result) {
    return object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &arguments, result.place(),
                         nullptr, nullptr);
}

WmiValue convertedOf(const VARIANT& value) {
    ScriptValue text;
    // The call takes a value that it doesn't change.
    auto* const source = const_cast<VARIANT*>(&value);
    if (FAILED(VariantChangeTypeEx(text.place(), source, LOCALE_USER_DEFAULT, 0, VT_BSTR)))
        return {};
    return WmiValue::of(textOf(text.get().bstrVal));
}

}  // namespace

ScriptValue::ScriptValue(const std::wstring& text) : ScriptValue() {
    value_.bstrVal = copied(text);
    value_.vt = VT_BSTR;
}

ScriptValue::ScriptValue(long number) : ScriptValue() {
    value_.lVal = number;
    value_.vt = VT_I4;
}

ScriptValue::ScriptValue(ScriptValue&& other) noexcept : value_(other.value_) {
    VariantInit(&other.value_);
}

ComReference<IUnknown> ScriptValue::component() const {
    if (value_.vt != VT_DISPATCH && value_.vt != VT_UNKNOWN) return {};
    if (value_.punkVal) value_.punkVal->AddRef();
    return ComReference<IUnknown>(value_.punkVal);
}

HRESULT callMethod(IDispatch& object, const std::wstring& name,
                   const std::vector<ScriptValue>& arguments, ScriptValue& result) {
    DISPID member = DISPID_UNKNOWN;
    if (const HRESULT found = memberOf(object, name, member); FAILED(found)) return found;
    // Arguments are handed over from the last to the first; they stay the caller's.
    std::vector<VARIANT> reversed;
    for (auto each = arguments.rbegin(); each != arguments.rend(); ++each)
        reversed.push_back(each->get());
    DISPPARAMS handed{};
    handed.rgvarg = reversed.data();
    handed.cArgs = static_cast<UINT>(reversed.size());
    return invoke(object, member, DISPATCH_METHOD, handed, result);
}

HRESULT readProperty(IDispatch& object, const std::wstring& name, ScriptValue& result) {
    DISPID member = DISPID_UNKNOWN;
    const HRESULT found = memberOf(object, name, member);
    return FAILED(found) ? found : readProperty(object, member, result);
}

HRESULT readProperty(IDispatch& object, DISPID member, ScriptValue& result) {
    DISPPARAMS none{};
    return invoke(object, member, asScriptsRead, none, result);
}

WmiValue wmiValueOf(const VARIANT& value) {
    using Kind = WmiValue::Kind;
    if ((value.vt & VT_ARRAY) != 0) return {Kind::array, {}};
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {Kind::null, {}};
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return {Kind::array, {}};
        case VT_BSTR:
            return WmiValue::of(textOf(value.bstrVal));
        case VT_BOOL:
            return WmiValue::of(value.boolVal == VARIANT_FALSE ? "False" : "True");
        default:
            return convertedOf(value);
    }
}

}  // namespace velmora::windows
