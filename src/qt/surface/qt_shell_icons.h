// The system's icons of files and drives, as the desktop draws them.
#pragma once

#include <QFileIconProvider>
#include <QIcon>
#include <map>
#include <vector>

#include "platform/platform.h"
#include "platform/shell_icons.h"

namespace velmora::qt {

class QtShellIcons final : public ShellIcons {
  public:
    explicit QtShellIcons(Machine& machine) : machine_(machine) {}

    std::uint64_t SHGetFileInfoA(const std::string& path, std::uint32_t attributes,
                                 ShellFileInfo& info, std::uint32_t size,
                                 std::uint32_t flags) override;
    bool ImageList_Draw(std::uint64_t imageList, int index, std::string& picture, int left, int top,
                        std::uint32_t style) override;

    /// The icon for the key of a picture; empty for other keys.
    QIcon icon(const std::string& picture) const;

  private:
    QIcon iconOf(const std::string& path);

    Machine& machine_;
    QFileIconProvider provider_;
    std::vector<QIcon> images_;
    std::map<std::string, int> places_;  // by path
};

}  // namespace velmora::qt
