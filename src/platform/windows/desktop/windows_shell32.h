// The system's shell: here its calls are just that, with texts in UTF-8.
#pragma once

#include <cstdint>
#include <string>

#include "platform/shell32.h"
#include "platform/windows/system/com_apartment.h"

namespace velmora::windows {

class WindowsShell32 final : public Shell32 {
  public:
    std::int32_t SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) override;
    /// The owner is the program's active window, whichever form it shows.
    std::int32_t ShellExecuteA(const std::string& owner, const std::string& operation,
                               const std::string& file, const std::string& parameters,
                               const std::string& directory, std::int32_t showCommand) override;
    bool ShellExecuteEx(const ShellExecuteInfo& info) override;
    Browse SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) override;
    std::int32_t SHEmptyRecycleBinA(const std::string& owner, const std::string& root,
                                    std::uint32_t flags) override;
    /// Nothing is removed by a pattern, nor by a path that the shell would take for another.
    std::int32_t SHFileOperationA(const FileOperation& operation) override;
    void Shell(const std::string& commandLine, std::int32_t windowState) override;

  private:
    ComApartment com_;
};

}  // namespace velmora::windows
