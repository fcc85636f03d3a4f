#include <utility>

#include "base/runtime_error.h"
#include "fake/fake_parts.h"

namespace velmora::fake {

namespace {

constexpr std::int32_t noSuchKey = 2;
constexpr std::int32_t accessDenied = 5;
constexpr std::int32_t invalidHandle = 6;
constexpr std::uint32_t queryValueRight = 1;
constexpr std::uint32_t setValueRight = 2;
constexpr std::int32_t invalidArgument = static_cast<std::int32_t>(0x80070057);

template <typename Registry>
auto findKey(Registry& registry, std::uint32_t hive, const std::string& subKey) {
    const std::string lower = lowerCase(subKey);
    return std::find_if(registry.begin(), registry.end(), [&](const auto& entry) {
        return entry.first.first == hive && lowerCase(entry.first.second) == lower;
    });
}

}  // namespace

class FakeMachine::Desktop::FileShortcut final : public Shortcut {
  public:
    FileShortcut(FakeMachine& machine, std::string file)
        : machine_(machine), file_(std::move(file)) {}

    void Save() override {
        machine_.record("Save " + file_);
        machine_.disks_->openForWriting(file_) = TargetPath + ' ' + Arguments;
        machine_.shortcuts.push_back({file_, Arguments, Description, HotKey, IconLocation,
                                      TargetPath, WorkingDirectory, WindowStyle});
    }

  private:
    FakeMachine& machine_;
    std::string file_;
};

class FakeMachine::Desktop::Output final : public WshExec {
  public:
    explicit Output(std::string text) : text_(std::move(text)) {}
    std::string ReadAll() override { return text_; }

  private:
    std::string text_;
};

std::unique_ptr<WshExec> FakeMachine::Desktop::Exec(const std::string& command) {
    machine.record("Exec " + command);
    const auto output = machine.outputs.find(command);
    if (output == machine.outputs.end()) throw RuntimeError(error::fileNotFound);
    return std::make_unique<Output>(output->second);
}

FakeRegistryKey& FakeMachine::runKey() {
    return registry[{hive::localMachine, R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)"}];
}

int FakeMachine::openKeys() const {
    return static_cast<int>(desktop_->open.size());
}

FakeRegistryKey* FakeMachine::Desktop::find(RegistryKey key) {
    const auto opened = open.find(key);
    if (opened == open.end()) return nullptr;
    const auto found =
        findKey(machine.registry, opened->second.name.first, opened->second.name.second);
    return found == machine.registry.end() ? nullptr : &found->second;
}

std::int32_t FakeMachine::Desktop::RegOpenKeyExA(std::uint32_t hive, const std::string& subKey,
                                                 std::uint32_t options, std::uint32_t access,
                                                 RegistryKey& key) {
    const auto failure =
        machine.recordCode("RegOpenKeyExA " + std::to_string(hive) + ' ' + subKey + ' ' +
                           std::to_string(options) + ' ' + std::to_string(access));
    if (failure != 0) return failure;
    const auto found = findKey(machine.registry, hive, subKey);
    if (found == machine.registry.end()) return noSuchKey;
    if (found->second.openResult != 0) return found->second.openResult;
    key = ++lastKey;
    open[key] = {found->first, access};
    return 0;
}

std::int32_t FakeMachine::Desktop::RegSetValueExA(RegistryKey key, const std::string& name,
                                                  std::uint32_t reserved, std::uint32_t type,
                                                  const std::string& data, std::uint32_t length) {
    const auto failure =
        machine.recordCode("RegSetValueExA " + name + ' ' + std::to_string(reserved) + ' ' +
                           std::to_string(type) + ' ' + data + ' ' + std::to_string(length));
    if (failure != 0) return failure;
    FakeRegistryKey* found = find(key);
    if (!found) return invalidHandle;
    if (!isAllowed(key, setValueRight)) return accessDenied;
    if (found->setResult == 0) found->values[name] = {type, data.substr(0, length)};
    return found->setResult;
}

std::int32_t FakeMachine::Desktop::RegQueryValueExA(RegistryKey key, const std::string& name,
                                                    std::uint32_t& type, std::string& data) {
    const auto failure = machine.recordCode("RegQueryValueExA " + name);
    if (failure != 0) return failure;
    const FakeRegistryKey* found = find(key);
    if (!found) return invalidHandle;
    if (!isAllowed(key, queryValueRight)) return accessDenied;
    if (found->queryResult != 0) return found->queryResult;
    const auto value = found->values.find(name);
    if (value == found->values.end()) return noSuchKey;
    type = value->second.type;
    data = value->second.data;
    return 0;
}

std::int32_t FakeMachine::Desktop::RegCloseKey(RegistryKey key) {
    if (const auto failure = machine.recordCode("RegCloseKey"); failure != 0) return failure;
    const FakeRegistryKey* found = find(key);
    const std::int32_t result = found ? found->closeResult : invalidHandle;
    if (result == 0) open.erase(key);
    return result;
}

bool FakeMachine::Desktop::GetUserNameA(std::string& buffer, std::uint32_t& size) {
    if (machine.recordCode("GetUserNameA " + std::to_string(size)) != 0) return false;
    const std::string name = machine.userName + '\0';
    const bool fits = name.size() <= size;
    size = static_cast<std::uint32_t>(name.size());
    if (fits) buffer.replace(0, name.size(), name);
    return fits;
}

std::int32_t FakeMachine::Desktop::SHGetSpecialFolderLocation(std::int32_t csidl,
                                                              ItemIdList& list) {
    const auto failure = machine.recordCode("SHGetSpecialFolderLocation " + std::to_string(csidl));
    if (failure != 0) return failure;
    const auto found = machine.specialFolders.find(csidl);
    if (found == machine.specialFolders.end()) return invalidArgument;
    list.place = found->second;
    return 0;
}

bool FakeMachine::Desktop::SHGetPathFromIDListA(const ItemIdList& list, std::string& buffer) {
    if (machine.recordCode("SHGetPathFromIDListA " + list.place) != 0) return false;
    return Shell32::SHGetPathFromIDListA(list, buffer);
}

std::int32_t FakeMachine::Desktop::ShellExecuteA(
    const std::string& owner, const std::string& operation, const std::string& file,
    const std::string& parameters, const std::string& directory, std::int32_t showCommand) {
    constexpr std::int32_t taken = 42;
    const std::int32_t code = machine.recordCode("ShellExecuteA " + operation + ' ' + file);
    if (code != 0) return code;
    machine.executed.push_back({{.mask = 0, .owner = owner, .verb = operation, .file = file},
                                parameters,
                                directory,
                                showCommand});
    return machine.executes ? taken : 2;
}

bool FakeMachine::Desktop::ShellExecuteEx(const ShellExecuteInfo& info) {
    if (machine.recordCode("ShellExecuteEx " + info.verb + ' ' + info.file) != 0) return false;
    machine.executed.push_back({info, {}, {}, 0});
    return machine.executes;
}

Browse FakeMachine::Desktop::SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) {
    const auto failure = machine.recordCode("SHBrowseForFolder " + info.owner + ' ' + info.title +
                                            ' ' + std::to_string(info.flags));
    if (failure != 0) return Browse::dismissed;
    if (!machine.browses) return Browse::unavailable;
    machine.browsers.push_back(info);
    if (info.whileOpen) info.whileOpen();
    if (machine.browsed.empty()) return Browse::dismissed;
    const std::string folder = machine.browsed.front();
    machine.browsed.pop_front();
    if (folder.empty()) return Browse::dismissed;
    list.place = folder;
    return Browse::chosen;
}

std::int32_t FakeMachine::Desktop::SHEmptyRecycleBinA(const std::string& owner,
                                                      const std::string& root,
                                                      std::uint32_t flags) {
    const auto failure = machine.recordCode("SHEmptyRecycleBinA " + owner + ' ' + root + ' ' +
                                            std::to_string(flags));
    if (failure != 0) return failure;
    machine.emptied.push_back({owner, root, flags});
    return machine.emptyResult;
}

std::unique_ptr<Shortcut> FakeMachine::Desktop::CreateShortcut(const std::string& file) {
    if (machine.recordCode("CreateShortcut " + file) != 0) return nullptr;
    const std::string key = lowerCase(file);
    if (!key.ends_with(".lnk") && !key.ends_with(".url")) return nullptr;
    return std::make_unique<FileShortcut>(machine, file);
}

}  // namespace velmora::fake
