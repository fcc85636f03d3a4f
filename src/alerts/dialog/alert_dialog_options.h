// The ways of freeing space that the alert dialog offers, and its wizard, which leads to the
// chosen one.
#pragma once

#include <cstddef>
#include <string>

#include "forms/dialogs.h"
#include "forms/form1.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class AlertDialogOptions {
  public:
    /// Connects the labels of the options and the wizard.
    AlertDialogOptions(Form1& form1, DlgAlert& dlgAlert, Platform& platform, Host& host);
    AlertDialogOptions(const AlertDialogOptions&) = delete;
    AlertDialogOptions& operator=(const AlertDialogOptions&) = delete;

    /// By the place of the option in lblAct: says what it would do and keeps it as the pending
    /// one; the first, "Sorbane", starts the sibling cleaner at once.
    void lblAct_Click(std::size_t index);
    /// Starts the sibling cleaner for the first drive in shortage, which it reads from the file
    /// clen.dat. An error of that file goes to the caller, and nothing is started then; whether
    /// the cleaner is there isn't looked at.
    void startSorbane();
    /// Moving and deleting: lets the user choose files, puts their names into cboFile and clears
    /// the first actions of a shortage. Nothing for the other options.
    void Wizard_Click();

  private:
    std::string driveInAlert();
    void chooseFiles();
    void clearFileActions();

    Form1& form1_;
    DlgAlert& dlgAlert_;
    Platform& platform_;
    Host& host_;
};

}  // namespace velmora
