#include "persist/settings_writer.h"

#include "base/date_time.h"
#include "persist/list_content.h"
#include "persist/scramble.h"

namespace velmora {

namespace {

class Writer {
  public:
    Writer(std::string& text, const Forms& forms, const Regional& regional, Host& host)
        : form1_(forms.form1),
          notify_(forms.frmNotify),
          regional_(regional),
          host_(host),
          text_(text) {}

    void write() {
        writeOptions();
        writeMail();
        writeSendOptions();
        writeWatch();
        writeLists();
    }

  private:
    void writeOptions();
    void writeMail();
    void writeSendOptions();
    void writeWatch();
    void writeLists();
    void writeTicks(const char* key, const ListBox& list);

    void print(const std::string& plain) { text_ += prcEn(plain) + "\r\n"; }
    void line(const char* key, const std::string& value) { print(key + value); }
    void line(const char* key, const TextBox& box) { line(key, box.Text()); }
    void line(const char* key, const CheckBox& box) { line(key, std::to_string(box.Value())); }
    void line(const char* key, const DatePicker& picker) {
        line(key, dateText(picker.Value(), regional_));
    }
    // A line whose own CR LF is scrambled with it and comes back with the value.
    void closedLine(const char* key, const std::string& value) { print(key + value + "\r\n"); }

    const Form1& form1_;
    const FrmNotify& notify_;
    const Regional& regional_;
    Host& host_;
    std::string& text_;
};

void Writer::writeOptions() {
    line("chkUpdate=", form1_.chkUpdate);
    line("chkStartUp=", form1_.chkStartUp);
    line("chkOnTopMonitor=", form1_.chkOnTopMonitor);
    line("chkNTLog=", form1_.chkNTLog);
    line("chkLog=", form1_.chkLog);
    line("chkAutoSave=", form1_.chkAutoSave);
    line("txtAudio0=", form1_.txtAudio[0]);
    line("txtAudio1=", form1_.txtAudio[1]);
    closedLine("txtTime=", form1_.txtTime.Text());
    closedLine("minspace=", form1_.txtSpace.Text());
}

void Writer::writeMail() {
    line("notEmail=", notify_.txtYourEmail);
    line("notEmailUser=", notify_.txtUser);
    line("notEmailPass=", notify_.txtPass);
    line("notMailServer=", notify_.txtMailServer);
    line("notEmailSubj=", notify_.txtMailSubj);
    line("notMailFromDisp=", notify_.txtMailFromDisplayName);
    print(prcLstContent(notify_.cboNotEmail, ListContent::text, host_));
    print(prcLstContent(notify_.lstNotContent, ListContent::index, host_));
    print(prcLstContent(notify_.lstNotTime, ListContent::index, host_));
}

void Writer::writeSendOptions() {
    line("notCustMsg=", notify_.txtCustMsg);
    line("notCustCont=", notify_.txtCustomContent);
    line("notCustEvtAmt=", notify_.txtCustEvtAmt);
    line("notDTPicker1=", notify_.DTPicker1);
    line("notDTPicker2=", notify_.DTPicker2);
    line("nottxtProxy=", notify_.txtProxy);
    line("nottxtPort=", notify_.txtPort);
    line("notchkHTML=", notify_.chkIsHTML);
    line("notchkProxy=", notify_.chkProxy);
}

void Writer::writeWatch() {
    line("insystray=", form1_.chkSystray);
    closedLine("path2move=", form1_.txtDrive.Text());
    closedLine("filetype=", form1_.txtFileType.Text());
    closedLine("custtime=", std::to_string(form1_.chkCustTime.Value()));
    if (form1_.chkCustTime.ticked()) {
        closedLine("custtimebegin=", dateText(form1_.DTTime1[0].Value(), regional_));
        closedLine("custtimeend=", dateText(form1_.DTTime1[1].Value(), regional_));
    }
    line("custtimeDTPI=", form1_.DTPInterval);
    closedLine("updateauto=", std::to_string(form1_.chkUpdate.Value()));
}

void Writer::writeLists() {
    const ListView& watched = form1_.ListView1;
    for (int i = 1; i <= watched.Count(); ++i) {
        const ListItem& row = watched.ListItems(i);
        if (row.Checked()) closedLine("path=", row.Text());
    }
    for (int i = 0; i < form1_.cboFile.ListCount(); ++i) {
        closedLine("cboFile=", form1_.cboFile.List(i));
    }
    writeTicks("lstAct=", form1_.lstAct);
    writeTicks("lstEvt=", form1_.lstEvt);
}

void Writer::writeTicks(const char* key, const ListBox& list) {
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.Selected(i)) closedLine(key, std::to_string(i));
    }
}

}  // namespace

void appendSettings(std::string& text, const Forms& forms, const Regional& regional, Host& host) {
    Writer(text, forms, regional, host).write();
}

}  // namespace velmora
