#include "machine_under_test.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "base/text.h"
#include "fake/fake_machine.h"

namespace velmora::contract {

namespace {

namespace fs = std::filesystem;

class MachineInMemory final : public MachineUnderTest {
  public:
    MachineInMemory() {
        machine_.drives["C:"] = {.freeBytes = 40e9, .totalBytes = 100e9};
        machine_.rawVolumes.volumes["C:"] = {
            .label = "SYSTEM", .fileSystem = "NTFS", .space = {8, 512, 9765625, 24414062}};
        machine_.folders.insert(lowerCase(scratch()));
    }

    Machine& machine() override { return machine_; }
    std::string scratch() const override { return "C:\\Temp\\contract"; }
    void makeFolder(const std::string& path) override { machine_.folders.insert(lowerCase(path)); }
    void makeFile(const std::string& path, std::string_view content) override {
        machine_.files[path] = content;
    }
    std::string readFile(const std::string& path) override { return machine_.files.at(path); }
    void remove(const std::string& path) override {
        machine_.folders.erase(lowerCase(path));
        machine_.files.erase(path);
    }
    bool takesQuotes() const override { return true; }

  private:
    fake::FakeMachine machine_;
};

std::string utf8Of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

// Windows takes long paths only with a prefix.
fs::path pathOf(const std::string& hostPath) {
    const bool isDrivePath = hostPath.size() > 2 && hostPath[1] == ':';
    const std::string text = isDrivePath ? "\\\\?\\" + hostPath : hostPath;
    return std::u8string(text.begin(), text.end());
}

class RealMachine final : public MachineUnderTest {
  public:
    RealMachine() {
        std::random_device random;
        const std::string name = "velmora-contract-" + std::to_string(random());
        const fs::path folder = fs::temp_directory_path() / name;
        fs::create_directory(folder);
        scratch_ = machine_->toDrivePath(utf8Of(folder));
    }
    ~RealMachine() override {
        // One by one: walking a tree fails on long paths on Windows.
        std::error_code ignored;
        for (auto made = made_.rbegin(); made != made_.rend(); ++made) fs::remove(*made, ignored);
        fs::remove_all(hostPath(scratch_), ignored);
    }

    Machine& machine() override { return *machine_; }
    std::string scratch() const override { return scratch_; }
    void makeFolder(const std::string& path) override {
        fs::create_directory(hostPath(path));
        made_.push_back(hostPath(path));
    }
    void makeFile(const std::string& path, std::string_view content) override {
        std::ofstream(hostPath(path), std::ios::binary) << content;
        made_.push_back(hostPath(path));
    }
    std::string readFile(const std::string& path) override {
        std::ifstream file(hostPath(path), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void remove(const std::string& path) override { fs::remove(hostPath(path)); }
    bool takesQuotes() const override { return fs::path::preferred_separator == '/'; }

  private:
    fs::path hostPath(const std::string& path) { return pathOf(machine_->toHostPath(path)); }

    std::shared_ptr<void> user_ = leaveUserAlone();
    std::unique_ptr<Machine> machine_ = openMachine();
    std::string scratch_;
    std::vector<fs::path> made_;
};

}  // namespace

std::unique_ptr<MachineUnderTest> machineInMemory() {
    return std::make_unique<MachineInMemory>();
}

std::unique_ptr<MachineUnderTest> realMachine() {
    return std::make_unique<RealMachine>();
}

std::string ContractTest::logicalDrives() {
    std::string buffer(200, '#');
    const auto used = platform().kernel32.GetLogicalDriveStringsA(200, buffer);
    return buffer.substr(0, used);
}

std::string ContractTest::letterWithoutDrive() {
    const std::string roots = logicalDrives();
    for (char letter = 'Z'; letter > 'C'; --letter) {
        if (roots.find(letter) == std::string::npos) return {letter, ':'};
    }
    return {};
}

}  // namespace velmora::contract
