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
};

}  // namespace velmora
