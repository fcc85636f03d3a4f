// A library of the system that may be missing.
#pragma once

#include <windows.h>

namespace velmora::windows {

/// Loaded at the first look for a function, from the system's own folder only, and then kept.
class SystemLibrary {
  public:
    explicit SystemLibrary(const wchar_t* name) : name_(name) {}
    ~SystemLibrary() {
        if (module_) FreeLibrary(module_);
    }
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    /// Null when the library or the function isn't there.
    template <typename Function>
    Function* function(const char* name) {
        if (!module_) module_ = LoadLibraryExW(name_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        const FARPROC found = module_ ? GetProcAddress(module_, name) : nullptr;
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(found));
    }

  private:
    const wchar_t* name_;
    HMODULE module_ = nullptr;
};

}  // namespace velmora::windows
