// The shell's calls, answered by this host's desktop.
#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/drives/volumes.h"
#include "platform/linux/programs/child_programs.h"
#include "platform/shell32.h"

namespace velmora::linuxhost {

class LinuxShell32 final : public Shell32 {
  public:
    explicit LinuxShell32(Volumes& volumes) : volumes_(volumes) {}

    std::int32_t SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) override;
    /// Addresses ("https:", "mailto:") and paths go to xdg-open for every operation; a program is
    /// run in its own folder. The disk cleaner ("cleanmgr") is the first of bleachbit, stacer and
    /// baobab that is installed, without parameters: none of them removes anything unasked.
    std::int32_t ShellExecuteA(const std::string& owner, const std::string& operation,
                               const std::string& file, const std::string& parameters,
                               const std::string& directory, std::int32_t showCommand) override;
    /// "properties" asks the file manager over the session bus; "open", "explore" and no verb at
    /// all are for xdg-open.
    bool ShellExecuteEx(const ShellExecuteInfo& info) override;
    /// By zenity or kdialog, which show only folders; the flags aren't used.
    Browse SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) override;
    /// The user's trash on that drive. Unless flag 1 is set, zenity or kdialog asks the user first;
    /// where neither can, that is a no.
    std::int32_t SHEmptyRecycleBinA(const std::string& owner, const std::string& root,
                                    std::uint32_t flags) override;

    std::int32_t SHFileOperationA(const FileOperation& operation) override;
    /// The text editor ("Notepad.exe") is the desktop's program for the file.
    void Shell(const std::string& commandLine, std::int32_t windowState) override;

  private:
    std::int32_t openDiskCleaner();
    /// Whether the program was started with the arguments in the text.
    bool run(const std::string& program, const std::string& arguments, const std::string& folder);
    /// The host's path of the program that the name means; empty when there is none.
    std::string programOf(const std::string& name);
    bool showProperties(const std::string& hostPath);

    Volumes& volumes_;
    ChildPrograms programs_;
};

}  // namespace velmora::linuxhost
