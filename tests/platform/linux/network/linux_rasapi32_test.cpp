#include "platform/linux/network/linux_rasapi32.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class LinuxRasapi32Test : public testing::Test {
  protected:
    void addInterface(const std::string& name, const std::string& state, int number) {
        std::filesystem::create_directory(folder_ / name);
        std::ofstream(folder_ / name + "/operstate") << state << '\n';
        std::ofstream(folder_ / name + "/ifindex") << number << '\n';
    }
    std::uint32_t enumerate(std::uint32_t room = 412 * 256) {
        connections_ = {};
        connections_[0].dwSize = 412;
        size_ = room;
        count_ = 0;
        return ras_.RasEnumConnectionsA(connections_, size_, count_);
    }
    std::uint32_t stateOf(std::uint64_t connection) {
        RasConnStatus status{.dwSize = 160, .rasconnstate = 1};
        result_ = ras_.RasGetConnectStatusA(connection, status);
        return status.rasconnstate;
    }

    TestFolder folder_;
    LinuxRasapi32 ras_{folder_.path()};
    RasConnections connections_;
    std::uint32_t size_ = 0;
    std::uint32_t count_ = 0;
    std::uint32_t result_ = 0;
};

TEST_F(LinuxRasapi32Test, OtherInterfacesAreNoConnections) {
    addInterface("lo", "unknown", 1);
    addInterface("eth0", "up", 2);
    addInterface("ppp0", "down", 3);
    EXPECT_EQ(enumerate(), 0U);
    EXPECT_EQ(count_, 0U);
    EXPECT_EQ(size_, 0U);
    EXPECT_EQ(connections_[0].hRasConn, 0U);
    EXPECT_EQ(stateOf(0), 1U);
    EXPECT_EQ(result_, 6U);
    EXPECT_EQ(stateOf(3), 1U);
}

TEST_F(LinuxRasapi32Test, PointToPointInterfacesThatAreUpAreConnections) {
    addInterface("ppp1", "up", 12);
    addInterface("ppp0", "unknown", 7);
    addInterface("eth0", "up", 2);
    EXPECT_EQ(enumerate(), 0U);
    EXPECT_EQ(count_, 2U);
    EXPECT_EQ(size_, 824U);
    EXPECT_EQ(connections_[0].hRasConn, 7U);
    EXPECT_EQ(connections_[1].hRasConn, 12U);
    EXPECT_EQ(connections_[1].dwSize, 412U);
    EXPECT_EQ(stateOf(12), 8192U);
    EXPECT_EQ(result_, 0U);
    std::filesystem::remove_all(folder_ / "ppp1");
    EXPECT_EQ(stateOf(12), 1U);
    EXPECT_EQ(result_, 6U);
}

TEST_F(LinuxRasapi32Test, AnArrayThatIsTooSmallGetsTheSizeItNeeds) {
    addInterface("ppp0", "up", 7);
    addInterface("ppp1", "up", 8);
    EXPECT_EQ(enumerate(823), 603U);
    EXPECT_EQ(size_, 824U);
    EXPECT_EQ(connections_[0].hRasConn, 0U);
    EXPECT_EQ(enumerate(824), 0U);
}

TEST_F(LinuxRasapi32Test, AMachineWithoutInterfacesHasNoConnections) {
    LinuxRasapi32 none(folder_ / "missing");
    connections_[0].dwSize = 412;
    EXPECT_EQ(none.RasEnumConnectionsA(connections_, size_, count_), 0U);
    EXPECT_EQ(count_, 0U);
}

}  // namespace
}  // namespace velmora::linuxhost
