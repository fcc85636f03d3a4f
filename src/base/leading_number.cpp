#include "base/leading_number.h"

#include "base/convert.h"
#include "base/text.h"

namespace velmora {

std::string prcChkString(std::string& chkstr, const std::string& strStop,
                         const Regional& regional) {
    if (length(chkstr) <= 2) return chkstr;
    for (std::size_t at = characterSize(chkstr, 0); at < chkstr.size();) {
        const std::size_t size = characterSize(chkstr, at);
        const std::string character = chkstr.substr(at, size);
        if (!isNumeric(character, regional) || character == strStop) {
            chkstr.resize(at);
            break;
        }
        at += size;
    }
    return chkstr;
}

}  // namespace velmora
