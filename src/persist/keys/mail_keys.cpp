// The keys of the window of the mail settings.
#include <algorithm>

#include "base/text.h"
#include "forms/form_numbers.h"
#include "forms/mail_port.h"
#include "persist/keys/settings_fields.h"
#include "persist/keys/settings_keys.h"
#include "persist/list_content.h"

namespace velmora {

namespace {

/// A list whose ticked entries are written as one run of indexes, and read as one index.
template <auto list>
constexpr SettingsField indexRun{
    .get = [](const SettingsSource& from) -> std::vector<std::string> {
        return {prcLstContent(controlOf(from.forms, list), ListContent::index, from.host)};
    },
    .set = fieldOf<list>.set,
};

std::vector<std::string> recipients(const SettingsSource& from) {
    return {prcLstContent(from.forms.frmNotify.cboNotEmail, ListContent::text, from.host)};
}

void addRecipient(const SettingsTarget& to, const std::string& value) {
    to.forms.frmNotify.cboNotEmail.AddItem(value);
}

void addOlderRecipient(const SettingsTarget& to, const std::string& value) {
    addRecipient(to, lowerCase(trim(value)));
}

void setOlderProxy(const SettingsTarget& to, const std::string& value) {
    to.forms.frmNotify.txtProxy.setText(value);
    to.forms.frmNotify.chkProxy.setValue(1);
}

// Words of letters alone, so that no other key is found in the line.
bool isWord(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    });
}

// The encryption and the port, which has no line of its own. Without encryption there is no line.
std::vector<std::string> security(const SettingsSource& from) {
    const FrmNotify& form = from.forms.frmNotify;
    const std::string& chosen = form.cboEncryption.Text();
    if (chosen == mail_encryption::none || !isWord(chosen)) return {};
    const auto port = mailPort(form.txtMailPort.Text(), from.regional);
    return {port ? chosen + " " + std::to_string(*port) : chosen};
}

// An encryption that isn't known is taken too: sending refuses it, and nothing goes out plain.
void setSecurity(const SettingsTarget& to, const std::string& value) {
    const std::vector<std::string> parts = split(trim(value), " ");
    FrmNotify& form = to.forms.frmNotify;
    form.cboEncryption.setText(parts[0]);
    if (parts.size() == 2 && mailPort(parts[1], to.platform.regional)) {
        form.txtMailPort.setText(parts[1]);
    }
}

constexpr SettingsKey mailEntries[] = {
    {.key = "notEmail=", .written = 11, .read = 18, .field = fieldOf<&FrmNotify::txtYourEmail>},
    {.key = "notEmailUser=", .written = 12, .read = 19, .field = fieldOf<&FrmNotify::txtUser>},
    {.key = "notEmailPass=", .written = 13, .read = 20, .field = fieldOf<&FrmNotify::txtPass>},
    {.key = "notMailServer=",
     .written = 14,
     .read = 21,
     .field = fieldOf<&FrmNotify::txtMailServer>},
    {.key = "notEmailSubj=", .written = 15, .read = 22, .field = fieldOf<&FrmNotify::txtMailSubj>},
    {.key = "notMailFromDisp=",
     .written = 16,
     .read = 23,
     .field = fieldOf<&FrmNotify::txtMailFromDisplayName>},
    {.key = "notcboEmail=",
     .written = 17,
     .read = 33,
     .line = SettingsLine::run,
     .field = {.get = recipients, .set = addRecipient}},
    {.key = "NotlstContent=",
     .written = 18,
     .read = 34,
     .line = SettingsLine::run,
     .field = indexRun<&FrmNotify::lstNotContent>,
     .searched = "NotlstContent"},
    {.key = "notlstTime=",
     .written = 19,
     .read = 35,
     .line = SettingsLine::run,
     .field = indexRun<&FrmNotify::lstNotTime>,
     .searched = "notlstTime"},
    {.key = "notCustMsg=", .written = 20, .read = 32, .field = fieldOf<&FrmNotify::txtCustMsg>},
    {.key = "notCustCont=",
     .written = 21,
     .read = 31,
     .field = fieldOf<&FrmNotify::txtCustomContent>},
    {.key = "notCustEvtAmt=",
     .written = 22,
     .read = 30,
     .field = fieldOf<&FrmNotify::txtCustEvtAmt>},
    {.key = "notDTPicker1=", .written = 23, .read = 29, .field = fieldOf<&FrmNotify::DTPicker1>},
    {.key = "notDTPicker2=", .written = 24, .read = 28, .field = fieldOf<&FrmNotify::DTPicker2>},
    {.key = "nottxtProxy=", .written = 25, .read = 27, .field = fieldOf<&FrmNotify::txtProxy>},
    {.key = "nottxtPort=", .written = 26, .read = 26, .field = fieldOf<&FrmNotify::txtPort>},
    {.key = "notchkHTML=", .written = 27, .read = 25, .field = fieldOf<&FrmNotify::chkIsHTML>},
    {.key = "notchkProxy=", .written = 28, .read = 24, .field = fieldOf<&FrmNotify::chkProxy>},

    // The last of all in both orders, so that files without it stay as they are.
    {.key = "smtpSecurity=",
     .written = 41,
     .read = 46,
     .field = {.get = security, .set = setSecurity}},

    // Keys of older files.
    {.key = "cboNotEmail=", .read = 13, .field = {.set = addOlderRecipient}},
    {.key = "lstNotContent=", .read = 14, .field = fieldOf<&FrmNotify::lstNotContent>},
    {.key = "lstNotTime=", .read = 15, .field = fieldOf<&FrmNotify::lstNotTime>},
    {.key = "lstNotProxy=", .read = 16, .field = {.set = setOlderProxy}},
    {.key = "lstNotPort=", .read = 17, .field = fieldOf<&FrmNotify::txtPort>},
};

}  // namespace

std::span<const SettingsKey> mailKeys() {
    return mailEntries;
}

}  // namespace velmora
