// The keys of the settings reader in the order in which it looks for them, and what each sets.
#pragma once

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "settings_rig.h"

namespace velmora::tests {

enum class Takes {
    number,  ///< refuses any other text
    date,    ///< likewise
    text,    ///< takes the value unchanged
    sound,   ///< a sound file
    path,    ///< selects a row
};

struct ReaderKey {
    const char* key;  ///< what is searched
    Takes takes;
    const char* value;  ///< an example; unlike the field's design value
    const char* shown;  ///< what the field shows then
    std::function<std::string(SettingsRig&)> field;
};

// The form of a field that is named by its part of the main window.
template <typename Part>
Part& formOf(SettingsRig& rig) {
    if constexpr (std::is_base_of_v<Part, FrmNotify>) {
        return rig.notify;
    } else {
        return rig.form1;
    }
}

template <typename Text, typename Part>
auto textOf(Text Part::*box) {
    return [box](SettingsRig& rig) { return (formOf<Part>(rig).*box).Text(); };
}

template <typename Part>
auto tickOf(CheckBox Part::*box) {
    return [box](SettingsRig& rig) { return std::to_string((formOf<Part>(rig).*box).Value()); };
}

inline std::string ticks(const ListBox& list) {
    std::string shown;
    for (const int i : SettingsRig::ticked(list)) shown += std::to_string(i) + ' ';
    return shown;
}

inline std::string texts(const ComboBox& box) {
    std::string shown;
    for (const std::string& text : SettingsRig::entries(box)) shown += text;
    return shown;
}

inline std::string timeOf(const DatePicker& picker) {
    return Format(picker.Value(), "h:nn");
}

inline std::string selectedRows(SettingsRig& rig) {
    std::string shown;
    for (int i = 1; i <= rig.form1.ListView1.Count(); ++i) {
        const ListItem& row = rig.form1.ListView1.ListItems(i);
        if (row.Selected()) shown += row.Text();
    }
    return shown;
}

// Without the ninth, which is the first one again.
inline const std::vector<ReaderKey> readerKeys{
    {"custtime=", Takes::number, "1", "1", tickOf(&Form1::chkCustTime)},
    {"filetype=", Takes::text, "t", "t", textOf(&Form1::txtFileType)},
    {"path2move=", Takes::text, "t", "t", textOf(&Form1::txtDrive)},
    {"minspace=", Takes::text, "12", "12", textOf(&Form1::txtSpace)},
    {"updateauto=", Takes::number, "1", "1", tickOf(&Form1::chkUpdate)},
    {"txtTime=", Takes::number, "75", "75", textOf(&Form1::txtTime)},
    {"cboFile=", Takes::text, "t", "t", [](SettingsRig& rig) { return texts(rig.form1.cboFile); }},
    {"lstAct=", Takes::number, "3", "3 ", [](SettingsRig& rig) { return ticks(rig.form1.lstAct); }},
    {"custtimebegin=", Takes::date, "3:04:00 AM", "3:04",
     [](SettingsRig& rig) { return timeOf(rig.form1.DTTime1[0]); }},
    {"custtimeend=", Takes::date, "3:04:00 AM", "3:04",
     [](SettingsRig& rig) { return timeOf(rig.form1.DTTime1[1]); }},
    {"path=", Takes::path, "row", "row", selectedRows},
    {"cboNotEmail=", Takes::text, "t", "t",
     [](SettingsRig& rig) { return texts(rig.notify.cboNotEmail); }},
    {"lstNotContent=", Takes::number, "3", "3 ",
     [](SettingsRig& rig) { return ticks(rig.notify.lstNotContent); }},
    {"lstNotTime=", Takes::number, "3", "3 ",
     [](SettingsRig& rig) { return ticks(rig.notify.lstNotTime); }},
    {"lstNotProxy=", Takes::text, "t", "t", textOf(&FrmNotify::txtProxy)},
    {"lstNotPort=", Takes::text, "t", "t", textOf(&FrmNotify::txtPort)},
    {"notEmail=", Takes::text, "t", "t", textOf(&FrmNotify::txtYourEmail)},
    {"notEmailUser=", Takes::text, "t", "t", textOf(&FrmNotify::txtUser)},
    {"notEmailPass=", Takes::text, "t", "t", textOf(&FrmNotify::txtPass)},
    {"notMailServer=", Takes::text, "t", "t", textOf(&FrmNotify::txtMailServer)},
    {"notEmailSubj=", Takes::text, "t", "t", textOf(&FrmNotify::txtMailSubj)},
    {"notMailFromDisp=", Takes::text, "t", "t", textOf(&FrmNotify::txtMailFromDisplayName)},
    {"notchkProxy=", Takes::number, "1", "1", tickOf(&FrmNotify::chkProxy)},
    {"notchkHTML=", Takes::number, "1", "1", tickOf(&FrmNotify::chkIsHTML)},
    {"nottxtPort=", Takes::text, "t", "t", textOf(&FrmNotify::txtPort)},
    {"nottxtProxy=", Takes::text, "t", "t", textOf(&FrmNotify::txtProxy)},
    {"notDTPicker2=", Takes::date, "3:04:00 AM", "3:04",
     [](SettingsRig& rig) { return timeOf(rig.notify.DTPicker2); }},
    {"notDTPicker1=", Takes::date, "3:04:00 AM", "3:04",
     [](SettingsRig& rig) { return timeOf(rig.notify.DTPicker1); }},
    {"notCustEvtAmt=", Takes::text, "t", "t", textOf(&FrmNotify::txtCustEvtAmt)},
    {"notCustCont=", Takes::text, "t", "t", textOf(&FrmNotify::txtCustomContent)},
    {"notCustMsg=", Takes::text, "t", "t", textOf(&FrmNotify::txtCustMsg)},
    {"notcboEmail=", Takes::text, "t", "t",
     [](SettingsRig& rig) { return texts(rig.notify.cboNotEmail); }},
    {"NotlstContent=", Takes::number, "3", "3 ",
     [](SettingsRig& rig) { return ticks(rig.notify.lstNotContent); }},
    {"notlstTime=", Takes::number, "3", "3 ",
     [](SettingsRig& rig) { return ticks(rig.notify.lstNotTime); }},
    {"txtAudio0=", Takes::sound, "C:\\beep.wav", "C:\\beep.wav",
     [](SettingsRig& rig) { return rig.form1.txtAudio[0].Text(); }},
    {"txtAudio1=", Takes::sound, "C:\\beep.wav", "C:\\Windows\\media\\chimes.wav",
     [](SettingsRig& rig) { return rig.form1.txtAudio[1].Text(); }},
    {"chkNTLog=", Takes::number, "1", "1", tickOf(&Form1::chkNTLog)},
    {"chkLog=", Takes::number, "0", "0", tickOf(&Form1::chkLog)},
    {"chkAutoSave=", Takes::number, "1", "1", tickOf(&Form1::chkAutoSave)},
    {"chkUpdate=", Takes::number, "1", "1", tickOf(&Form1::chkUpdate)},
    {"chkStartUp=", Takes::number, "1", "1", tickOf(&Form1::chkStartUp)},
    {"chkOnTopMonitor=", Takes::number, "1", "1", tickOf(&Form1::chkOnTopMonitor)},
    {"insystray=", Takes::number, "0", "0", tickOf(&Form1::chkSystray)},
    {"lstEvt=", Takes::number, "3", "3 ", [](SettingsRig& rig) { return ticks(rig.form1.lstEvt); }},
};

}  // namespace velmora::tests
