#include "platform/linux/desktop/linux_wscript_shell.h"

#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/linux/entries/replace_file.h"
#include "platform/linux/programs/program_file.h"
#include "platform/linux/programs/program_output.h"
#include "platform/linux/programs/shell_script.h"
#include "platform/linux/system/system_errors.h"

namespace velmora::linuxhost {

namespace {

void save(const std::string& hostPath, const std::string& content, mode_t mode) {
    const int failure = replaceFile(hostPath, content, mode);
    if (failure != 0) throw RuntimeError(errorOfEntry(failure));
}

class ScriptShortcut final : public Shortcut {
  public:
    ScriptShortcut(Volumes& volumes, std::string hostPath)
        : volumes_(volumes), hostPath_(std::move(hostPath)) {}

    void Save() override {
        const std::string target = volumes_.hostPathOf(TargetPath);
        if (target.empty()) throw RuntimeError(error::pathNotFound);
        save(hostPath_,
             startingScript(programFile(target), shortcutArguments(Arguments), Description), 0755);
    }

  private:
    Volumes& volumes_;
    std::string hostPath_;
};

class AddressShortcut final : public Shortcut {
  public:
    explicit AddressShortcut(std::string hostPath) : hostPath_(std::move(hostPath)) {}
    void Save() override { save(hostPath_, addressFileText(TargetPath), 0644); }

  private:
    std::string hostPath_;
};

}  // namespace

std::unique_ptr<WshExec> LinuxWScriptShell::Exec(const std::string& command) {
    return startWithOutput(outputCommand(command));
}

std::unique_ptr<Shortcut> LinuxWScriptShell::CreateShortcut(const std::string& file) {
    std::string hostPath = volumes_.hostPathOf(file);
    const std::string name = lowerCase(file);
    if (hostPath.empty()) return nullptr;
    if (name.ends_with(".lnk"))
        return std::make_unique<ScriptShortcut>(volumes_, std::move(hostPath));
    if (name.ends_with(".url")) return std::make_unique<AddressShortcut>(std::move(hostPath));
    return nullptr;
}

}  // namespace velmora::linuxhost
