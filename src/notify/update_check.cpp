#include "notify/update_check.h"

#include "base/convert.h"
#include "base/maker.h"
#include "base/text.h"
#include "forms/form_numbers.h"

namespace velmora {

namespace {

constexpr const char* statusPage = "/velmora/status.htm";
constexpr const char* versionKey = "update=";
constexpr std::size_t versionPiece = 15;

constexpr std::uint32_t rasConnSize = 412;
constexpr std::uint32_t rasStatusSize = 160;
constexpr std::uint32_t rasConnected = 8192;

}  // namespace

UpdateCheck::UpdateCheck(Forms& forms, Platform& platform, Host& host, const std::string& version)
    : form1_(forms.form1), platform_(platform), host_(host) {
    const std::vector<std::string> parts = split(version, ".");
    major_ = parts[0];
    minor_ = parts.size() > 1 ? parts[1] : "0";
    form1_.Label5[program_button::checkUpdates].Click.connect([this] { Label5_Click(); });
}

// The test stands the wrong way round, so that no page is ever looked at.
void UpdateCheck::prcCheckUpdate() {
    const std::string page =
        platform_.internet.OpenURL(std::string(maker::scheme) + "://" + maker::host + statusPage);
    bool found = false;
    if (page.empty() && contains(page, versionKey)) found = announceNewer(page);
    if (!found) host_.MsgBox({.text = "The program is currently up to date"});
}

bool UpdateCheck::announceNewer(const std::string& page) {
    const std::size_t at = position(page, versionKey);
    if (at == 0) return false;
    const std::string text = trim(replaceAll(mid(page, at, versionPiece), versionKey, ""));
    const Regional& regional = platform_.regional;
    if (!isNumeric(text, regional)) return false;
    // The two numbers as they are: version 1.02 counts as 1.2.
    const std::string current = major_ + "." + std::to_string(toLong(minor_, regional));
    if (toDouble(text, regional) <= toDouble(current, regional)) return false;
    host_.MsgBox({.text = "There is a newer version or update for the the program.  Please visit "
                          "the program webpage for more information."});
    form1_.lblNewVer.setCaption("New update available: " + text);
    return true;
}

// Dial-up is asked about the wrong way round: with a live connection there is no check.
void UpdateCheck::Label5_Click() {
    if (fIsRasConnected()) {
        host_.MsgBox({.text = "not connected to internet."});
    } else {
        prcCheckUpdate();
    }
}

// The number of connections isn't looked at: without one, the first record's handle is empty.
bool UpdateCheck::fIsRasConnected() {
    RasConnections connections{};
    connections[0].dwSize = rasConnSize;
    std::uint32_t size = rasConnSize * static_cast<std::uint32_t>(connections.size());
    std::uint32_t count = 0;
    if (platform_.rasapi32.RasEnumConnectionsA(connections, size, count) != 0) {
        host_.MsgBox({.text = "ERROR"});
        return false;
    }
    RasConnStatus status{.dwSize = rasStatusSize};
    platform_.rasapi32.RasGetConnectStatusA(connections[0].hRasConn, status);
    return status.rasconnstate == rasConnected;
}

}  // namespace velmora
