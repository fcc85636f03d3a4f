#include "persist/recovery/key_words.h"

#include <algorithm>
#include <iterator>

#include "base/runtime_error.h"
#include "base/text.h"
#include "persist/keys/settings_keys.h"
#include "persist/scramble.h"

namespace velmora {

namespace {

constexpr KeyWords wordsOfKeys[] = {
    {"chkUpdate=", "chkUpdate", "Automatically Check for updates"},
    {"updateauto=", "chkUpdate", "Automatically Check for updates"},
    {"chkStartUp=", "chkStartUp", "Run on Start Up"},
    {"chkOnTopMonitor=", "chkOnTopMonitor", "Show Window on Monitoring"},
    {"chkNTLog=", "chkNTLog", "alerts in the system's event log"},
    {"chkLog=", "chkLog", "Show Log"},
    {"chkAutoSave=", "chkAutoSave", "Auto Save Log to file"},
    {"txtAudio0=", "txtAudio(0)", "the sound of an alert"},
    {"txtAudio1=", "txtAudio(1)", "the second sound"},
    {"txtTime=", "DTPInterval", "the interval"},
    {"minspace=", "txtSpace", "the minimum space"},
    {"notEmail=", "frmNotify.txtYourEmail", "the sender's address"},
    {"notEmailUser=", "frmNotify.txtUser", "the account of the mail"},
    {"notEmailPass=", "frmNotify.txtPass", "the password of the mail"},
    {"notMailServer=", "frmNotify.txtMailServer", "the mail server"},
    {"notEmailSubj=", "frmNotify.txtMailSubj", "the subject of the mail"},
    {"notMailFromDisp=", "frmNotify.txtMailFromDisplayName", "the sender's name"},
    {"notcboEmail=", "frmNotify.cboNotEmail", "the recipients of the mail"},
    {"NotlstContent=", "frmNotify.lstNotContent", "the sections of the mail"},
    {"notlstTime=", "frmNotify.lstNotTime", "the send times of the mail"},
    {"notCustMsg=", "frmNotify.txtCustMsg", "the custom message of the mail"},
    {"notCustCont=", "frmNotify.txtCustomContent", "the file in the mail"},
    {"notCustEvtAmt=", "frmNotify.txtCustEvtAmt", "the number of events in the mail"},
    {"notDTPicker1=", "frmNotify.DTPicker1", "the first time of the mail"},
    {"notDTPicker2=", "frmNotify.DTPicker2", "the second time of the mail"},
    {"nottxtProxy=", "frmNotify.txtProxy", "the proxy"},
    {"nottxtPort=", "frmNotify.txtPort", "the proxy's port"},
    {"notchkHTML=", "frmNotify.chkIsHTML", "mail as HTML"},
    {"notchkProxy=", "frmNotify.chkProxy", "mail by a proxy"},
    {"smtpSecurity=", "frmNotify.cboEncryption", "the encryption of the mail"},
    {"insystray=", "chkSystray", "Show in Systray"},
    {"path2move=", "txtDrive", "the specified path"},
    {"filetype=", "txtFileType", "the file types"},
    {"custtime=", "chkCustTime", "the custom watch time"},
    {"custtimebegin=", "DTTime1(0)", "the begin of the custom watch time"},
    {"custtimeend=", "DTTime1(1)", "the end of the custom watch time"},
    {"custtimeDTPI=", "DTPInterval", "the interval"},
    {"path=", "ListView1", "the watch list"},
    {"cboFile=", "cboFile", "the box of files"},
    {"lstAct=", "lstAct", "the actions"},
    {"lstEvt=", "lstEvt", "the events"},
};

std::string_view lineAt(std::string_view content, std::size_t place) {
    const std::size_t at = std::min(place, content.size());
    const auto before = content.substr(0, at).find_last_of("\r\n");
    const std::size_t from = before == std::string_view::npos ? 0 : before + 1;
    const std::size_t end = std::min(content.find_first_of("\r\n", from), content.size());
    return content.substr(from, end - from);
}

std::string decoded(const std::string& line) {
    try {
        return prcDe(line);
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace

KeyWords wordsOf(std::string_view key) {
    const auto* found = std::find_if(std::begin(wordsOfKeys), std::end(wordsOfKeys),
                                     [key](const KeyWords& each) { return each.key == key; });
    return found != std::end(wordsOfKeys) ? *found
                                          : KeyWords{.key = key, .field = key, .words = key};
}

std::string whyUnwritable(int number) {
    if (number == error::overflow) return "is too long: a line can have 32767 bytes";
    return "holds a byte 255, which the file can't hold";
}

std::string keyOfLineAt(std::string_view content, std::size_t place) {
    const std::string line = decoded(trim(std::string(lineAt(content, place))));
    for (const SettingsKey* key : settingsKeysToRead()) {
        if (line.starts_with(key->key)) return std::string(key->key);
    }
    return {};
}

std::size_t lineNumberAt(std::string_view content, std::size_t place) {
    const std::string_view before = content.substr(0, std::min(place, content.size()));
    return 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
}

}  // namespace velmora
