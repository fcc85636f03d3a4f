// Text files on small filesystems that are filled to the last byte.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <functional>

#include "base/errors.h"
#include "platform/linux/files/linux_text_files.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

struct SmallFilesystem {
    const char* name;
    std::function<bool(const TestFolder&, const std::string& mountPoint)> mount;
};

void PrintTo(const SmallFilesystem& filesystem, std::ostream* out) {
    *out << filesystem.name;
}

bool mountTmpfs(const TestFolder&, const std::string& mountPoint) {
    return mount("tmpfs", mountPoint.c_str(), "tmpfs", 0, "size=1m") == 0;
}

bool mountExt4(const TestFolder& folder, const std::string& mountPoint) {
    const std::string image = folder / "image";
    const std::string make = "mkfs.ext4 -q -b 1024 -m 0 -O ^has_journal " + image + " 1M && " +
                             "mount -o loop " + image + ' ' + mountPoint;
    return std::system(("{ " + make + "; } >/dev/null 2>&1").c_str()) == 0;
}

// Without extents room can't be reserved.
bool mountOlder(const TestFolder& folder, const std::string& mountPoint) {
    const std::string image = folder / "image";
    const std::string make = "mkfs.ext4 -q -b 1024 -m 0 -O ^has_journal,^extent,^64bit " + image +
                             " 1M && mount -o loop " + image + ' ' + mountPoint;
    return std::system(("{ " + make + "; } >/dev/null 2>&1").c_str()) == 0;
}

class FullDisk : public testing::TestWithParam<SmallFilesystem> {
  protected:
    void SetUp() override {
        std::filesystem::create_directory(mountPoint_);
        if (geteuid() != 0) GTEST_SKIP() << "only root may mount";
        isMounted_ = GetParam().mount(folder_, mountPoint_);
        if (!isMounted_) GTEST_SKIP() << "can't be mounted here";
        path_ = drivePathOf(mountPoint_ + "/set.dat", volumes_.roots());
    }
    ~FullDisk() override {
        if (isMounted_) umount2(mountPoint_.c_str(), MNT_DETACH);
    }

    /// Takes every free byte of the disk.
    void fill() {
        const std::string filler = mountPoint_ + "/filler";
        const int file = open(filler.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
        ASSERT_GE(file, 0);
        const std::string block(4096, 'f');
        std::size_t size = block.size();
        while (size > 0) {
            if (write(file, block.data(), size) < 0) size /= 2;
        }
        EXPECT_EQ(errno, ENOSPC);
        close(file);
    }

    TestFolder folder_;
    std::string mountPoint_ = folder_ / "mounted";
    bool isMounted_ = false;
    Volumes volumes_;
    LinuxTextFiles files_{volumes_};
    std::string path_;
};

INSTANTIATE_TEST_SUITE_P(Filesystems, FullDisk,
                         testing::Values(SmallFilesystem{"Tmpfs", mountTmpfs},
                                         SmallFilesystem{"Ext4", mountExt4},
                                         SmallFilesystem{"Older", mountOlder}),
                         [](const auto& filesystem) { return filesystem.param.name; });

TEST_P(FullDisk, AContentThatIsNotLongerThanTheOldIsTaken) {
    files_.writeOver(path_, std::string(100'000, 'o'));
    fill();
    const std::string equal(100'000, 'n');
    EXPECT_EQ(errorOf([&] { files_.writeOver(path_, equal); }), 0);
    EXPECT_EQ(files_.readAll(path_), equal);
    EXPECT_EQ(errorOf([&] { files_.writeOver(path_, "short"); }), 0);
    EXPECT_EQ(files_.readAll(path_), "short");
}

TEST_P(FullDisk, ALongerContentIsError61AndLeavesACutFile) {
    files_.writeOver(path_, std::string(100'000, 'o'));
    fill();
    const std::string longer(200'000, 'n');
    EXPECT_EQ(errorOf([&] { files_.writeOver(path_, longer); }), error::diskFull);
    const std::string cut = files_.readAll(path_);
    EXPECT_GT(cut.size(), 0u);
    EXPECT_LT(cut.size(), longer.size());
    EXPECT_EQ(cut, longer.substr(0, cut.size()));
}

TEST_P(FullDisk, WithItsRoomReservedALongerContentLeavesTheOldWhole) {
    const std::string old(100'000, 'o');
    files_.writeOver(path_, old);
    fill();
    const auto reserving = [&](std::size_t size) {
        return errorOf(
            [&] { files_.writeOver(path_, std::string(size, 'n'), {.reservesRoom = true}); });
    };
    EXPECT_EQ(reserving(200'000), error::diskFull);
    EXPECT_EQ(files_.readAll(path_), old);
    EXPECT_EQ(reserving(old.size()), 0);
    EXPECT_EQ(files_.readAll(path_), std::string(old.size(), 'n'));
}

TEST_P(FullDisk, NoMoreRoomIsReservedThanIsMissing) {
    files_.writeOver(path_, std::string(100'000, 'o'));
    fill();
    // 32 KB are free then, and 20,000 bytes are needed.
    const std::string filler = mountPoint_ + "/filler";
    std::filesystem::resize_file(filler, std::filesystem::file_size(filler) - 32'768);
    const std::string longer(120'000, 'n');
    files_.writeOver(path_, longer, {.reservesRoom = true});
    EXPECT_EQ(files_.readAll(path_), longer);
}

TEST_P(FullDisk, NoReservedRoomIsKept) {
    const auto freeBytes = [this] { return std::filesystem::space(mountPoint_).free; };
    files_.writeOver(path_, "old");
    const auto before = freeBytes();
    files_.writeOver(path_, std::string(100'000, 'n'), {.reservesRoom = true});
    EXPECT_LT(freeBytes(), before);
    files_.writeOver(path_, "new", {.reservesRoom = true});
    EXPECT_EQ(freeBytes(), before);
}

TEST_P(FullDisk, NothingOfALineStays) {
    files_.writeOver(path_, std::string(100'000, 'o'));
    fill();
    EXPECT_EQ(errorOf([&] { files_.appendLine(path_, std::string(9000, 'n')); }), error::diskFull);
    EXPECT_EQ(files_.readAll(path_), std::string(100'000, 'o'));
}

}  // namespace
}  // namespace velmora::linuxhost
