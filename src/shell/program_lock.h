// The lock: hides the program's windows behind a password for the rest of the session. The password
// is held in the globals alone, never written to disk, and wiped once it isn't needed.
#pragma once

#include "forms/forms.h"
#include "monitor/ports.h"
#include "platform/host.h"

namespace velmora {

/// Sets the lock's form up for the present state, with nothing entered.
void setUpLock(Forms& forms);
/// The same, and shows it.
void prcSrvFrm(Forms& forms);

class ProgramLock {
  public:
    /// Connects the handlers to the lock's form.
    ProgramLock(Forms& forms, Host& host, Tray& tray);
    ProgramLock(const ProgramLock&) = delete;
    ProgramLock& operator=(const ProgramLock&) = delete;

    /// Button 0 locks or unlocks, as its caption says; any other closes the lock's window and
    /// changes nothing. Both ask for a password when none is entered.
    void Command1_Click(int index);
    /// `keyAscii` 13 is Enter.
    void Text1_KeyPress(int keyAscii);

  private:
    void Form_Load();
    void close();
    void lock();
    void unlock();
    void takePassword();
    void hideWindows();
    void keepHidden(Form& form);

    Forms& forms_;
    Host& host_;
    Tray& tray_;
    bool unlocking_ = false;
};

}  // namespace velmora
