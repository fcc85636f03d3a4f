#include <cstdint>
#include <string>

#include "base/runtime_error.h"
#include "machine_under_test.h"

namespace velmora::contract {
namespace {

class NetworkContract : public ContractTest {
  protected:
    Winsock& winsock() { return platform().winsock; }
    template <typename Step>
    static int errorNumberOf(Step&& step) {
        try {
            step();
        } catch (const RuntimeError& error) {
            return error.number();
        }
        return 0;
    }
};
INSTANTIATE_TEST_SUITE_P(Machines, NetworkContract, everyMachine(), nameOf);

TEST_P(NetworkContract, ASocketBeginsClosed) {
    EXPECT_EQ(winsock().State(), 0);
    winsock().waitForActivity(1);
    winsock().Close();
    EXPECT_EQ(winsock().State(), 0);
}

TEST_P(NetworkContract, OnlyAConnectedSocketSendsAndReceives) {
    EXPECT_EQ(errorNumberOf([this] { winsock().SendData("x"); }), 40006);
    EXPECT_EQ(errorNumberOf([this] { winsock().GetData(); }), 40006);
    EXPECT_EQ(winsock().State(), 0);
}

TEST_P(NetworkContract, PortsOutsideTheRangeAreRefused) {
    for (const std::int32_t port : {INT32_MIN, -1, 0, 65536, 99999, INT32_MAX}) {
        EXPECT_EQ(errorNumberOf([&] { winsock().Connect("127.0.0.1", port); }), 380) << port;
        EXPECT_EQ(winsock().State(), 0);
    }
}

TEST_P(NetworkContract, ASocketConnectsOnlyOnce) {
    winsock().Connect("127.0.0.1", 1);
    EXPECT_NE(winsock().State(), 0);
    EXPECT_EQ(errorNumberOf([this] { winsock().Connect("127.0.0.1", 1); }), 40020);
    // The state counts first.
    EXPECT_EQ(errorNumberOf([this] { winsock().Connect("127.0.0.1", 0); }), 40020);
    winsock().Close();
    EXPECT_EQ(winsock().State(), 0);
}

TEST_P(NetworkContract, DialUpRecordsOfAnotherSizeAreRefused) {
    RasConnections connections{};
    std::uint32_t size = 412 * 256;
    std::uint32_t count = 0;
    EXPECT_EQ(platform().rasapi32.RasEnumConnectionsA(connections, size, count), 632U);
    RasConnStatus status{.dwSize = 159, .rasconnstate = 17};
    EXPECT_EQ(platform().rasapi32.RasGetConnectStatusA(0, status), 632U);
    EXPECT_EQ(status.rasconnstate, 17U);
}

TEST_P(NetworkContract, WithoutAConnectionThereIsNoState) {
    RasConnections connections{};
    connections[0].dwSize = 412;
    std::uint32_t size = 412 * 256;
    std::uint32_t count = 99;
    ASSERT_EQ(platform().rasapi32.RasEnumConnectionsA(connections, size, count), 0U);
    if (count != 0) GTEST_SKIP() << "this machine has a dial-up connection";
    EXPECT_EQ(connections[0].hRasConn, 0U);
    RasConnStatus status{.dwSize = 160};
    platform().rasapi32.RasGetConnectStatusA(0, status);
    EXPECT_EQ(status.rasconnstate, 0U);
}

TEST_P(NetworkContract, OnlyWebPagesAreFetched) {
    for (const char* address : {"", "file:///etc/passwd", "file://C:/Windows/win.ini", "ftp://a/b",
                                "javascript:0", "http:", "https:/a"}) {
        EXPECT_EQ(platform().internet.OpenURL(address), "") << address;
    }
}

TEST_P(NetworkContract, MemoryIsReportedInARecordOfItsSize) {
    MemoryStatus status{.dwLength = 32};
    platform().kernel32.GlobalMemoryStatus(status);
    EXPECT_EQ(status.dwLength, 32U);
    EXPECT_GT(status.dwTotalPhys, 0U);
    EXPECT_LE(status.dwAvailPhys, status.dwTotalPhys);
    EXPECT_LE(status.dwMemoryLoad, 100U);
    MemoryStatus other{.dwLength = 64, .dwTotalPhys = 5};
    platform().kernel32.GlobalMemoryStatus(other);
    EXPECT_EQ(other.dwLength, 64U);
    EXPECT_EQ(other.dwTotalPhys, 5U);
}

TEST_P(NetworkContract, TheUsersNameComesWithItsLength) {
    std::string buffer(300, '#');
    std::uint32_t size = 300;
    ASSERT_TRUE(platform().advapi32.GetUserNameA(buffer, size));
    ASSERT_GT(size, 1U);
    const std::string name = buffer.substr(0, size - 1);
    EXPECT_EQ(name.find('\0'), std::string::npos);
    EXPECT_EQ(buffer.substr(size - 1), '\0' + std::string(300 - size, '#'));

    std::string tight(size, '#');
    std::uint32_t tightSize = size;
    EXPECT_TRUE(platform().advapi32.GetUserNameA(tight, tightSize));
    EXPECT_EQ(tight, name + '\0');

    std::string small(size - 1, '#');
    std::uint32_t smallSize = size - 1;
    EXPECT_FALSE(platform().advapi32.GetUserNameA(small, smallSize));
    EXPECT_EQ(smallSize, size);
    EXPECT_EQ(small, std::string(size - 1, '#'));
}

}  // namespace
}  // namespace velmora::contract
