#include "persist/settings_reader.h"

#include <array>
#include <functional>

#include "base/code_page.h"
#include "base/convert.h"
#include "base/input_fields.h"
#include "base/leading_number.h"
#include "base/runtime_error.h"
#include "base/text.h"
#include "persist/scramble.h"

namespace velmora {

namespace {

class Reader {
  public:
    Reader(Forms& forms, Platform& platform)
        : forms_(forms),
          form1_(forms.form1),
          notify_(forms.frmNotify),
          platform_(platform),
          regional_(platform.regional) {}

    void takeLine(const std::string& line);

  private:
    using Action = void (*)(Reader&, const std::string& value);
    struct Key {
        const char* searched;
        const char* removed;
        Action action;
    };
    static const std::array<Key, 45> keys;

    int number(const std::string& value) const { return toInteger(value, regional_); }
    void tick(CheckBox& box, const std::string& value) { box.setValue(number(value)); }
    void pick(ListBox& list, const std::string& value);
    void pick(DatePicker& picker, const std::string& value);
    void sound(std::size_t index, const std::string& value);
    void selectPath(const std::string& value);
    void interval(const std::string& value);

    Forms& forms_;
    Form1& form1_;
    FrmNotify& notify_;
    Platform& platform_;
    const Regional& regional_;
};

// Searched in this order; the first key that occurs anywhere in a line takes it.
const std::array<Reader::Key, 45> Reader::keys{{
    {"custtime=", "custtime=", [](Reader& r, auto& v) { r.tick(r.form1_.chkCustTime, v); }},
    {"filetype=", "filetype=", [](Reader& r, auto& v) { r.form1_.txtFileType.setText(v); }},
    {"path2move=", "path2move=", [](Reader& r, auto& v) { r.form1_.txtDrive.setText(v); }},
    {"minspace=", "minspace=",
     [](Reader& r, auto& v) {
         std::string digits = v;
         r.form1_.txtSpace.setText(prcChkString(digits, "", r.regional_));
     }},
    {"updateauto=", "updateauto=",
     [](Reader& r, auto& v) {
         r.tick(r.form1_.chkUpdate, v);
         r.forms_.globals.bAutoUpdate = true;
     }},
    {"txtTime=", "txtTime=", [](Reader& r, auto& v) { r.interval(v); }},
    {"cboFile=", "cboFile=",
     [](Reader& r, auto& v) {
         if (!v.empty()) r.form1_.cboFile.AddItem(v);
     }},
    {"lstAct=", "lstAct=", [](Reader& r, auto& v) { r.pick(r.form1_.lstAct, v); }},
    // Never reached: the first key takes such lines.
    {"custtime=", "custtime=", [](Reader& r, auto& v) { r.tick(r.form1_.chkCustTime, v); }},
    {"custtimebegin=", "custtimebegin=",
     [](Reader& r, auto& v) { r.pick(r.form1_.DTTime1[0], v); }},
    {"custtimeend=", "custtimeend=", [](Reader& r, auto& v) { r.pick(r.form1_.DTTime1[1], v); }},
    {"path=", "path=", [](Reader& r, auto& v) { r.selectPath(v); }},
    // Keys of older files.
    {"cboNotEmail=", "cboNotEmail=",
     [](Reader& r, auto& v) { r.notify_.cboNotEmail.AddItem(lowerCase(trim(v))); }},
    {"lstNotContent=", "lstNotContent=",
     [](Reader& r, auto& v) { r.pick(r.notify_.lstNotContent, v); }},
    {"lstNotTime=", "lstNotTime=", [](Reader& r, auto& v) { r.pick(r.notify_.lstNotTime, v); }},
    {"lstNotProxy=", "lstNotProxy=",
     [](Reader& r, auto& v) {
         r.notify_.txtProxy.setText(v);
         r.notify_.chkProxy.setValue(1);
     }},
    {"lstNotPort=", "lstNotPort=", [](Reader& r, auto& v) { r.notify_.txtPort.setText(v); }},
    {"notEmail=", "notEmail=", [](Reader& r, auto& v) { r.notify_.txtYourEmail.setText(v); }},
    {"notEmailUser=", "notEmailUser=", [](Reader& r, auto& v) { r.notify_.txtUser.setText(v); }},
    {"notEmailPass=", "notEmailPass=", [](Reader& r, auto& v) { r.notify_.txtPass.setText(v); }},
    {"notMailServer=", "notMailServer=",
     [](Reader& r, auto& v) { r.notify_.txtMailServer.setText(v); }},
    {"notEmailSubj=", "notEmailSubj=",
     [](Reader& r, auto& v) { r.notify_.txtMailSubj.setText(v); }},
    {"notMailFromDisp=", "notMailFromDisp=",
     [](Reader& r, auto& v) { r.notify_.txtMailFromDisplayName.setText(v); }},
    {"notchkProxy=", "notchkProxy=", [](Reader& r, auto& v) { r.tick(r.notify_.chkProxy, v); }},
    {"notchkHTML=", "notchkHTML=", [](Reader& r, auto& v) { r.tick(r.notify_.chkIsHTML, v); }},
    {"nottxtPort=", "nottxtPort=", [](Reader& r, auto& v) { r.notify_.txtPort.setText(v); }},
    {"nottxtProxy=", "nottxtProxy=", [](Reader& r, auto& v) { r.notify_.txtProxy.setText(v); }},
    {"notDTPicker2=", "notDTPicker2=", [](Reader& r, auto& v) { r.pick(r.notify_.DTPicker2, v); }},
    {"notDTPicker1=", "notDTPicker1=", [](Reader& r, auto& v) { r.pick(r.notify_.DTPicker1, v); }},
    {"notCustEvtAmt=", "notCustEvtAmt=",
     [](Reader& r, auto& v) { r.notify_.txtCustEvtAmt.setText(v); }},
    {"notCustCont=", "notCustCont=",
     [](Reader& r, auto& v) { r.notify_.txtCustomContent.setText(v); }},
    {"notCustMsg=", "notCustMsg=", [](Reader& r, auto& v) { r.notify_.txtCustMsg.setText(v); }},
    {"notcboEmail=", "notcboEmail=", [](Reader& r, auto& v) { r.notify_.cboNotEmail.AddItem(v); }},
    {"NotlstContent",
     "NotlstContent=", [](Reader& r, auto& v) { r.pick(r.notify_.lstNotContent, v); }},
    {"notlstTime", "notlstTime=", [](Reader& r, auto& v) { r.pick(r.notify_.lstNotTime, v); }},
    {"txtAudio0", "txtAudio0=", [](Reader& r, auto& v) { r.sound(0, v); }},
    // Removes the other element's key, so that its own stays in the value and names no file.
    {"txtAudio1", "txtAudio0=", [](Reader& r, auto& v) { r.sound(1, v); }},
    {"chkNTLog=", "chkNTLog=", [](Reader& r, auto& v) { r.tick(r.form1_.chkNTLog, v); }},
    {"chkLog=", "chkLog=", [](Reader& r, auto& v) { r.tick(r.form1_.chkLog, v); }},
    {"chkAutoSave=", "chkAutoSave=", [](Reader& r, auto& v) { r.tick(r.form1_.chkAutoSave, v); }},
    {"chkUpdate=", "chkUpdate=", [](Reader& r, auto& v) { r.tick(r.form1_.chkUpdate, v); }},
    {"chkStartUp=", "chkStartUp=", [](Reader& r, auto& v) { r.tick(r.form1_.chkStartUp, v); }},
    {"chkOnTopMonitor=", "chkOnTopMonitor=",
     [](Reader& r, auto& v) { r.tick(r.form1_.chkOnTopMonitor, v); }},
    {"insystray=", "insystray=", [](Reader& r, auto& v) { r.tick(r.form1_.chkSystray, v); }},
    {"lstEvt=", "lstEvt=", [](Reader& r, auto& v) { r.pick(r.form1_.lstEvt, v); }},
}};

void Reader::takeLine(const std::string& line) {
    for (const Key& key : keys) {
        if (!contains(line, key.searched)) continue;
        key.action(*this, replaceAll(line, key.removed, ""));
        return;
    }
}

void Reader::pick(ListBox& list, const std::string& value) {
    const int index = number(value);
    if (index < 0 || index >= list.ListCount()) throw RuntimeError(error::typeMismatch);
    list.setSelected(index, true);
}

void Reader::pick(DatePicker& picker, const std::string& value) {
    // The line end that such a line carries is no part of the date.
    const auto date = readDate(replaceAll(value, lineEnd, ""), regional_);
    if (!date) throw RuntimeError(error::typeMismatch);
    picker.setValue(*date);
}

void Reader::sound(std::size_t index, const std::string& value) {
    const bool exists = platform_.fso.FileExists(value);
    form1_.txtAudio[index].setText(
        exists ? value : platform_.kernel32.GetWindowsDirectoryA() + "\\media\\chimes.wav");
}

void Reader::selectPath(const std::string& value) {
    const std::string wanted = lowerCase(trim(value));
    ListView& list = form1_.ListView1;
    for (int i = 1; i <= list.Count(); ++i) {
        ListItem& row = list.ListItems(i);
        if (lowerCase(row.Text()) == wanted) row.setSelected(true);
    }
}

void Reader::interval(const std::string& value) {
    form1_.txtTime.setText(value);
    setInterval(form1_.DTPInterval, toDouble(value, regional_));
}

// Older files hold Windows-1252.
std::string asUtf8(const std::string& line) {
    return isValidUtf8(line) ? line : fromWindows1252(line);
}

}  // namespace

void readSettings(std::string_view content, Forms& forms, Platform& platform) {
    Reader reader(forms, platform);
    InputFields fields(content);
    while (!fields.atEnd()) {
        const std::string field = fields.next();
        if (field.empty()) continue;
        reader.takeLine(trim(asUtf8(prcDe(trim(field)))));
    }
}

void setInterval(DatePicker& picker, double seconds) {
    const auto put = [&picker](int most, void (DatePicker::*set)(int), std::int32_t value) {
        if (value >= 0 && value <= most) (picker.*set)(value);
    };
    put(23, &DatePicker::setHour, seconds >= 3600 ? toLong(seconds / 3600) : 0);

    std::int32_t minutes = 0;
    if (seconds >= 60) {
        minutes = toLong(seconds / 60);
        if (minutes >= 60) minutes = toLong(seconds) % 3600;
    }
    put(59, &DatePicker::setMinute, minutes);

    std::int32_t rest = 0;
    if (seconds >= 60) {
        rest = toLong(seconds) % 60;
    } else if (seconds >= 10) {
        rest = toLong(seconds);
    }
    put(59, &DatePicker::setSecond, rest);
}

}  // namespace velmora
