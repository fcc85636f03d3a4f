// The scan of a folder for newer files, and the counts of its files and folders, compared with find
// and with bare system calls on the same folder.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bare_calls.h"
#include "bench_program.h"
#include "inspect/wait_test.h"
#include "scratch_folder.h"

using namespace velmora;

namespace {

void run(const std::string& command) {
    if (std::system(command.c_str()) != 0) std::printf("failed: %s\n", command.c_str());
}

// The scans raise no alert; the form around them needs a taker of alerts all the same.
class Unheard final : public AlertSink {
  public:
    void raise(const std::string&, const std::string&, const std::string&) override {}
};

void measure(int entries) {
    bench::ScratchFolder scratch;
    const std::string folder = scratch.at("entries");
    const std::string reference = scratch.at("reference");
    mkdir(folder.c_str(), 0755);
    scratch.fill(folder, 0, entries - 10);
    // Ten of them are newer.
    run("sleep 0.05; touch " + reference + "; sleep 0.05");
    bench::Program program;
    program.forms.globals.lastFileTime =
        program.machine->platform().clock.GetSystemTimeAsFileTime();
    run("sleep 0.05");
    scratch.fill(folder, entries, 10);

    Unheard alerts;
    WaitTest waitTest(program.forms.frmWaitTest, program.forms.globals, program.machine->platform(),
                      program.host, alerts);
    const std::string drivePath = program.machine->toDrivePath(folder);
    const auto reported = waitTest.prcPubFindFilesByTime(drivePath);
    const auto lines = std::count(reported.begin(), reported.end(), '\n');

    const int rounds = entries > 500000 ? 3 : 7;
    const double scan = bench::best(rounds, [&] { waitTest.prcPubFindFilesByTime(drivePath); });
    const double bare = bench::best(rounds, [&] { bench::bareScan(folder, true); });
    const std::string command =
        "find " + folder + " -maxdepth 1 -newer " + reference + " >/dev/null";
    const double find = bench::best(rounds, [&] { run(command); });
    std::printf("%10d %6ld %11.0f %11.0f %6.2f %11.0f %6.2f\n", entries,
                static_cast<long>(lines / 2), scan / entries * 1e9, bare / entries * 1e9,
                scan / bare, find / entries * 1e9, scan / find);

    const double count = bench::best(rounds, [&] {
        const auto counted = program.machine->platform().fso.GetFolder(drivePath);
        bench::found =
            static_cast<std::uint64_t>(counted->FilesCount() + counted->SubFoldersCount());
    });
    const double listing = bench::best(rounds, [&] { bench::bareScan(folder, false); });
    std::printf("%10s counts %11.0f %11.0f %6.2f\n", "", count / entries * 1e9,
                listing / entries * 1e9, count / listing);
}

}  // namespace

int main() {
    std::printf(
        "\nA scan for newer files, ns an entry, beside a listing with a status each, and find\n");
    std::printf("%10s %6s %11s %11s %6s %11s %6s\n", "entries", "newer", "scan", "bare", "ratio",
                "find", "ratio");
    for (const int entries : {100000, 1000000}) measure(entries);
}
