// The question for updates.
#include "base/maker.h"
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

struct UpdateCheckTest : testing::Test, NotifyRig {
    UpdateCheck updateCheck{forms, platform, host, "1.2.0"};
    const std::string address =
        std::string(maker::scheme) + "://" + maker::host + "/velmora/status.htm";

    Texts boxTexts() const {
        Texts texts;
        for (const Box& box : host.boxes) texts.push_back(box.text);
        return texts;
    }
    void click() { form1.Label5[5].userClick(); }
    void connectByDialUp(std::uint32_t state) {
        machine.rasapi32.handle = 77;
        machine.rasapi32.state = state;
    }
    bool isNewer(const std::string& page) { return updateCheck.announceNewer(page); }
};

const std::string upToDate = "The program is currently up to date";

TEST_F(UpdateCheckTest, AnEmptyPageIsUpToDate) {
    updateCheck.prcCheckUpdate();
    EXPECT_EQ(machine.internet.opened, Texts{address});
    EXPECT_EQ(boxTexts(), Texts{upToDate});
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_EQ(form1.lblNewVer.Caption(), "");
}

TEST_F(UpdateCheckTest, APageWithAHighVersionIsUpToDateToo) {
    for (const char* page : {"<html>update=99.9</html>", "update=99", "no version"}) {
        machine.internet.pages[address] = page;
        host.boxes.clear();
        updateCheck.prcCheckUpdate();
        EXPECT_EQ(boxTexts(), Texts{upToDate}) << page;
        EXPECT_EQ(form1.lblNewVer.Caption(), "");
    }
}

TEST_F(UpdateCheckTest, AnErrorOfTheFetchingGoesToTheCaller) {
    machine.internet.failsWith = 35764;
    EXPECT_EQ(errorOf([this] { updateCheck.prcCheckUpdate(); }), 35764);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(UpdateCheckTest, AMachineWithoutDialUpIsChecked) {
    click();
    EXPECT_EQ(boxTexts(), Texts{upToDate});
    EXPECT_EQ(machine.internet.opened.size(), 1u);
}

TEST_F(UpdateCheckTest, AMachineConnectedByDialUpIsNotChecked) {
    connectByDialUp(8192);
    click();
    EXPECT_EQ(boxTexts(), Texts{"not connected to internet."});
    EXPECT_TRUE(machine.internet.opened.empty());
}

TEST_F(UpdateCheckTest, AConnectionThatIsNotYetMadeIsNone) {
    for (const std::uint32_t state : {0u, 8191u, 8193u, 1u}) {
        connectByDialUp(state);
        EXPECT_FALSE(updateCheck.fIsRasConnected()) << state;
    }
}

TEST_F(UpdateCheckTest, TheRecordsTellTheirSizes) {
    connectByDialUp(8192);
    EXPECT_TRUE(updateCheck.fIsRasConnected());
    EXPECT_EQ(machine.rasapi32.askedSizes, (std::pair{412u, 105'472u}));  // 256 of them
    EXPECT_EQ(machine.rasapi32.askedStatus.first, 77u);
    EXPECT_EQ(machine.rasapi32.askedStatus.second, 160u);
}

TEST_F(UpdateCheckTest, WithoutAnyConnectionTheEmptyHandleIsAskedFor) {
    EXPECT_FALSE(updateCheck.fIsRasConnected());
    EXPECT_EQ(machine.rasapi32.askedStatus.first, 0u);
    EXPECT_EQ(machine.rasapi32.askedStatus.second, 160u);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(UpdateCheckTest, AListOfConnectionsThatFailsIsToldAndTheCheckRuns) {
    connectByDialUp(8192);
    machine.rasapi32.enumResult = 632;
    click();
    EXPECT_EQ(boxTexts(), (Texts{"ERROR", upToDate}));
    EXPECT_EQ(machine.rasapi32.askedStatus.second, 0u);
}

TEST_F(UpdateCheckTest, AStateThatCanNotBeReadIsNotConnected) {
    connectByDialUp(8192);
    machine.rasapi32.statusResult = 6;
    EXPECT_FALSE(updateCheck.fIsRasConnected());
    EXPECT_TRUE(host.boxes.empty());
}

// What a page's version would lead to, if one were looked at.
TEST_F(UpdateCheckTest, ANewerVersionIsAnnounced) {
    EXPECT_TRUE(isNewer("<p>update= 1.3    </p>"));
    EXPECT_EQ(boxTexts(), Texts{"There is a newer version or update for the the program.  Please "
                                "visit the program webpage for more information."});
    EXPECT_EQ(form1.lblNewVer.Caption(), "New update available: 1.3");
}

TEST_F(UpdateCheckTest, OtherPagesAnnounceNothing) {
    // The version in hand, older ones, none, and markup within the 15 characters.
    for (const char* page : {"update=1.2", "update=1.1", "update=0", "update=", "update",
                             "update=new", "update=1.3</p>", "", "UPDATE=9"}) {
        EXPECT_FALSE(isNewer(page)) << page;
    }
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_EQ(form1.lblNewVer.Caption(), "");
}

TEST_F(UpdateCheckTest, TheVersionIsWithinFifteenCharacters) {
    EXPECT_TRUE(isNewer("update=12345678</p>"));
    EXPECT_EQ(form1.lblNewVer.Caption(), "New update available: 12345678");
    EXPECT_TRUE(isNewer("update=1234567890"));
    EXPECT_EQ(form1.lblNewVer.Caption(), "New update available: 12345678");
}

TEST_F(UpdateCheckTest, VersionsAreTakenAsTheirTwoNumbers) {
    UpdateCheck other{forms, platform, host, "1.02.0"};
    EXPECT_FALSE(other.announceNewer("update=1.1"));
    EXPECT_FALSE(other.announceNewer("update=1.2"));
    EXPECT_TRUE(other.announceNewer("update=1.21"));
    UpdateCheck two{forms, platform, host, "1.2"};
    EXPECT_FALSE(two.announceNewer("update=1.1"));
    UpdateCheck whole{forms, platform, host, "3"};
    EXPECT_FALSE(whole.announceNewer("update=3"));
    EXPECT_TRUE(whole.announceNewer("update=3.1"));
}

TEST_F(UpdateCheckTest, TheVersionInHandHasAPointInAnyRegion) {
    platform.regional.digitGroup = ".";
    platform.regional.decimalPoint = ",";
    // Both are read as numbers with a digit group.
    EXPECT_FALSE(isNewer("update=1.1"));
    EXPECT_FALSE(isNewer("update=1.2"));
    EXPECT_TRUE(isNewer("update=1.3"));
    // Where a point is no mark at all, only whole versions are numbers on a page.
    platform.regional.digitGroup = " ";
    EXPECT_FALSE(isNewer("update=1.3"));
    EXPECT_EQ(errorOf([this] { isNewer("update=3"); }), error::typeMismatch);
}

}  // namespace
}  // namespace velmora::tests
