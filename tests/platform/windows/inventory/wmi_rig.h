// A source of management records that plays what a test tells it.
#pragma once

#include <windows.h>

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/windows/inventory/windows_wmi.h"
#include "platform/windows/support/scripted_component.h"
#include "platform/windows/system/utf16.h"

#undef GetObject

namespace velmora::tests::windows {

/// A place where a call waits until the test lets go.
class Barrier {
  public:
    void wait() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isOpen_; });
    }
    void open() {
        const std::lock_guard lock(mutex_);
        isOpen_ = true;
        changed_.notify_all();
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool isOpen_ = false;
};

/// A property, or a method without arguments that the test looks at.
using Maker = std::function<HRESULT(VARIANT& result)>;

/// What the source plays. All of it is set before the first call; what a call notes is read after
/// the call has returned.
struct WmiScript {
    std::shared_ptr<Census> census = std::make_shared<Census>();
    std::vector<std::map<std::wstring, Maker>> records;  ///< of each query
    std::map<std::wstring, Maker> atPath;                ///< the record at each path
    HRESULT queryFails = S_OK;
    HRESULT enumerationFails = S_OK;
    HRESULT nextFails = S_OK;  ///< after the last record
    HRESULT getFails = S_OK;
    bool hasLocator = true;
    std::shared_ptr<Barrier> nextWaits;       ///< where the reading of each record waits
    std::vector<std::wstring> unbound;        ///< the monikers that bind to nothing
    std::function<void()> atBinding = [] {};  ///< run on the thread of the connection
    std::vector<std::string> calls;           ///< of methods, with their arguments
    std::vector<WORD> propertyFlags;          ///< how each property was asked for
    int recordsRead = 0;
};

/// The texts and numbers that a method was handed, in their order.
inline std::string argumentTexts(const DISPPARAMS& arguments) {
    std::string texts;
    for (UINT i = arguments.cArgs; i > 0; --i) {
        const VARIANT& each = arguments.rgvarg[i - 1];
        texts += " [" +
                 (each.vt == VT_BSTR
                      ? velmora::windows::toUtf8({each.bstrVal, SysStringLen(each.bstrVal)})
                      : std::to_string(each.lVal)) +
                 ']';
    }
    return texts;
}

inline ComReference<IDispatch> scriptedRecord(const std::shared_ptr<WmiScript>& script,
                                              const std::map<std::wstring, Maker>& properties) {
    Members members;
    for (const auto& [name, make] : properties) {
        members[name] = [script, make](WORD flags, const DISPPARAMS& /*none*/, VARIANT& result) {
            script->propertyFlags.push_back(flags);
            return make(result);
        };
    }
    return ScriptedObject::make(script->census, std::move(members));
}

inline ComReference<IEnumVARIANT> scriptedRecords(const std::shared_ptr<WmiScript>& script) {
    const auto next = std::make_shared<std::size_t>(0);
    return ScriptedEnumeration::make(script->census, [script, next](VARIANT& value) {
        if (script->nextWaits) script->nextWaits->wait();
        if (*next == script->records.size())
            return FAILED(script->nextFails) ? script->nextFails : S_FALSE;
        ++script->recordsRead;
        give(scriptedRecord(script, script->records[(*next)++]), value);
        return S_OK;
    });
}

inline ComReference<IDispatch> scriptedSet(const std::shared_ptr<WmiScript>& script) {
    return ScriptedObject::make(
        script->census, {{L"", [script](WORD flags, const DISPPARAMS& /*none*/, VARIANT& result) {
                              script->propertyFlags.push_back(flags);
                              if (FAILED(script->enumerationFails)) return script->enumerationFails;
                              give(scriptedRecords(script), result);
                              return S_OK;
                          }}});
}

inline ComReference<IDispatch> scriptedServices(const std::shared_ptr<WmiScript>& script) {
    const Member query = [script](WORD /*flags*/, const DISPPARAMS& arguments, VARIANT& result) {
        script->calls.push_back("ExecQuery" + argumentTexts(arguments));
        if (FAILED(script->queryFails)) return script->queryFails;
        give(scriptedSet(script), result);
        return S_OK;
    };
    const Member get = [script](WORD /*flags*/, const DISPPARAMS& arguments, VARIANT& result) {
        script->calls.push_back("Get" + argumentTexts(arguments));
        if (FAILED(script->getFails)) return script->getFails;
        give(scriptedRecord(script, script->atPath), result);
        return S_OK;
    };
    return ScriptedObject::make(script->census, {{L"ExecQuery", query}, {L"Get", get}});
}

inline ComReference<IDispatch> scriptedLocator(const std::shared_ptr<WmiScript>& script) {
    return ScriptedObject::make(
        script->census,
        {{L"ConnectServer", [script](WORD /*flags*/, const DISPPARAMS& arguments, VARIANT& result) {
              script->calls.push_back("ConnectServer" + argumentTexts(arguments));
              give(scriptedServices(script), result);
              return S_OK;
          }}});
}

inline velmora::windows::WmiSource sourceOf(const std::shared_ptr<WmiScript>& script) {
    return {.bind =
                [script](const std::wstring& moniker) {
                    script->calls.push_back("bind " + velmora::windows::toUtf8(moniker));
                    script->atBinding();
                    const auto& unbound = script->unbound;
                    const bool binds =
                        std::find(unbound.begin(), unbound.end(), moniker) == unbound.end();
                    return binds ? scriptedServices(script) : ComReference<IDispatch>();
                },
            .locator =
                [script] {
                    return script->hasLocator ? scriptedLocator(script) : ComReference<IDispatch>();
                }};
}

inline Maker wmiText(const wchar_t* text) {
    return [text](VARIANT& result) {
        result.bstrVal = SysAllocString(text);
        result.vt = VT_BSTR;
        return S_OK;
    };
}

}  // namespace velmora::tests::windows
