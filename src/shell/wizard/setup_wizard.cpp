#include "shell/wizard/setup_wizard.h"

#include <utility>

#include "forms/form_numbers.h"
#include "monitor/watch_times.h"
#include "persist/settings_file.h"
#include "shell/help_question.h"
#include "shell/wizard/list_mirrors.h"
#include "shell/wizard/setting_mirrors.h"
#include "shell/wizard/watched_rows_mirror.h"

namespace velmora {

SetupWizard::SetupWizard(Forms& forms, Platform& platform, Host& host, Parts parts)
    : forms_(forms),
      form_(forms.frmWizard),
      platform_(platform),
      host_(host),
      parts_(parts),
      steps_(forms.frmWizard),
      proposals_(forms.frmWizard),
      rules_(forms, platform, host, parts.alerts.files(), parts.monitor) {
    // The rows first: the rules for the minimum space and for the actions look at them.
    mirrorWatch(host, platform.regional);
    mirrorLists();
    mirrorMail();
    connectButtons();
    form_.Load.connect([this] { Form_Load(); });
    form_.Unload.connect([this] { cmdCancel_Click(); });
    // The rules of the actions may open the mail settings beside the wizard.
    forms_.frmNotify.Hidden.connect([this] {
        if (form_.Visible()) readUntouched();
    });
}

void SetupWizard::connectButtons() {
    form_.cmdApply.Click.connect([this] { cmdApply_Click(); });
    form_.cmdOK.Click.connect([this] { cmdOK_Click(); });
    form_.cmdCancel.Click.connect([this] { cmdCancel_Click(); });
    form_.cmdHelp.Click.connect([this] { askForHelp(forms_.form1, platform_, host_); });
}

template <typename Kind, typename... Args>
void SetupWizard::mirror(Args&&... args) {
    mirrors_.push_back(std::make_unique<Kind>(std::forward<Args>(args)...));
}

template <typename Mine, typename Theirs>
void SetupWizard::mirrorField(Mine& mine, Theirs& theirs) {
    mirror<FieldMirror<Mine, Theirs&>>(mine, theirs);
}

void SetupWizard::mirrorWatch(Host& host, const Regional& regional) {
    Form1& form1 = forms_.form1;
    mirror<WatchedRowsMirror>(form_.ListView1, form1.ListView1, form1.Timer1,
                              parts_.monitor.watchListCommands());
    mirror<SpaceMirror>(form_, form1, parts_.monitor.minimumSpace());
    mirror<ActionsMirror>(form_.lstAct, form1.lstAct, parts_.alerts.actionListRules());
    actions_ = mirrors_.back().get();
    mirrorField(form_.chkCustTime, form1.chkCustTime);
    for (std::size_t i = 0; i < form_.DTTime1.size(); ++i) {
        mirrorField(form_.DTTime1[i], form1.DTTime1[i]);
    }
    mirror<IntervalMirror>(form_.txtTime, form1, regional, host);
    for (CheckBox& event : form_.chkop) {
        mirror<FieldMirror<CheckBox, ListEntry>>(event, ListEntry{form1.lstEvt, event.Index()});
    }
}

void SetupWizard::mirrorLists() {
    Form1& form1 = forms_.form1;
    mirrorField(form_.txtDrive, form1.txtDrive);
    mirrorField(form_.txtFileType, form1.txtFileType);
    // The entries before the text: with other entries, none is chosen any more.
    mirror<EntriesMirror>(form_.cboProg, form1.cboProg);
    mirrorField(form_.cboProg, form1.cboProg);
    mirror<RowsMirror>(form_.LVProg, form1.LVProg);
    mirror<EntriesMirror>(form_.cboFile, form1.cboFile);
    mirrorField(form_.cboFile, form1.cboFile);
    mirror<RowsMirror>(form_.LVFile, form1.LVFile);
}

void SetupWizard::mirrorMail() {
    FrmNotify& mail = forms_.frmNotify;
    mirrorField(form_.txtMailServer, mail.txtMailServer);
    mirrorField(form_.txtMailPort, mail.txtMailPort);
    mirrorField(form_.cboEncryption, mail.cboEncryption);
    mirrorField(form_.txtYourEmail, mail.txtYourEmail);
    mirrorField(form_.txtUser, mail.txtUser);
    mirrorField(form_.txtPass, mail.txtPass);
    mirrorField(form_.txtMailFromDisplayName, mail.txtMailFromDisplayName);
    mirrorField(form_.txtMailSubj, mail.txtMailSubj);
    mirror<EntriesMirror>(form_.cboNotEmail, mail.cboNotEmail);
    mirrorField(form_.cboNotEmail, mail.cboNotEmail);
    mirrorField(form_.chkIsHTML, mail.chkIsHTML);
}

void SetupWizard::Form_Load() {
    steps_.begin();
    proposals_.begin();
    prcSettingW(settings_order::read);
}

// A closed wizard has read nothing, or has forgotten it: what its fields contain was discarded.
void SetupWizard::prcSettingW(std::int16_t bSet) {
    if (bSet == settings_order::write && form_.Visible()) {
        for (const auto& each : mirrors_) each->write();
    } else if (bSet == settings_order::read) {
        readMirrors([](const Mirror&) { return true; });
    }
}

template <typename Choice>
void SetupWizard::readMirrors(Choice isRead) {
    rules_.disconnect();
    for (const auto& each : mirrors_) {
        if (isRead(*each)) each->read();
    }
    // Ticks of the wizard that were not applied yet have rules of their own.
    if (!actions_->touched()) form_.txtDrive.setEnabled(forms_.form1.txtDrive.Enabled());
    enableWatchTimes(form_.chkCustTime, form_.DTTime1);
    readEncryptionOffer();
    rules_.connect();
}

void SetupWizard::readEncryptionOffer() {
    const ComboBox& theirs = forms_.frmNotify.cboEncryption;
    const bool isPossible = theirs.ToolTipText().empty();
    const bool isChosen = form_.cboEncryption.Text() != mail_encryption::none;
    // One that the settings brought can be taken back.
    form_.cboEncryption.setEnabled(isPossible || isChosen);
    form_.lblEncryptionWhy.setCaption(theirs.ToolTipText());
    form_.lblEncryptionWhy.setVisible(!isPossible);
}

void SetupWizard::cmdApply_Click() {
    if (!form_.Visible()) return;
    prcSettingW(settings_order::write);
    // Rules of the main window may have changed what was written.
    readUntouched();
}

void SetupWizard::readUntouched() {
    readMirrors([](const Mirror& each) { return !each.touched(); });
}

void SetupWizard::cmdOK_Click() {
    form_.cmdApply.Click();
    form_.cmdCancel.Click();
}

void SetupWizard::cmdCancel_Click() {
    form_.unloadNow();
    // The mail's password leaves no copy behind.
    form_.txtPass.setText("");
    for (const auto& each : mirrors_) each->forget();
}

}  // namespace velmora
