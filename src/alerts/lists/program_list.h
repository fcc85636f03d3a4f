// The specified programs: the rows of LVProg, their buttons and what is dropped there.
#pragma once

#include <string>
#include <vector>

#include "forms/forms.h"
#include "platform/host.h"
#include "platform/platform.h"

namespace velmora {

class ProgramList {
  public:
    /// Connects its handlers to the forms, which must outlive it like the rest.
    ProgramList(Forms& forms, Platform& platform, Host& host);
    ProgramList(const ProgramList&) = delete;
    ProgramList& operator=(const ProgramList&) = delete;

    void Label5_Click(int index);
    /// Adds the text of the box to its own entries when it names an existing file.
    void cmdPAdd_Click();

  private:
    void connect();
    bool boxNamesFile();
    void addFromBox();
    void addRow(std::string text, const std::string& path);
    void runSelected();
    void browse();
    void drop(const std::vector<std::string>& paths);

    Form1& form1_;
    Platform& platform_;
    Host& host_;
};

}  // namespace velmora
