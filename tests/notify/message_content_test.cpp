// The sections of the mail and how they are joined.
#include "notify/notify_rig.h"

namespace velmora::tests {
namespace {

const std::string blankLine = "\r\n\r\n";

struct MessageContentTest : testing::Test, NotifyRig {
    /// The body with this section alone, without the blank line behind it.
    std::string body(int section) {
        for (int i = 0; i < form.lstNotContent.ListCount(); ++i) {
            form.lstNotContent.setSelected(i, i == section);
        }
        const std::string text = content.prcNotPreContent();
        EXPECT_TRUE(text.ends_with(blankLine));
        return text.substr(0, text.size() - blankLine.size());
    }
    void setMemory(std::uint32_t total, std::uint32_t available) {
        machine.memory.dwTotalPhys = total;
        machine.memory.dwAvailPhys = available;
    }
    std::string memorySection(const std::string& total, const std::string& used,
                              const std::string& available) {
        return "Ramdon Access Memory (RAM) Status\r\n=============\r\nTotal RAM: " + total +
               " KB\r\nUsed RAM: " + used + " KB\r\nAvaliable RAM: " + available + " KB\r\n\r\n" +
               inventory.prcWMI_RamInfo() + "\r\n=============\r\n";
    }
};

TEST_F(MessageContentTest, WithNothingSelectedItIsEmpty) {
    EXPECT_EQ(content.prcNotPreContent(), "");
    EXPECT_EQ(host.yields, 0);
    EXPECT_EQ(machine.log.count(), 0);
}

TEST_F(MessageContentTest, TheFirstFourEntriesHoldOtherListsThanTheySay) {
    EXPECT_EQ(body(0), "Listed Drive/Path(s)\r\n=============\r\nno info");
    EXPECT_EQ(body(1), "Alerts\r\n=============\r\nno info");
    EXPECT_EQ(body(2), "Listed Specified File(s)\r\n=============\r\nno info");
    EXPECT_EQ(body(3), "Listed Specified Program(s)\r\n=============\r\nno info");
}

TEST_F(MessageContentTest, EachOfTheFourHoldsTheRowsOfItsOwnList) {
    form1.ListView1.addColumn({"Drive Path"});
    form1.ListView1.Add("C:\\");
    form1.LVAlert.Add("High");
    form1.LVFile.Add("a.txt");
    form1.LVProg.Add("b.exe");
    const auto holds = [this](int section, const std::string& row) {
        return body(section).find("\r\n=============\r\n" + row) != std::string::npos;
    };
    EXPECT_TRUE(holds(0, "Drive Path: C:\\ "));
    EXPECT_TRUE(holds(1, "Rating: High "));
    EXPECT_TRUE(holds(2, "File/Folder(s): a.txt "));
    EXPECT_TRUE(holds(3, "Program: b.exe "));
}

TEST_F(MessageContentTest, SectionsComeInTheOrderOfTheListEachWithABlankLineBehind) {
    select({8, 1, 2});
    EXPECT_EQ(content.prcNotPreContent(),
              "Alerts\r\n=============\r\nno info\r\n\r\n"
              "Listed Specified File(s)\r\n=============\r\nno info\r\n\r\n"
              "System running time: \r\n=============\r\nSeconds: 0\r\n\r\n");
}

TEST_F(MessageContentTest, EntriesBehindTheLastSectionAreEmptyOnes) {
    for (const char* text : {"ten", "eleven", "twelve"}) form.lstNotContent.AddItem(text);
    select({10, 12});
    EXPECT_EQ(content.prcNotPreContent(), blankLine + blankLine);
}

TEST_F(MessageContentTest, ProcessesAndUsersComeFromTheInventory) {
    EXPECT_EQ(body(4), inventory.prcProcessText());
    EXPECT_EQ(body(7), inventory.prcWMI_LogOnUser() + "\r\n=============");
}

TEST_F(MessageContentTest, MemoryIsToldInKBWithDigitGroups) {
    // 2 GiB less 3 MiB, of which half a GiB is free.
    setMemory(2'144'337'920, 536'870'912);
    EXPECT_EQ(body(5), memorySection("2,094,080", "1,569,792", "524,288"));
    EXPECT_EQ(machine.log.calls(), Texts{"GlobalMemoryStatus 32"});
}

TEST_F(MessageContentTest, UsedMemoryIsTheDifferenceOfWhatIsShown) {
    // 100.5 and 50.4 KB: shown as 101 and 50.
    setMemory(102'912, 51'610);
    EXPECT_EQ(body(5), memorySection("101", "51", "50"));
}

TEST_F(MessageContentTest, NoMemoryIsShownWithoutADigit) {
    setMemory(1'048'576, 1'048'576);
    EXPECT_EQ(body(5), memorySection("1,024", "", "1,024"));
    setMemory(1'048'576, 0);
    EXPECT_EQ(body(5), memorySection("1,024", "1,024", ""));
    setMemory(0, 0);
    EXPECT_EQ(body(5), memorySection("", "", ""));
}

TEST_F(MessageContentTest, MemoryBeyond32BitsStopsAtTheGreatestNumber) {
    setMemory(4'294'967'295, 1'073'741'824);
    EXPECT_EQ(body(5), memorySection("4,194,304", "3,145,728", "1,048,576"));
}

TEST_F(MessageContentTest, MemoryIsWrittenAndReadBackInTheRegionalForm) {
    platform.regional.digitGroup = ".";
    platform.regional.decimalPoint = ",";
    setMemory(2'147'483'648, 1'073'741'824);
    EXPECT_EQ(body(5), memorySection("2.097.152", "1.048.576", "1.048.576"));
}

TEST_F(MessageContentTest, TheSessionLengthIsTheTimeSinceTheSystemStarted) {
    machine.tick = 123'456;
    EXPECT_EQ(body(8), "System running time: \r\n=============\r\nSeconds: 123.456");
    machine.tick = 90'000'000'000;
    EXPECT_EQ(content.prcTimeRunning(),
              "System running time: \r\n=============\r\nSeconds: 90000000");
    platform.regional.decimalPoint = ",";
    machine.tick = 500;
    EXPECT_EQ(content.prcTimeRunning(), "System running time: \r\n=============\r\nSeconds: 0,5");
}

TEST_F(MessageContentTest, TheNumberOfEventsStandsInTheCustomMessage) {
    form.txtCustEvtAmt.setText("7");
    const std::pair<const char*, std::int16_t> counts[] = {
        {"12", 12},   {"", 4},          {"twelve", 4},     {"12 events", 4}, {" 9 ", 9},
        {"-1", -1},   {"1,000", 1000},  {"2.5", 2},        {"3.5", 4},       {"0", 0},
        {"1E2", 100}, {"32767", 32767}, {"-32768", -32768}};
    for (const auto& [text, count] : counts) {
        form.txtCustMsg.setText(text);
        EXPECT_EQ(body(9), inventory.prcWMI_NTEvt(count)) << text;
    }
}

TEST_F(MessageContentTest, ANumberOfEventsBeyond16BitsIsAnOverflow) {
    select({9});
    for (const char* text : {"32768", "-32769", "1E9"}) {
        form.txtCustMsg.setText(text);
        EXPECT_EQ(errorOf([this] { content.prcNotPreContent(); }), error::overflow) << text;
    }
    // It is looked at for this section alone.
    form.lstNotContent.setSelected(9, false);
    EXPECT_EQ(content.prcNotPreContent(), "");
}

TEST_F(MessageContentTest, TheCurrentUserIsCutAtItsEnd) {
    EXPECT_EQ(content.prcCurrentUser(), "user");
    EXPECT_EQ(machine.log.calls(), Texts{"GetUserNameA 255"});
    machine.userName = std::string(254, 'u');  // with its NUL the buffer is full
    EXPECT_EQ(content.prcCurrentUser(), machine.userName);
}

TEST_F(MessageContentTest, AUserWithoutANameOrWithALongerOneIsEmpty) {
    machine.userName = std::string(255, 'u');
    EXPECT_EQ(content.prcCurrentUser(), "");
    machine.userName = "user";
    machine.log.failCall(1, 1);
    EXPECT_EQ(content.prcCurrentUser(), "");
}

}  // namespace
}  // namespace velmora::tests
