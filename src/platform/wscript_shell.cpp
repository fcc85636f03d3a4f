#include "platform/wscript_shell.h"

#include "base/text.h"

namespace velmora {

std::string addressFileText(const std::string& address) {
    const std::string line = replaceAll(replaceAll(address, "\r", ""), "\n", "");
    return "[InternetShortcut]\r\nURL=" + line + "\r\n";
}

}  // namespace velmora
