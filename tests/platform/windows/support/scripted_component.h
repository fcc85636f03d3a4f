// Components that play what a test tells them, and note who calls them.
#pragma once

#include <windows.h>
// After the one above, which they need.
#include <oaidl.h>

#include <atomic>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/windows/system/com_reference.h"

namespace velmora::tests::windows {

using velmora::windows::ComReference;

/// How many components there are, and the threads that have touched one.
class Census {
  public:
    int alive() const { return alive_; }
    std::set<std::thread::id> callers() const {
        const std::lock_guard lock(mutex_);
        return callers_;
    }
    void add(int change) { alive_ += change; }
    void noteCaller() {
        const std::lock_guard lock(mutex_);
        callers_.insert(std::this_thread::get_id());
    }

  private:
    mutable std::mutex mutex_;
    std::set<std::thread::id> callers_;
    std::atomic<int> alive_ = 0;
};

#pragma GCC diagnostic push
// The system's interfaces have no virtual destructor; components delete themselves.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// What all components have: references, and one interface besides the general one.
template <typename Interface>
class CountedComponent : public Interface {
  public:
    explicit CountedComponent(std::shared_ptr<Census> census) : census_(std::move(census)) {
        census_->add(1);
    }
    CountedComponent(const CountedComponent&) = delete;
    CountedComponent& operator=(const CountedComponent&) = delete;

    HRESULT WINAPI QueryInterface(REFIID wanted, void** place) override {
        census_->noteCaller();
        const bool isKnown = wanted == __uuidof(IUnknown) || wanted == __uuidof(Interface);
        *place = isKnown ? this : nullptr;
        if (isKnown) this->AddRef();
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG WINAPI AddRef() override {
        census_->noteCaller();
        return ++references_;
    }
    ULONG WINAPI Release() override {
        census_->noteCaller();
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

  protected:
    virtual ~CountedComponent() { census_->add(-1); }

  private:
    std::shared_ptr<Census> census_;
    std::atomic<ULONG> references_ = 1;
};

/// A member of a component: it is handed how it is called and with what, from the last to the
/// first argument, and makes a result.
using Member = std::function<HRESULT(WORD flags, const DISPPARAMS& arguments, VARIANT& result)>;
using Members = std::map<std::wstring, Member>;

/// A component with members by name. The one named "" is what its records are got by.
class ScriptedObject final : public CountedComponent<IDispatch> {
  public:
    static ComReference<IDispatch> make(std::shared_ptr<Census> census, Members members) {
        return ComReference<IDispatch>(new ScriptedObject(std::move(census), std::move(members)));
    }

    HRESULT WINAPI GetTypeInfoCount(UINT* /*count*/) override { return E_NOTIMPL; }
    HRESULT WINAPI GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** /*info*/) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT /*count*/,
                                 LCID /*locale*/, DISPID* members) override {
        const auto found = members_.find(names[0]);
        if (found == members_.end()) return DISP_E_UNKNOWNNAME;
        members[0] = 1 + static_cast<DISPID>(std::distance(members_.begin(), found));
        return S_OK;
    }
    HRESULT WINAPI Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                          DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* /*exception*/,
                          UINT* /*wrong*/) override {
        const auto found =
            member == DISPID_NEWENUM ? members_.find(L"") : std::next(members_.begin(), member - 1);
        return found == members_.end() ? DISP_E_MEMBERNOTFOUND
                                       : found->second(flags, *arguments, *result);
    }

  private:
    ScriptedObject(std::shared_ptr<Census> census, Members members)
        : CountedComponent(std::move(census)), members_(std::move(members)) {}

    Members members_;
};

/// An enumeration whose values a function makes, one a call; it gives S_FALSE at the end.
class ScriptedEnumeration final : public CountedComponent<IEnumVARIANT> {
  public:
    using Source = std::function<HRESULT(VARIANT& value)>;

    static ComReference<IEnumVARIANT> make(std::shared_ptr<Census> census, Source source) {
        return ComReference<IEnumVARIANT>(
            new ScriptedEnumeration(std::move(census), std::move(source)));
    }

    HRESULT WINAPI Next(ULONG /*count*/, VARIANT* values, ULONG* fetched) override {
        const HRESULT result = source_(values[0]);
        *fetched = result == S_OK ? 1 : 0;
        return result;
    }
    HRESULT WINAPI Skip(ULONG /*count*/) override { return E_NOTIMPL; }
    HRESULT WINAPI Reset() override { return E_NOTIMPL; }
    HRESULT WINAPI Clone(IEnumVARIANT** /*copy*/) override { return E_NOTIMPL; }

  private:
    ScriptedEnumeration(std::shared_ptr<Census> census, Source source)
        : CountedComponent(std::move(census)), source_(std::move(source)) {}

    Source source_;
};

#pragma GCC diagnostic pop

/// Puts a component into a result, which owns it then.
inline void give(ComReference<IDispatch> component, VARIANT& result) {
    component->AddRef();
    result.pdispVal = component.get();
    result.vt = VT_DISPATCH;
}
inline void give(ComReference<IEnumVARIANT> component, VARIANT& result) {
    component->AddRef();
    result.punkVal = component.get();
    result.vt = VT_UNKNOWN;
}

}  // namespace velmora::tests::windows
