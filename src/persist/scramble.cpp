#include "persist/scramble.h"

#include "base/convert.h"
#include "base/runtime_error.h"

namespace velmora {

namespace {

std::string shifted(const std::string& text, int by, unsigned char impossible) {
    toInteger(static_cast<double>(text.size()));
    std::string result;
    result.reserve(text.size());
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code == impossible) throw RuntimeError(error::invalidCall);
        result += static_cast<char>(code + by);
    }
    return result;
}

}  // namespace

std::string prcEn(const std::string& text) {
    return shifted(text, 1, 255);
}

std::string prcDe(const std::string& text) {
    return shifted(text, -1, 0);
}

}  // namespace velmora
