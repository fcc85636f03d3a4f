#include "qt/surface/field_words.h"

#include <QHash>

namespace velmora::qt {

namespace {

struct FieldWords {
    const char* field;  ///< "Form.Field"
    const char* words;
};

constexpr FieldWords table[] = {
    {"Form1.ListView1", "Watched drives and paths"},
    {"Form1.Text1", "Minimum space of the chosen row"},
    {"Form1.lblDP(0)", "Add a drive or path to the watch list"},
    {"Form1.lblDP(1)", "Remove the selected rows from the watch list"},
    {"Form1.lblDP(2)", "Clear the watch list"},
    {"Form1.lblDP(3)", "Show the selected drive"},
    {"Form1.lblDP(4)", "Refresh the drives of the watch list"},
    {"Form1.cmdPause", "Start or pause the watch"},
    {"Form1.txtSpace", "Minimum free space for all rows"},
    {"Form1.Slider1", "Minimum free space in percent"},
    {"Form1.UpDownSpace", "minimum free space"},
    {"Form1.lblMB", "Minimum free space in megabytes"},
    {"Form1.lblGB", "Minimum free space in gigabytes"},
    {"Form1.txtTime", "Interval between checks in seconds"},
    {"Form1.UpDown1", "seconds between checks"},
    {"Form1.DTPInterval", "Interval between checks as hours, minutes and seconds"},
    {"Form1.UpDown2", "interval between checks by ten seconds"},
    {"Form1.DTTime1(0)", "Start of the custom watch time"},
    {"Form1.DTTime1(1)", "End of the custom watch time"},
    {"Form1.lstAct", "Actions on a space shortage"},
    {"Form1.lstEvt", "Events to look for"},
    {"Form1.LVAlert", "Alerts, newest first"},
    {"Form1.txtAlert", "Journal, newest entry first"},
    {"Form1.txtAmt", "Greatest number of alerts kept"},
    {"Form1.UpDown3", "alerts kept"},
    {"Form1.lblAl(0)", "Save the journal to the log file"},
    {"Form1.lblAl(1)", "Open the log file"},
    {"Form1.lblAl(2)", "Clear journal and alerts"},
    {"Form1.lblAl(3)", "Delete the log file"},
    {"Form1.LVProg", "Specified programs"},
    {"Form1.cboProg", "Path of a program to add"},
    {"Form1.Label5(0)", "Add the program"},
    {"Form1.Label5(1)", "Remove the selected program"},
    {"Form1.Label5(2)", "Clear the list of programs"},
    {"Form1.Label5(3)", "Run the selected program"},
    {"Form1.Label5(4)", "Browse for a program"},
    {"Form1.LVFile", "Specified files"},
    {"Form1.cboFile", "Path of a file to add"},
    {"Form1.lblSF(0)", "Add a file"},
    {"Form1.lblSF(1)", "Remove the selected file from the list"},
    {"Form1.lblSF(2)", "Move the selected file to the specified path"},
    {"Form1.lblSF(3)", "Delete the selected file"},
    {"Form1.lblSF(4)", "Clear the list of files"},
    {"Form1.lblSF(5)", "Delete all listed files"},
    {"Form1.lblSF(6)", "Move all listed files"},
    {"Form1.lblSF(7)", "Browse for files"},
    {"Form1.lblSF(8)", "Show the attributes of the selected file"},
    {"Form1.txtDrive", "Path to which files are moved"},
    {"Form1.cmdFolder", "Browse for the path to which files are moved"},
    {"Form1.txtFileType", "File types that may be used to free space"},
    {"Form1.txtAudio(0)", "Sound file of an alert"},
    {"Form1.txtAudio(1)", "Second sound file"},
    {"Form1.cmdAudio(0)", "Browse for the sound of an alert"},
    {"Form1.cmdAudio(1)", "Browse for the second sound"},
    {"Form1.cmdPlay(0)", "Play the sound of an alert"},
    {"Form1.cmdPlay(1)", "Play the second sound"},
    {"Form1.Command6", "End the program"},
    {"Form1.Command9", "Make the window translucent"},
    {"Form1.lblTab(0)", "Tab: specified options"},
    {"Form1.lblTab(1)", "Tab: program options"},
    {"Form1.lblTab(2)", "Tab: alerts and log"},
    {"Form1.lblTab(3)", "Tab: configuration"},
    {"Form1.lblTab(4)", "Tab: overview"},
    {"Form1.lblSpectab(0)", "Inner tab: programs"},
    {"Form1.lblSpectab(1)", "Inner tab: path, space and types"},
    {"Form1.lblSpectab(2)", "Inner tab: files"},
    {"Form1.fr(1)", "Page: path, space and types"},
    {"Form1.frmSp(1)", "Page: program options"},
    {"Form1.frmSp(4)", "Page: overview"},
    {"Form1.lblTabCap", "Heading of the page"},
    {"Form1.lblAppStart", "Program started"},
    {"Form1.lblSpaceChangeRate", "Space change rate in KB per second"},
    {"Form1.lblHighRatedAlerts", "Number of high-rated alerts"},
    {"Form1.lblDriveOnMonitor", "Number of drives and paths on watch"},
    {"Form1.lblTimesMonitor", "Number of finished checks"},
    {"Form1.lblAlertsRaised", "Number of alerts raised"},
    {"Form1.lblLog", "Path of the log file"},
    {"Form1.Animation1", "Activity"},
    {"Form1.Toolbar1", "Commands"},
    {"Form1.StatusBar1", "Status"},
    {"Form1.StatusBar1(1)", "Activity"},
    {"Form1.StatusBar1(2)", "Detail"},
    {"Form1.StatusBar1(3)", "Counter"},
    {"frmLock.Text1", "Password"},
    {"frmLock.lblLock", "State of the lock"},
    {"frmIndDri.lblP", "Drive or path shown"},
    {"frmIndDri.ListView1", "Properties of the drive"},
    {"frmIndDri.VScroll1", "Minimum free space in percent"},
    {"frmIndDri.VMeter1", "Trigger"},
    {"frmIndDri.VMeter2", "Free space"},
    {"dlgAlert.Label1", "Current alerts, newest first"},
    {"dlgAlert.lblSuggest", "What the chosen option does"},
    {"dlgAlert.lblAct(0)", "Start the Sorbane cleaner"},
    {"dlgAlert.lblAct(1)", "Option: compress files"},
    {"dlgAlert.lblAct(2)", "Option: empty the recycle bin"},
    {"dlgAlert.lblAct(3)", "Option: delete files"},
    {"dlgAlert.lblAct(4)", "Option: move files"},
    {"dlgAlert.lblAl(0)", "Close the dialog"},
    {"dlgAlert.lblAl(1)", "Clear the dialog's alerts"},
    {"dlgAlert.lblAl(2)", "Replace the dialog's alerts by a point"},
    {"dlgAlert.lblAl(3)", "Go on with the chosen option"},
    {"dlgAlert.lblAl(4)", "Show the action options"},
    {"dlgAlert.chkAutoHide", "Hide the dialog by itself after a while"},
    {"dlgAlert.chkLog", "Make the dialog translucent"},
    {"Icon0.lblProgress", "What is being checked"},
    {"frmAbout.prcDraw", "Drawing of a turning disk"},
    {"frmNotify.txtYourEmail", "Your e-mail address"},
    {"frmNotify.txtUser", "User name"},
    {"frmNotify.txtPass", "Mail password"},
    {"frmNotify.txtMailServer", "Mail server"},
    {"frmNotify.txtMailPort", "Port of the mail server"},
    {"frmNotify.txtMailSubj", "Subject"},
    {"frmNotify.txtMailFromDisplayName", "Display name of the sender"},
    {"frmNotify.cboNotEmail", "Recipients"},
    {"frmNotify.lstNotContent", "Sections of the message"},
    {"frmNotify.txtCustMsg", "Custom message"},
    {"frmNotify.txtCustomContent", "Text file whose content is sent"},
    {"frmNotify.txtCustEvtAmt", "Number of events in the message"},
    {"frmNotify.lstNotTime", "Times at which mail is sent"},
    {"frmNotify.DTPicker1", "Time of the daily mail"},
    {"frmNotify.DTPicker2", "Interval between mails"},
    {"frmNotify.txtProxy", "Proxy server"},
    {"frmNotify.txtPort", "Port of the proxy server"},
};

QHash<QString, QString> wordsByField() {
    QHash<QString, QString> all;
    for (const FieldWords& entry : table) {
        all.insert(QString::fromUtf8(entry.field), QString::fromUtf8(entry.words));
    }
    return all;
}

}  // namespace

QString fieldWords(const QString& form, const QString& field) {
    static const QHash<QString, QString> all = wordsByField();
    return all.value(form + QLatin1Char('.') + field);
}

}  // namespace velmora::qt
