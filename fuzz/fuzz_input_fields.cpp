// Input fields from any bytes: reading ends, and only separators, blanks and quotes are lost.
#include <string>

#include "base/input_fields.h"
#include "fuzz_target.h"

using namespace velmora;

namespace {

std::string payload(std::string_view text) {
    constexpr std::string_view passedOver = ", \t\r\n\"";
    std::string result;
    for (char c : text)
        if (passedOver.find(c) == std::string_view::npos) result += c;
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    std::string joined;
    std::size_t fields = 0;
    InputFields input(text);
    while (!input.atEnd()) {
        const std::string field = input.next();
        require(++fields <= text.size(), "every field takes at least one byte");
        // The character before an opening quote distinguishes a quoted field from a plain one.
        const bool manyLines = field.find_first_of("\r\n,") != std::string::npos;
        require(!manyLines || text.find('"' + field) != std::string_view::npos,
                "separators are in quoted fields only");
        require(text.find(field) != std::string_view::npos, "a field is a piece of the text");
        joined += field;
    }
    require(payload(joined) == payload(text), "fields hold everything but separators");
    require(input.next().empty() && input.atEnd(), "the end stays the end");
    return 0;
}
