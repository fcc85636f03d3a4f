// A large file moved to another filesystem, compared with cp and rm. Needs the right to mount an
// image; takes the size in MB, 4096 without one.
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench_program.h"
#include "scratch_folder.h"

namespace {

double syncing = 0;  // seconds in fsync

}  // namespace

// In place of the library's, so that its time is known.
extern "C" int fsync(int file) {
    long result = 0;
    syncing += velmora::bench::seconds([&] { result = syscall(SYS_fsync, file); });
    return static_cast<int>(result);
}

using namespace velmora;

namespace {

bool run(const std::string& command) {
    return std::system(command.c_str()) == 0;
}

/// Seconds of the best round.
struct Best {
    double whole = 1e9;
    double withoutSync = 1e9;

    void add(double took, double synced) {
        whole = std::min(whole, took);
        withoutSync = std::min(withoutSync, took - synced);
    }
};

void makeFile(const std::string& path, int megabytes) {
    std::vector<char> piece(1 << 20);
    for (std::size_t i = 0; i < piece.size(); ++i)
        piece[i] = static_cast<char>(i * 2654435761U >> 9);
    const int file = open(path.c_str(), O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0644);
    for (int i = 0; i < megabytes; ++i) {
        if (write(file, piece.data(), piece.size()) != static_cast<ssize_t>(piece.size())) {
            std::perror(path.c_str());
            std::exit(1);
        }
    }
    syscall(SYS_fsync, file);
    close(file);
}

void compare(const char* what, const std::string& from, const std::string& to, int megabytes) {
    constexpr int rounds = 3;
    bench::Program program;
    const std::string source = program.machine->toDrivePath(from);
    const std::string target = program.machine->toDrivePath(to);
    Best ours;
    Best theirs;
    for (int round = 0; round < rounds; ++round) {
        makeFile(from, megabytes);
        syncing = 0;
        const double took = bench::seconds([&] {
            if (program.machine->platform().kernel32.MoveFileA(source, target) != 1)
                std::printf("not moved\n");
        });
        ours.add(took, syncing);
        run("rm -f '" + to + "'; sync");

        makeFile(from, megabytes);
        double synced = 0;
        const double copied = bench::seconds([&] {
            run("cp --preserve=all '" + from + "' '" + to + "'");
            synced = bench::seconds([&] { run("sync '" + to + "'"); });
            run("rm '" + from + "'");
        });
        theirs.add(copied, synced);
        run("rm -f '" + to + "'; sync");
    }
    std::printf(
        "%-14s %5d MB: move %6.2f s, cp + rm %6.2f s, ratio %.2f; with fsync %6.2f s, %6.2f s, "
        "ratio %.2f\n",
        what, megabytes, ours.withoutSync, theirs.withoutSync,
        ours.withoutSync / theirs.withoutSync, ours.whole, theirs.whole, ours.whole / theirs.whole);
}

}  // namespace

int main(int count, char** words) {
    const int megabytes = count > 1 ? std::atoi(words[1]) : 4096;
    std::printf("\nA large file moved to another filesystem\n");
    bench::ScratchFolder scratch;
    const std::string from = scratch.at("a large file");
    compare("to tmpfs", from, "/dev/shm/velmora-bench-" + std::to_string(getpid()), megabytes);

    const std::string image = scratch.at("image");
    const std::string disk = scratch.at("disk");
    if (!run("truncate -s " + std::to_string(megabytes + megabytes / 8 + 64) + "M " + image +
             " && mkfs.ext4 -q " + image + " && mkdir " + disk + " && mount -o loop " + image +
             " " + disk)) {
        std::printf("no image can be mounted\n");
        return 0;
    }
    compare("to ext4", from, disk + "/a large file", megabytes);
    run("umount " + disk);
    return 0;
}
