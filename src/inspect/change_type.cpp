#include "inspect/change_type.h"

namespace velmora {

std::string fChangeTypeText(std::int32_t ChangeType) {
    std::string text;
    const auto add = [&](std::int32_t bit, const char* word) {
        if ((ChangeType & bit) == 0) return;
        if (!text.empty()) text += " & ";
        text += word;
    };
    add(change::name, "Name");
    add(change::size, "Size");
    add(change::lastWrite, "Last Write");
    add(change::dirName, "Dir Name");
    return text;
}

}  // namespace velmora
