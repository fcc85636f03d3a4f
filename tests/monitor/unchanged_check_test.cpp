// A check that finds nothing new takes no memory.
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "monitor/check_rig.h"
#include "platform/measured_drive.h"

namespace {

std::atomic<bool> countsAllocations = false;
std::atomic<int> allocations = 0;

}  // namespace

// All forms of the operator that are not replaced come here. Never inlined: a compiler that sees
// one of a pair takes the other for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size) {
    if (countsAllocations) ++allocations;
    if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace velmora::tests {
namespace {

class RoomyDrive final : public MeasuredDrive {
  public:
    explicit RoomyDrive(std::string path) : MeasuredDrive(std::move(path)) {}

  private:
    std::optional<DriveSpace> measure() override { return DriveSpace{5e9, 10e9}; }
};

// Drives as a real machine's are, and nothing else: whoever asks more than that is told.
class RoomyDrives final : public FileSystemObject {
  public:
    std::unique_ptr<Drive> GetDrive(const std::string& designator) override {
        return std::make_unique<RoomyDrive>(requiredDrive(designator));
    }
    bool DriveExists(const std::string&) override { return true; }
    bool FolderExists(const std::string&) override { return false; }
    bool FileExists(const std::string&) override { return true; }
    std::unique_ptr<Folder> GetFolder(const std::string&) override {
        throw RuntimeError(error::pathNotFound);
    }
    std::unique_ptr<File> GetFile(const std::string&) override {
        throw RuntimeError(error::fileNotFound);
    }
};

// A check of its own over the rows of a rig, since the machine in memory records what it is asked.
struct QuietCheck : Rig {
    explicit QuietCheck(int rows) {
        load();
        list.Clear();
        for (int i = 0; i < rows; ++i) {
            row(std::string(1, static_cast<char>('C' + i % 3)) + ":\\a folder with a long name\\" +
                std::to_string(i));
        }
        form1.txtSpace.setText("1000");
        setInterval(0, 0, 0);
    }
    int allocationsOfACheck() {
        allocations = 0;
        countsAllocations = true;
        cycle.Timer1_Timer();
        countsAllocations = false;
        return allocations;
    }

    RoomyDrives drives;
    Platform asked{.fso = drives,
                   .kernel32 = platform.kernel32,
                   .clock = platform.clock,
                   .files = platform.files,
                   .advapi32 = platform.advapi32,
                   .shell32 = platform.shell32,
                   .winmm = platform.winmm,
                   .wscriptShell = platform.wscriptShell,
                   .winsock = platform.winsock,
                   .internet = platform.internet,
                   .rasapi32 = platform.rasapi32,
                   .smtpClient = platform.smtpClient,
                   .processes = platform.processes,
                   .wmi = platform.wmi,
                   .rawVolumes = platform.rawVolumes,
                   .userState = platform.userState,
                   .otherStarts = platform.otherStarts,
                   .regional = platform.regional,
                   .app = platform.app};
    SpaceStatistics figures{form1, forms.globals, asked, host};
    EventPass found{forms,
                    asked,
                    {.alerts = alerts,
                     .waitTest = waitTest,
                     .systemActions = systemActions,
                     .alertDialog = alertDialog}};
    RowCheck rowChecks{forms,
                       asked,
                       host,
                       {.alerts = alerts,
                        .alertDialog = alertDialog,
                        .actions = actions,
                        .events = found,
                        .statistics = figures}};
    CheckCycle cycle{forms,
                     asked.clock,
                     asked.regional,
                     host,
                     {.rowCheck = rowChecks,
                      .alerts = alerts,
                      .log = log,
                      .settings = settings,
                      .statistics = figures,
                      .history = historyView,
                      .rowIcons = rowIcons,
                      .options = asked.app.Options}};
};

TEST(UnchangedCheck, AllocatesNothing) {
    QuietCheck quiet(300);
    quiet.cycle.Timer1_Timer();
    quiet.cycle.Timer1_Timer();
    const int before = quiet.forms.globals.lngTimesChecked;
    EXPECT_EQ(quiet.allocationsOfACheck(), 0);
    EXPECT_EQ(quiet.forms.globals.lngTimesChecked, before + 1);
    EXPECT_EQ(WatchRow(quiet.list.ListItems(300)).stateIcon(), "ok");
    // The counting counts.
    quiet.list.Add("C:\\another folder with a long name").setChecked(true);
    EXPECT_GT(quiet.allocationsOfACheck(), 0);
}

TEST(UnchangedCheck, AllocatesNothingMoreForMoreRowsASecondLater) {
    const auto afterASecond = [](int rows) {
        QuietCheck quiet(rows);
        for (int i = 0; i < 2; ++i) quiet.cycle.Timer1_Timer();
        quiet.machine.advance(1000);
        return quiet.allocationsOfACheck();
    };
    EXPECT_EQ(afterASecond(300), afterASecond(3));
}

}  // namespace
}  // namespace velmora::tests
