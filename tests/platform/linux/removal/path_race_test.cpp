// A path that is swapped at every moment: a thread puts a link to a precious folder in its place
// and removes it again while files and folders are removed, recycled and moved by that path.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <thread>

#include "base/errors.h"
#include "platform/linux/support/scratch_tree.h"

namespace velmora::linuxhost {
namespace {

namespace fs = std::filesystem;
constexpr int races = 1000;

// Swaps until it goes.
class Swapper {
  public:
    template <typename Swap>
    explicit Swapper(Swap swap)
        : thread_([this, swap] {
              while (!isDone_) {
                  swap();
                  ++swaps_;
                  std::this_thread::yield();
              }
          }) {
        while (swaps_ == 0) std::this_thread::yield();
    }
    ~Swapper() { stop(); }
    Swapper(const Swapper&) = delete;
    Swapper& operator=(const Swapper&) = delete;

    void stop() {
        isDone_ = true;
        if (thread_.joinable()) thread_.join();
    }
    int swaps() const { return swaps_; }

  private:
    std::atomic<bool> isDone_{false};
    std::atomic<int> swaps_{0};
    std::thread thread_;
};

class PathRace : public testing::Test {
  protected:
    PathRace() {
        for (const char* folder : {"work", "precious", "target"}) fs::create_directory(at(folder));
        // The helper process of the drive is started before there is another thread.
        volumes_.kindOf(at("work"));
    }

    void makeFile(const std::string& path, const std::string& content) const {
        const int file = open(at(path).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
        EXPECT_EQ(write(file, content.data(), content.size()),
                  static_cast<ssize_t>(content.size()));
        close(file);
    }
    /// Files "f0" and on, each with its folder's name as content.
    void makeFiles() {
        for (int i = 0; i < races; ++i) {
            for (const char* folder : {"work", "precious"})
                makeFile(std::string(folder) + "/f" + std::to_string(i), folder);
        }
        precious_ = listTree(at("precious"));
    }
    /// Folders "d0" and on with a file in each.
    void makeFolders() {
        for (int i = 0; i < races; ++i) {
            for (const char* folder : {"work", "precious"}) {
                const std::string name = std::string(folder) + "/d" + std::to_string(i);
                mkdir(at(name).c_str(), 0755);
                makeFile(name + "/inner", folder);
            }
        }
        precious_ = listTree(at("precious"));
    }

    std::string at(const std::string& name) const { return root_ / name; }
    std::string in(const std::string& name) { return drivePathOf(at(name), volumes_.roots()); }

    /// Replaces the folder `name` by a link to the precious one, and puts it back.
    void swapFolder(const std::string& name) const {
        const std::string path = at(name);
        const std::string away = path + ".away";
        if (rename(path.c_str(), away.c_str()) != 0) return;
        if (symlink(at("precious").c_str(), path.c_str()) != 0) return;
        std::this_thread::yield();
        unlink(path.c_str());
        rename(away.c_str(), path.c_str());
    }

    /// Tries the step for each number until it succeeds while `folder` is swapped; gives how many
    /// did at last. That all do, but for a machine that is very busy, shows that nothing is refused
    /// for long; how often it was refused, that the swaps were met.
    template <typename Step>
    int race(const std::string& folder, Step step) {
        int succeeded = 0;
        int tries = 0;
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        Swapper swapper([&, folder] { swapFolder(folder); });
        for (int i = 0; i < races; ++i) {
            bool isDone = false;
            while (!isDone) {
                ++tries;
                isDone = step(std::to_string(i));
                if (std::chrono::steady_clock::now() >= end) break;
            }
            succeeded += isDone ? 1 : 0;
        }
        swapper.stop();
        std::printf("%d tries, %d successes, %d swaps\n", tries, succeeded, swapper.swaps());
        EXPECT_GE(tries, races);
        EXPECT_GT(swapper.swaps(), 10);
        EXPECT_EQ(listTree(at("precious")), precious_);
        return succeeded;
    }
    int left(const std::string& start) const {
        int count = 0;
        for (const auto& [path, what] : listTree(at("work")))
            count += path.starts_with(start) && path.find('/') == std::string::npos;
        return count;
    }

    TestFolder root_;
    TestFolder userFolder_;
    OtherUser user_{userFolder_.path()};
    Volumes volumes_;
    LinuxFileSystemObject fso_{volumes_};
    LinuxKernel32 kernel32_{volumes_};
    LinuxTextFiles files_{volumes_};
    LinuxShell32 shell_{volumes_};
    TreeListing precious_;
};

TEST_F(PathRace, RemovingFilesNeverReachesThePreciousOnes) {
    makeFiles();
    const int gone = race("work", [&](const std::string& i) {
        return errorOf([&] { files_.remove(in("work/f" + i)); }) == 0;
    });
    EXPECT_EQ(left("f"), races - gone);
}

TEST_F(PathRace, DeletingFoldersNeverReachesThePreciousOnes) {
    makeFolders();
    const int gone = race("work", [&](const std::string& i) {
        return errorOf([&] { fso_.GetFolder(in("work/d" + i))->Delete(true); }) == 0;
    });
    EXPECT_EQ(left("d"), races - gone);
}

TEST_F(PathRace, RecyclingNeverReachesThePreciousOnes) {
    makeFiles();
    const int gone = race("work", [&](const std::string& i) {
        return shell_.SHFileOperationA({"", 3, in("work/f" + i) + '\0', 64}) == 0;
    });
    EXPECT_EQ(left("f"), races - gone);
    const std::string trash = userFolder_ / ".local/share/Trash";
    for (const auto& [path, what] : listTree(trash + "/files"))
        EXPECT_EQ(what, "file 4 bytes: work");
    EXPECT_EQ(listTree(trash + "/files").size(), static_cast<std::size_t>(gone));
    EXPECT_EQ(listTree(trash + "/info").size(), static_cast<std::size_t>(gone));
}

TEST_F(PathRace, MovingNeverTakesThePreciousOnes) {
    makeFiles();
    const int gone = race("work", [&](const std::string& i) {
        return kernel32_.MoveFileA(in("work/f" + i), in("target/f" + i)) != 0;
    });
    EXPECT_EQ(left("f"), races - gone);
    for (const auto& [path, what] : listTree(at("target"))) EXPECT_EQ(what, "file 4 bytes: work");
    EXPECT_EQ(listTree(at("target")).size(), static_cast<std::size_t>(gone));
}

TEST_F(PathRace, MovingNeverPutsAnythingBesideThePreciousOnes) {
    makeFiles();
    const int gone = race("target", [&](const std::string& i) {
        return kernel32_.MoveFileA(in("work/f" + i), in("target/x" + i)) != 0;
    });
    EXPECT_EQ(left("f"), races - gone);
    EXPECT_EQ(listTree(at("target")).size(), static_cast<std::size_t>(gone));
}

TEST_F(PathRace, MovingToAnotherFilesystemNeverTakesThePreciousOnes) {
    const std::string elsewhere = "/dev/shm/velmora-race-" + std::to_string(getpid());
    struct stat here {};
    struct stat there {};
    stat(at("work").c_str(), &here);
    if (mkdir(elsewhere.c_str(), 0700) != 0 || stat(elsewhere.c_str(), &there) != 0 ||
        here.st_dev == there.st_dev) {
        std::printf("skipped: /dev/shm is no filesystem of its own\n");
        GTEST_SKIP() << "/dev/shm is no filesystem of its own";
    }
    makeFiles();
    const int gone = race("work", [&](const std::string& i) {
        const std::string to = drivePathOf(elsewhere + "/f" + i, volumes_.roots());
        return kernel32_.MoveFileA(in("work/f" + i), to) != 0;
    });
    EXPECT_EQ(left("f"), races - gone);
    for (const auto& [path, what] : listTree(elsewhere)) EXPECT_EQ(what, "file 4 bytes: work");
    EXPECT_EQ(listTree(elsewhere).size(), static_cast<std::size_t>(gone));
    fs::remove_all(elsewhere);
}

TEST_F(PathRace, TheDeletedFolderItselfIsSwapped) {
    makeFolders();
    std::atomic<int> current{0};
    int gone = 0;
    {
        Swapper swapper([&] { swapFolder("work/d" + std::to_string(current)); });
        for (int i = 0; i < races; ++i) {
            current = i;
            const std::string path = in("work/d" + std::to_string(i));
            gone += errorOf([&] { fso_.GetFolder(path)->Delete(true); }) == 0;
        }
    }
    std::printf("%d of %d folders went\n", gone, races);
    EXPECT_GT(gone, 0);
    EXPECT_EQ(listTree(at("precious")), precious_);
}

TEST_F(PathRace, AFileThatIsSwappedWithALinkIsMovedOrRemovedAsWhatItIs) {
    makeFiles();
    std::atomic<int> current{0};
    const auto swapFile = [&] {
        const std::string path = at("work/f" + std::to_string(current));
        const std::string away = path + ".away";
        if (rename(path.c_str(), away.c_str()) != 0) return;
        if (symlink(at("precious/f0").c_str(), path.c_str()) != 0) return;
        std::this_thread::yield();
        unlink(path.c_str());
        rename(away.c_str(), path.c_str());
    };
    {
        Swapper swapper(swapFile);
        for (int i = 0; i < races; ++i) {
            current = i;
            const std::string path = in("work/f" + std::to_string(i));
            if (i % 2 == 0) {
                errorOf([&] { files_.remove(path); });
            } else {
                kernel32_.MoveFileA(path, in("target/f" + std::to_string(i)));
            }
        }
    }
    EXPECT_EQ(listTree(at("precious")), precious_);
}

}  // namespace
}  // namespace velmora::linuxhost
