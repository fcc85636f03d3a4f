// Components whose members are looked up by name when they are used, as scripts do it.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <oaidl.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/system/com_reference.h"
#include "platform/wmi.h"

namespace velmora::windows {

/// A value of a script that is freed with its owner.
class ScriptValue {
  public:
    ScriptValue() { VariantInit(&value_); }
    explicit ScriptValue(const std::wstring& text);
    explicit ScriptValue(long number);
    ~ScriptValue() { VariantClear(&value_); }
    ScriptValue(ScriptValue&& other) noexcept;
    ScriptValue& operator=(ScriptValue&&) = delete;
    ScriptValue(const ScriptValue&) = delete;
    ScriptValue& operator=(const ScriptValue&) = delete;

    const VARIANT& get() const { return value_; }
    /// Where a call puts a value that it makes.
    VARIANT* place() {
        VariantClear(&value_);
        return &value_;
    }
    /// The component that it is; none when it is none.
    ComReference<IUnknown> component() const;

  private:
    VARIANT value_;
};

/// Calls a method with its arguments in order.
HRESULT callMethod(IDispatch& object, const std::wstring& name,
                   const std::vector<ScriptValue>& arguments, ScriptValue& result);

/// Reads a property.
HRESULT readProperty(IDispatch& object, const std::wstring& name, ScriptValue& result);
HRESULT readProperty(IDispatch& object, DISPID member, ScriptValue& result);

/// A value as far as a text can be made of it, in the user's form of numbers and times. A component
/// is no more a text than an array is; a value that has no text counts as missing.
WmiValue wmiValueOf(const VARIANT& value);

}  // namespace velmora::windows
