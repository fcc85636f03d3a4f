// The system's icons of files and drives. The surface provides them, since only it can show them.
#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// What SHGetFileInfoA reports of a file; the system's own record has 352 bytes.
struct ShellFileInfo {
    int iIcon = 0;  ///< place in the image list
};

class ShellIcons {
  public:
    virtual ~ShellIcons() = default;
    /// The handle of the system's image list, 0 on a failure. `path` is a drive path; `size` that
    /// of the record; flags 26116 ask for the large icon, 26117 for the small one.
    virtual std::uint64_t SHGetFileInfoA(const std::string& path, std::uint32_t attributes,
                                         ShellFileInfo& info, std::uint32_t size,
                                         std::uint32_t flags) = 0;
    /// Draws an image of the list at a place in pixels into a picture, whose content becomes a key
    /// that the surface can show again. `style` 1 draws it transparent.
    virtual bool ImageList_Draw(std::uint64_t imageList, int index, std::string& picture, int left,
                                int top, std::uint32_t style) = 0;
};

}  // namespace velmora
