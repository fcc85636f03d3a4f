// The maker's pages, opened with the user's browser.
#pragma once

#include <string>

#include "forms/form1.h"
#include "platform/shell32.h"
#include "platform/show_window.h"

namespace velmora {

namespace maker_page {
inline constexpr const char* program = "/velmora/";
inline constexpr const char* help = "/velmora/help";
}  // namespace maker_page

/// Opens a file or an address with the program for it, on behalf of the main window. Its success
/// isn't looked at.
inline void openByShell(const Form1& form1, Shell32& shell32, const std::string& target) {
    shell32.ShellExecuteA(form1.Name(), "open", target, "", "", normalWindow);
}

/// Opens the page of that path on the maker's host.
void openMakerPage(const Form1& form1, Shell32& shell32, const std::string& path);

}  // namespace velmora
