#include "platform/windows/desktop/windows_wscript_shell.h"

#include <windows.h>
// After the one above, which they need.
#include <shlguid.h>
#include <shlobj.h>

#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/windows/desktop/shortcut_fields.h"
#include "platform/windows/files/windows_text_files.h"
#include "platform/windows/programs/console_text.h"
#include "platform/windows/programs/program_output.h"
#include "platform/windows/system/com_reference.h"
#include "platform/windows/system/system_errors.h"
#include "platform/windows/system/utf16.h"

namespace velmora::windows {

namespace {

void require(HRESULT result) {
    if (FAILED(result)) throw RuntimeError(errorOfSaving(result));
}

class LinkShortcut final : public Shortcut {
  public:
    explicit LinkShortcut(std::string file) : file_(std::move(file)) {}

    void Save() override {
        ComReference<IShellLinkW> link;
        require(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                 link.untypedPlace()));
        const auto icon = iconOf(IconLocation);
        require(link->SetPath(toUtf16(TargetPath).c_str()));
        require(link->SetArguments(toUtf16(Arguments).c_str()));
        require(link->SetDescription(toUtf16(Description).c_str()));
        require(link->SetWorkingDirectory(toUtf16(WorkingDirectory).c_str()));
        require(link->SetShowCmd(WindowStyle));
        require(link->SetHotkey(hotKeyOf(HotKey)));
        if (!icon.first.empty())
            require(link->SetIconLocation(toUtf16(icon.first).c_str(), icon.second));
        ComReference<IPersistFile> file;
        require(link->QueryInterface(IID_IPersistFile, file.untypedPlace()));
        require(file->Save(fullPath(file_).c_str(), TRUE));
    }

  private:
    std::string file_;
};

class AddressShortcut final : public Shortcut {
  public:
    explicit AddressShortcut(std::string file) : file_(std::move(file)) {}
    void Save() override { WindowsTextFiles().writeOver(file_, addressFileText(TargetPath)); }

  private:
    std::string file_;
};

class StartedProgram final : public WshExec {
  public:
    explicit StartedProgram(const std::string& command) : output_(command) {}
    std::string ReadAll() override { return consoleText(output_.readAll()); }

  private:
    ProgramOutput output_;
};

}  // namespace

std::unique_ptr<WshExec> WindowsWScriptShell::Exec(const std::string& command) {
    return std::make_unique<StartedProgram>(command);
}

std::unique_ptr<Shortcut> WindowsWScriptShell::CreateShortcut(const std::string& file) {
    const std::string name = lowerCase(file);
    if (name.ends_with(".lnk")) return std::make_unique<LinkShortcut>(file);
    if (name.ends_with(".url")) return std::make_unique<AddressShortcut>(file);
    return nullptr;
}

}  // namespace velmora::windows
