#include "shell/about_box.h"

#include "base/text.h"
#include "persist/registry.h"
#include "platform/show_window.h"

namespace velmora {

namespace {

constexpr std::uint32_t readAccess = 0x20019;
constexpr std::uint32_t plainText = 1;
constexpr std::uint32_t textWithVariables = 2;

constexpr int degreesPerTick = 3;
constexpr int fullTurn = 360;

constexpr const char* programKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* folderKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Shared Tools Location";

// "%NAME%" becomes the variable's text; names of variables that aren't set stay.
std::string withVariables(const std::string& text, Kernel32& kernel32) {
    std::string result;
    std::size_t at = 0;
    while (true) {
        const std::size_t begin = text.find('%', at);
        const std::size_t end = begin == std::string::npos ? begin : text.find('%', begin + 1);
        if (end == std::string::npos) return result + text.substr(at);
        result += text.substr(at, begin - at);
        const std::string name = text.substr(begin + 1, end - begin - 1);
        const std::string value = kernel32.GetEnvironmentVariableA(name);
        if (value.empty()) {
            // The second mark may begin another name.
            result += text.substr(begin, end - begin);
            at = end;
        } else {
            result += value;
            at = end + 1;
        }
    }
}

}  // namespace

bool GetKeyValue(Platform& platform, const std::string& path, const std::string& name,
                 std::string& text) {
    const std::size_t slash = path.find('\\');
    const std::uint32_t hive = fRegRootKey(path.substr(0, slash));
    if (hive == 0 || slash == std::string::npos) return false;
    Advapi32& advapi32 = platform.advapi32;
    RegistryKey key = 0;
    if (advapi32.RegOpenKeyExA(hive, path.substr(slash + 1), 0, readAccess, key) != 0) return false;
    std::uint32_t type = 0;
    std::string data;
    const std::int32_t result = advapi32.RegQueryValueExA(key, name, type, data);
    advapi32.RegCloseKey(key);
    if (result != 0 || (type != plainText && type != textWithVariables)) return false;
    text = type == textWithVariables ? withVariables(data, platform.kernel32) : data;
    return true;
}

AboutBox::AboutBox(FrmAbout& frmAbout, Platform& platform, Host& host, const std::string& version)
    : frmAbout_(frmAbout), platform_(platform), host_(host) {
    frmAbout_.lblVersion.setCaption("Version " + version);
    frmAbout_.cmdOK.Click.connect([this] { hideAbout(); });
    frmAbout_.Unload.connect([this] { hideAbout(); });
    frmAbout_.cmdSysInfo.Click.connect([this] { StartSysInfo(); });
    frmAbout_.Timer1.Tick.connect([this] { Timer1_Timer(); });
    frmAbout_.Hidden.connect([this] { frmAbout_.Timer1.setEnabled(false); });
}

void AboutBox::showAbout() {
    frmAbout_.Timer1.setEnabled(true);
    frmAbout_.Show();
}

void AboutBox::hideAbout() {
    frmAbout_.Timer1.setEnabled(false);
    frmAbout_.Hide();
}

void AboutBox::Timer1_Timer() {
    Slider& turn = frmAbout_.prcDraw;
    turn.setValue((turn.Value() + degreesPerTick) % fullTurn);
}

// One key names the program itself, the other the folder that it lies in.
std::string AboutBox::findSysInfo() {
    FileSystemObject& fso = platform_.fso;
    std::string path;
    if (GetKeyValue(platform_, programKey, "PATH", path) && fso.FileExists(path)) return path;
    if (!GetKeyValue(platform_, folderKey, "MSINFO", path)) return {};
    path += "\\MSINFO32.EXE";
    return fso.FileExists(path) ? path : std::string{};
}

void AboutBox::StartSysInfo() {
    try {
        const std::string program = findSysInfo();
        if (!program.empty()) {
            platform_.shell32.ShellExecuteA(frmAbout_.Name(), "open", program, "", "",
                                            normalWindow);
            return;
        }
    } catch (const std::exception&) {
        // When looking for the program fails, there is none.
    }
    host_.MsgBox({.text = "System Information Is Unavailable At This Time"});
}

}  // namespace velmora
