// The alerts as one part of the program: the alert list and its dialog, the journal, the actions on
// a shortage, and the lists of files and programs they work on.
#pragma once

#include "alerts/actions/action_branch.h"
#include "alerts/actions/action_list_rules.h"
#include "alerts/dialog/alert_dialog_hiding.h"
#include "alerts/dialog/alert_dialog_options.h"
#include "alerts/dialog/alert_dialog_window.h"
#include "alerts/journal/alert_list.h"
#include "alerts/journal/journal_log.h"
#include "alerts/lists/file_list.h"
#include "alerts/lists/file_list_buttons.h"
#include "alerts/lists/manual_operations.h"
#include "alerts/lists/program_list.h"
#include "alerts/lists/program_list_buttons.h"
#include "alerts/ports.h"
#include "alerts/system/sound_buttons.h"
#include "alerts/system/system_actions.h"
#include "platform/surface.h"

namespace velmora {

class Alerts {
  public:
    /// What the main window's side provides.
    struct Window {
        StayOnTop& stayOnTop;
        Translucency& translucency;
    };

    /// Connects the handlers to the forms. All of the arguments must outlive it.
    Alerts(Forms& forms, Platform& platform, const Surface& surface, Window window);

    AlertList& list() { return list_; }
    AlertDialogWindow& dialog() { return dialog_; }
    JournalLog& log() { return log_; }
    SystemActions& systemActions() { return systemActions_; }
    const ActionTable& actions() const { return actions_.table(); }
    FileList& files() { return files_; }
    ActionListRules& actionListRules() { return actionListRules_; }

    /// To be called once the settings are read: gives the sounds their defaults and switches on the
    /// rules for ticking actions. The rules are for the user's ticks only: those from the settings
    /// followed the rules when they were set, and the start must not wait for an answer.
    void afterLoad();

  private:
    LogFile logFile_;
    AlertList list_;
    AlertDialogWindow dialog_;
    SystemActions systemActions_;
    JournalLog log_;
    SoundButtons soundButtons_;
    AlertDialogHiding dialogHiding_;
    AlertDialogOptions dialogOptions_;
    FileList files_;
    FileListButtons fileButtons_;
    ProgramList programs_;
    ProgramListButtons programButtons_;
    ManualOperations manualOperations_;
    Actions actions_;
    ActionListRules actionListRules_;
};

}  // namespace velmora
