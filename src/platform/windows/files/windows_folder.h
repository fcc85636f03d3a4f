// A folder of this machine.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/file_system_object.h"
#include "platform/windows/files/entry_reading.h"

namespace velmora::windows {

class WindowsFolder final : public Folder {
  public:
    /// The reading's path is absolute, without a back-slash at the end unless it is a root.
    /// `asWritten` is the path that named the folder: what is removed is what it names by the
    /// letter.
    WindowsFolder(EntryReading reading, std::string asWritten);

    std::string Path() const override { return reading_.path(); }
    double Size() override;
    DateTime DateLastAccessed() override { return localTime(facts().accessed); }
    DateTime DateLastModified() override { return localTime(facts().written); }
    DateTime DateCreated() override { return localTime(facts().created); }
    std::string Type() override { return reading_.type(true); }
    double FilesCount() override { return static_cast<double>(counts().files); }
    double SubFoldersCount() override { return static_cast<double>(counts().folders); }
    void Delete(bool force) override;

  private:
    struct Counts {
        std::uint64_t files = 0;
        std::uint64_t folders = 0;
    };

    static std::optional<Counts> count(const std::string& path);
    const EntryFacts& facts() { return reading_.facts(true); }
    const Counts& counts();
    double measure();

    EntryReading reading_;
    std::string asWritten_;
    std::optional<Counts> counts_;
    std::optional<double> size_;
};

}  // namespace velmora::windows
