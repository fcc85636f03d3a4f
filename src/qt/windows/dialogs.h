// The small windows besides the main one.
#pragma once

#include <QWidget>

#include "forms/forms.h"
#include "qt/print/printing.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

QWidget* makeLockWindow(FrmLock& form, UserHand& hand);
QWidget* makeAboutWindow(FrmAbout& form, UserHand& hand);
QWidget* makeAlertWindow(DlgAlert& form, UserHand& hand);
QWidget* makeProgressWindow(Icon0& form, UserHand& hand);
QWidget* makeRecycleBinWindow(Icon1& form, UserHand& hand);
QWidget* makeDriveWindow(FrmIndDri& form, UserHand& hand);
QWidget* makeNotifyWindow(FrmNotify& form, UserHand& hand);
QWidget* makeDriveInfoWindow(DlgDriveInfo& form, UserHand& hand, Printing& printing);
QWidget* makeHistoryWindow(FrmHistory& form, UserHand& hand, Printing& printing);
QWidget* makeWizardWindow(FrmWizard& form, UserHand& hand);

}  // namespace velmora::qt
