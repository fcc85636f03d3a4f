// Text files as the runtime's file statements treat them: opened, written and closed in one step.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace velmora {

/// What writing over a file can do beside.
struct Overwriting {
    bool reservesRoom = false;  ///< takes the room before the first byte: a full disk leaves the
                                ///< old content whole
    bool isPrivate = false;  ///< nobody but the user may read it; on Windows one that is made anew
};

/// Blank lines of so many bytes; a reader of fields passes over them.
std::string blankLines(std::size_t size);

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
    /// byte can still take a content that isn't longer than the old one. Until it is cut, blank
    /// lines follow the content in place of the rest of the old one: who is killed in between
    /// leaves no line of the old. It is on the disk when this returns. Errors as appendLine; a full
    /// disk leaves a cut file.
    void writeOver(const std::string& path, std::string_view content) {
        writeOver(path, content, Overwriting{});
    }
    virtual void writeOver(const std::string& path, std::string_view content, Overwriting how) = 0;
    /// Bytes in the file. Error 53 when there is none.
    virtual double FileLen(const std::string& path) = 0;
    /// Removes the file: a link as the link that it is, and none is followed on the way to it.
    /// Error 53 when there is none, 75 when it is read-only or a folder, 70 when it is in use, may
    /// not be removed or is neither file nor folder, as a pipe or a device.
    virtual void remove(const std::string& path) = 0;
};

}  // namespace velmora
