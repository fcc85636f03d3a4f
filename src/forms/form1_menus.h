// The menus of the main window: the tray and main menu, and those that are popped up over a list or
// from the tool bar. Their items run the same handlers as the buttons.
#pragma once

#include "controls/buttons.h"

namespace velmora {

struct Form1Menus {
    explicit Form1Menus(Form& form) : menus_(form) {
        // No menu bar: they are popped up.
        for (MenuItem* menu : {&mnuPopUp, &mnuLstV, &mnuFunc, &mnuLst}) menu->setVisible(false);
    }

  private:
    Form& menus_;

  public:
    MenuItem mnuPopUp{menus_, "mnuPopUp"};  ///< of the icon in the notification area
    MenuItem mnuLock{menus_, "mnuLock", "(Un) &Lock", &mnuPopUp};
    MenuItem mnuPause{menus_, "mnuPause", "Pause", &mnuPopUp};
    MenuItem mnuHide{menus_, "mnuHide", "Hide Velmora", &mnuPopUp};
    MenuItem mnuShowAl{menus_, "mnuShowAl", "Show Alert Dialog", &mnuPopUp};
    MenuItem mnuSep{menus_, "mnuSep", MenuItem::separator, &mnuPopUp};
    MenuItem mnuHelp{menus_, "mnuHelp", "Help", &mnuPopUp};
    MenuItem mnuContent{menus_, "mnuContent", "Contents", &mnuHelp};
    MenuItem mnuSep2{menus_, "mnuSep2", MenuItem::separator, &mnuHelp};
    MenuItem mnuSep1{menus_, "mnuSep1", MenuItem::separator, &mnuHelp};
    MenuItem mnuPWP{menus_, "mnuPWP", "Program Webpage", &mnuHelp};
    MenuItem mnuComments{menus_, "mnuComments", "Send Comments", &mnuHelp};
    MenuItem mnuAbout{menus_, "mnuAbout", "About Velmora", &mnuHelp};
    MenuItem mnuExit{menus_, "mnuExit", "Exit", &mnuPopUp};

    MenuItem mnuLstV{menus_, "mnuLstV"};  ///< of ListView1
    MenuItem mnuExplore{menus_, "mnuExplore", "Explore", &mnuLstV};
    MenuItem mnuParam{menus_, "mnuParam", "Set Parameters", &mnuLstV};
    MenuItem mnuRemove{menus_, "mnuRemove", "Remove", &mnuLstV};
    MenuItem mnuInfo{menus_, "mnuInfo", "Show Info", &mnuLstV};

    MenuItem mnuFunc{menus_, "mnuFunc"};  ///< of the tool bar's "Functions"
    MenuItem mnuProgSet{menus_, "mnuProgSet", "Set Program Settings", &mnuFunc};
    MenuItem mnuRecyc{menus_, "mnuRecyc", "Show Recycle Bin", &mnuFunc};
    MenuItem mnuDefrag{menus_, "mnuDefrag", "Defrag Utility", &mnuFunc};
    MenuItem mnuEmptyRecyc{menus_, "mnuEmptyRecyc", "Empty Recycle Bin", &mnuFunc};
    MenuItem mnuNotif{menus_, "mnuNotif", "Notification", &mnuFunc};
    MenuItem mnuShowAlert{menus_, "mnuShowAlert", "Show Alert Dialog", &mnuFunc};
    MenuItem mnuCleaner{menus_, "mnuCleaner", "Clean Manager", &mnuFunc};
    MenuItem mnuSorbane{menus_, "mnuSorbane", "Sorbane Program", &mnuFunc};
    MenuItem mnuSSep{menus_, "mnuSSep", MenuItem::separator, &mnuFunc};
    MenuItem mnuToSystray{menus_, "mnuToSystray", "To Systray", &mnuFunc};
    MenuItem mnuStayOnTop{menus_, "mnuStayOnTop", "Stay On Top", &mnuFunc};
    MenuItem mnuF{menus_, "mnuF", "Window Translucency", &mnuFunc};
    MenuItem mnuFadeH{menus_, "mnuFadeH", "Level : High", &mnuF};
    MenuItem mnuFadeP{menus_, "mnuFadeP", "Level: Minimal", &mnuF};
    MenuItem mnuFadeN{menus_, "mnuFadeN", "Level: None", &mnuF};

    MenuItem mnuLst{menus_, "mnuLst"};  ///< of LVFile
    MenuItem mnuFileAttr{menus_, "mnuFileAttr", "File Attributes", &mnuLst};
};

}  // namespace velmora
