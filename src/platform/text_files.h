// Text files as the runtime's file statements treat them: opened, written and closed in one step.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

class TextFiles {
  public:
    virtual ~TextFiles() = default;
    /// Appends `text` and a line end, creating the file if need be. Error 76 when its folder is
    /// missing, 75 or 70 when it can't be opened or is in use, 61 on a full disk (then nothing of
    /// the line stays in the file), 57 on any other failure.
    virtual void appendLine(const std::string& path, std::string_view text) = 0;

    /// The whole content. Error 53 when there is no such file, 76 when its folder is missing, 75 or
    /// 70 when it can't be opened, 57 on any other failure.
    virtual std::string readAll(const std::string& path) = 0;
    /// Makes `content` the whole content of the file, creating it if need be. Written over the old
    /// content in place and then cut to length, with no second file, so that a disk without a free
    /// byte can still take a content that isn't longer than the old one. Errors as appendLine; a
    /// full disk leaves a cut file.
    virtual void writeOver(const std::string& path, std::string_view content) = 0;
    /// Bytes in the file. Error 53 when there is none.
    virtual double FileLen(const std::string& path) = 0;
    /// Removes the file: a link as the link that it is, and none is followed on the way to it.
    /// Error 53 when there is none, 75 when it is read-only or a folder, 70 when it is in use, may
    /// not be removed or is neither file nor folder, as a pipe or a device.
    virtual void remove(const std::string& path) = 0;
};

}  // namespace velmora
