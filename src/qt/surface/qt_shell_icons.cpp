#include "qt/surface/qt_shell_icons.h"

#include "base/text.h"
#include "qt/icons/glyph.h"
#include "qt/surface/text.h"

namespace velmora::qt {

namespace {

constexpr std::uint64_t imageListHandle = 1;
constexpr const char* keyPrefix = "image:";
constexpr std::size_t rootLength = 3;

bool isShare(const std::string& path) {
    return path.starts_with("\\\\");
}

// By the form of the path: the drive itself might not answer.
bool isRoot(const std::string& path) {
    return path.size() <= rootLength;
}

}  // namespace

QIcon QtShellIcons::iconOf(const std::string& path) {
    if (isShare(path)) return glyphIcon(Glyph::networkDrive);
    QIcon desktops =
        provider_.icon(isRoot(path) ? QFileIconProvider::Drive : QFileIconProvider::Folder);
    // A desktop without an icon theme has none for drives.
    if (desktops.isNull() || desktops.availableSizes().isEmpty()) {
        return glyphIcon(isRoot(path) ? Glyph::drive : Glyph::folder);
    }
    return desktops;
}

std::uint64_t QtShellIcons::SHGetFileInfoA(const std::string& path, std::uint32_t,
                                           ShellFileInfo& info, std::uint32_t, std::uint32_t) {
    const auto [known, isNew] = places_.try_emplace(path, static_cast<int>(images_.size()));
    if (isNew) images_.push_back(iconOf(path));
    info.iIcon = known->second;
    return imageListHandle;
}

bool QtShellIcons::ImageList_Draw(std::uint64_t imageList, int index, std::string& picture, int,
                                  int, std::uint32_t) {
    if (imageList != imageListHandle || index < 0 || index >= static_cast<int>(images_.size())) {
        return false;
    }
    picture = keyPrefix + std::to_string(index);
    return true;
}

QIcon QtShellIcons::icon(const std::string& picture) const {
    if (!picture.starts_with(keyPrefix)) return {};
    const int index = std::atoi(picture.c_str() + std::string_view(keyPrefix).size());
    if (index < 0 || index >= static_cast<int>(images_.size())) return {};
    return images_[static_cast<std::size_t>(index)];
}

}  // namespace velmora::qt
