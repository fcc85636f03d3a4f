// The panels of the main window's tabs.
#pragma once

#include <QWidget>

#include "forms/form1.h"
#include "qt/surface/user_hand.h"

namespace velmora::qt {

/// What is said in a list without rows, in the main window and in the wizard.
inline constexpr const char* noPrograms =
    "No programs listed. The action \"Run specified programs(s)\" runs those that are.";
inline constexpr const char* noFiles =
    "No files listed. What is listed here may be moved, deleted or sent to the recycle bin.";

/// "Spec.": programs, path and space, files, each with a tab of an inner strip.
QWidget* makeSpecifiedPanel(Form1& form, UserHand& hand);
/// "Options": what is to happen on a shortage, which events count, when to check.
QWidget* makeOptionsPanel(Form1& form, UserHand& hand);
/// "Alerts/Log": the alert list and the journal.
QWidget* makeAlertsPanel(Form1& form, UserHand& hand);
/// "Config.": how the program itself behaves.
QWidget* makeConfigPanel(Form1& form, UserHand& hand);
/// "Overview": how the watch is going.
QWidget* makeOverviewPanel(Form1& form, UserHand& hand);

/// A note that stays until it was read: its frame, its words and the button that closes it.
QWidget* makeNote(Frame& frame, Label& words, CommandButton& close, UserHand& hand);

}  // namespace velmora::qt
