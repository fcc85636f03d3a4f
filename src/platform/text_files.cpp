#include "platform/text_files.h"

#include "base/text.h"

namespace velmora {

std::string blankLines(std::size_t size) {
    std::string lines(size % 2, ' ');
    while (lines.size() < size) lines += lineEnd;
    return lines;
}

}  // namespace velmora
