// The specified programs: the rows of LVProg, their buttons and what is dropped there.
#pragma once

#include <string>
#include <vector>

#include "forms/form1.h"
#include "platform/file_system_object.h"
#include "platform/host.h"
#include "platform/shell32.h"

namespace velmora {

class ProgramList {
  public:
    /// Connects its handlers to the forms, which must outlive it like the rest.
    ProgramList(Form1& form1, FileSystemObject& fso, Shell32& shell32, Host& host);
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
    FileSystemObject& fso_;
    Shell32& shell32_;
    Host& host_;
};

}  // namespace velmora
