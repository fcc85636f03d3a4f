// A file of this machine.
#pragma once

#include <string>
#include <utility>

#include "platform/file_system_object.h"
#include "platform/windows/files/entry_reading.h"

namespace velmora::windows {

class WindowsFile final : public File {
  public:
    explicit WindowsFile(EntryReading reading) : reading_(std::move(reading)) {}

    std::string Path() const override { return reading_.path(); }
    double Size() override { return static_cast<double>(facts().size); }
    DateTime DateLastAccessed() override { return localTime(facts().accessed); }
    DateTime DateLastModified() override { return localTime(facts().written); }
    DateTime DateCreated() override { return localTime(facts().created); }
    std::string Type() override { return reading_.type(false); }

  private:
    const EntryFacts& facts() { return reading_.facts(false); }

    EntryReading reading_;
};

}  // namespace velmora::windows
