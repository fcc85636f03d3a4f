#include "platform/windows/desktop/folder_dialog.h"

// After the one above, which brings what it needs.
#include <shlobj.h>

#include <exception>

#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

constexpr const wchar_t* propertyName = L"velmora.whileOpen";
constexpr UINT period = 20;  // milliseconds

// What runs while the dialog is open. Its first failure closes the dialog: nothing may be thrown
// through the system's own calls.
struct Beside {
    const std::function<void()>& run;
    std::exception_ptr failure;
    bool isRunning = false;

    void step(HWND dialog) {
        // run() may process messages, this timer's too.
        if (isRunning || failure) return;
        isRunning = true;
        try {
            run();
        } catch (...) {
            failure = std::current_exception();
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
        isRunning = false;
    }
};

void CALLBACK onTimer(HWND dialog, UINT, UINT_PTR, DWORD) {
    auto* beside = static_cast<Beside*>(GetPropW(dialog, propertyName));
    if (beside) beside->step(dialog);
}

// The timer ends with the dialog.
int CALLBACK onDialog(HWND dialog, UINT message, LPARAM, LPARAM data) {
    if (message != BFFM_INITIALIZED) return 0;
    SetPropW(dialog, propertyName, reinterpret_cast<HANDLE>(data));
    SetTimer(dialog, reinterpret_cast<UINT_PTR>(propertyName), period, onTimer);
    return 0;
}

}  // namespace

UniqueItems showFolderDialog(const BrowseInfo& info) {
    const std::wstring title = toUtf16(info.title);
    Beside beside{info.whileOpen, nullptr};
    BROWSEINFOW dialog{};
    dialog.hwndOwner = GetActiveWindow();
    dialog.lpszTitle = title.c_str();
    dialog.ulFlags = info.flags;
    if (info.whileOpen) {
        dialog.lpfn = onDialog;
        dialog.lParam = reinterpret_cast<LPARAM>(&beside);
    }
    UniqueItems items(SHBrowseForFolderW(&dialog));
    if (beside.failure) std::rethrow_exception(beside.failure);
    return items;
}

}  // namespace velmora::windows
