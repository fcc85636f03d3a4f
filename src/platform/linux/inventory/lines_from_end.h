// The lines of a file, the last one first.
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>

#include "platform/linux/system/unique_fd.h"

namespace velmora::linuxhost {

/// Reads block by block, and no block before a line of it is asked for. What comes into the file
/// after it was opened isn't read; what is taken away from it counts as never written. A file that
/// is renamed stays the same one.
class LinesFromEnd {
  public:
    /// A file that can't be opened, or is no plain file, has no lines.
    explicit LinesFromEnd(const std::string& path);

    /// The line before the one that was read last, without its line end. Of a line that is longer
    /// than 64 KB it gives the first 64 KB. Nothing at the file's beginning, when it can't be read,
    /// and after 16 MB without a line end.
    std::optional<std::string> next();

  private:
    bool readBlock();
    void forgetCutOff(std::string block);

    UniqueFd file_;
    off_t begin_ = 0;   // where `text_` begins in the file
    std::string text_;  // read, and not given yet
    off_t inLine_ = 0;  // bytes that were read of the line at the front of `text_`
};

}  // namespace velmora::linuxhost
