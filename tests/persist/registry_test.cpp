// Writing into the registry by a key's full path.
#include "persist/registry.h"

#include <gtest/gtest.h>

#include <map>

#include "fake/fake_host.h"
#include "fake/fake_machine.h"

namespace velmora::tests {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* runKey =
    "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const char* runSubKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";

struct RegistryRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    Registry registry{machine.platform().advapi32, host};

    /// Texts of the boxes, all of them critical ones with OK alone.
    Texts boxes() {
        Texts texts;
        for (const Box& box : host.boxes) {
            EXPECT_EQ(box.icon, BoxIcon::critical);
            EXPECT_EQ(box.buttons, BoxButtons::ok);
            EXPECT_EQ(box.title, "Velmora");
            texts.push_back(box.text);
        }
        return texts;
    }
};

TEST(RegistryHives, HaveTheSystemsHandles) {
    const std::map<std::string, std::uint32_t> handles{
        {"HKEY_CLASSES_ROOT", 0x80000000},     {"HKEY_CURRENT_USER", 0x80000001},
        {"HKEY_LOCAL_MACHINE", 0x80000002},    {"HKEY_USERS", 0x80000003},
        {"HKEY_PERFORMANCE_DATA", 0x80000004}, {"HKEY_CURRENT_CONFIG", 0x80000005},
        {"HKEY_DYN_DATA", 0x80000006}};
    for (const auto& [name, handle] : handles) EXPECT_EQ(fRegRootKey(name), handle) << name;
}

TEST(RegistryHives, AnUnknownNameHasNoHandle) {
    for (const char* name : {"", "HKEY_", "HKEY_LOCAL", "hkey_local_machine", "HKEY_USERS ",
                             "HKEY_LOCAL_MACHINE\\", "HKLM"}) {
        EXPECT_EQ(fRegRootKey(name), 0u) << name;
    }
}

TEST(RegistryErrors, AreGivenInWords) {
    const std::map<std::int32_t, std::string> words{
        {2, "Bad Key Name"},
        {4, "Can't Read Key"},
        {5, "Access to this key is denied"},
        {8, "Out of memory"},
        {14, "Out of memory"},
        {87, "Invalid Parameter"},
        {234, "There is more data than the buffer has been allocated to hold."},
        {1009, "The Registry Database is corrupt!"},
        {1010, "Bad Key Name"},
        {1011, "Can't Open Key"},
        {1012, "Can't Read Key"},
        {1013, "Can't Write Key"},
        {1015, "The Registry Database is corrupt!"}};
    for (const auto& [code, text] : words) EXPECT_EQ(fRegErrorText(code), text) << code;
}

TEST(RegistryErrors, ADamagedDatabaseHasOneTextForBothCodes) {
    EXPECT_EQ(fRegErrorText(1009), fRegErrorText(1015));
}

TEST(RegistryErrors, OtherCodesAreGivenAsNumbers) {
    EXPECT_EQ(fRegErrorText(0), "Undefined Error Code:  0");
    for (const int code : {1, 3, 6, 7, 9, 13, 15, 86, 88, 233, 235, 1008, 1014, 1016}) {
        EXPECT_EQ(fRegErrorText(code), "Undefined Error Code:  " + std::to_string(code));
    }
    EXPECT_EQ(fRegErrorText(-2147483647 - 1), "Undefined Error Code:  -2147483648");
}

struct Parsed {
    std::string path;
    std::uint32_t hive;
    Texts boxes;
};

Parsed parsed(std::string path) {
    RegistryRig rig;
    std::uint32_t hive = 77;
    rig.registry.prcParseKey(path, hive);
    EXPECT_EQ(rig.machine.log.count(), 0);
    return {path, hive, rig.boxes()};
}

TEST(RegistryKeyPath, IsSplitAtItsFirstBackSlash) {
    const Parsed run = parsed(runKey);
    EXPECT_EQ(run.path, runSubKey);
    EXPECT_EQ(run.hive, 0x80000002);
    EXPECT_TRUE(run.boxes.empty());
    const Parsed one = parsed("HKEY_CURRENT_USER\\Software");
    EXPECT_EQ(one.path, "Software");
    EXPECT_EQ(one.hive, 0x80000001);
}

TEST(RegistryKeyPath, AHiveAloneHasAnEmptyKey) {
    const Parsed hive = parsed("HKEY_USERS");
    EXPECT_EQ(hive.path, "");
    EXPECT_EQ(hive.hive, 0x80000003);
    EXPECT_TRUE(hive.boxes.empty());
}

TEST(RegistryKeyPath, AnUnknownHiveGivesNoHandleAndNoBox) {
    const Parsed deep = parsed("HKEY_NOBODY\\a\\b");
    EXPECT_EQ(deep.path, "a\\b");
    EXPECT_EQ(deep.hive, 0u);
    EXPECT_TRUE(deep.boxes.empty());
    const Parsed bare = parsed("HKEY_");
    EXPECT_EQ(bare.path, "");
    EXPECT_EQ(bare.hive, 0u);
    EXPECT_TRUE(bare.boxes.empty());
}

TEST(RegistryKeyPath, EmptyNamesAfterTheHiveStay) {
    EXPECT_EQ(parsed("HKEY_USERS\\\\a").path, "\\a");
}

TEST(RegistryKeyPath, ThatEndsInABackSlashIsIncorrectAndStaysAsItIs) {
    for (const std::string path : {"HKEY_USERS\\", "HKEY_USERS\\a\\", "HKEY_\\"}) {
        const Parsed bad = parsed(path);
        EXPECT_EQ(bad.path, path);
        EXPECT_EQ(bad.hive, 77u);
        EXPECT_EQ(bad.boxes, Texts{"Incorrect Format:\n\n" + path});
    }
}

TEST(RegistryKeyPath, ThatBeginsWithoutAHiveIsIncorrectAndStaysAsItIs) {
    for (const std::string path :
         {"", "\\", "SOFTWARE\\a", "hkey_users\\a", " HKEY_USERS", "HKEY-USERS"}) {
        const Parsed bad = parsed(path);
        EXPECT_EQ(bad.path, path);
        EXPECT_EQ(bad.hive, 77u);
        EXPECT_EQ(bad.boxes, Texts{"Incorrect Format:\n\n" + path});
    }
}

TEST(RegistryValue, IsATextWrittenWithoutAnEndMark) {
    RegistryRig rig;
    rig.registry.prcRegSetValue(runKey, "Velmora", "C:\\a b\\velmora");
    const auto& value = rig.machine.runKey().values.at("Velmora");
    EXPECT_EQ(value.type, 1u);
    EXPECT_EQ(value.data, "C:\\a b\\velmora");
    EXPECT_EQ(rig.machine.log.calls(),
              (Texts{std::string("RegOpenKeyExA 2147483650 ") + runSubKey + " 0 131078",
                     "RegSetValueExA Velmora 0 1 C:\\a b\\velmora 14", "RegCloseKey"}));
    EXPECT_EQ(rig.machine.openKeys(), 0);
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(RegistryValue, MayBeEmptyAndReplacesTheOldOne) {
    RegistryRig rig;
    rig.registry.prcRegSetValue(runKey, "Velmora", "old");
    rig.registry.prcRegSetValue(runKey, "Velmora", "");
    ASSERT_EQ(rig.machine.runKey().values.count("Velmora"), 1u);
    EXPECT_EQ(rig.machine.runKey().values.at("Velmora").data, "");
}

TEST(RegistryValue, ItsWholeTextIsWrittenInAnyScript) {
    RegistryRig rig;
    rig.registry.prcRegSetValue(runKey, "Velmora", "C:\\Größe 日本\\velmora");
    EXPECT_EQ(rig.machine.runKey().values.at("Velmora").data, "C:\\Größe 日本\\velmora");
}

TEST(RegistryValue, NothingIsWrittenForAnUnknownHive) {
    RegistryRig rig;
    rig.registry.prcRegSetValue("HKEY_NOBODY\\a", "Velmora", "x");
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_TRUE(rig.host.boxes.empty());
}

TEST(RegistryValue, NothingIsWrittenForAnIncorrectPath) {
    RegistryRig rig;
    rig.registry.prcRegSetValue("HKEY_USERS\\a\\", "Velmora", "x");
    EXPECT_EQ(rig.machine.log.count(), 0);
    EXPECT_EQ(rig.boxes(), Texts{"Incorrect Format:\n\nHKEY_USERS\\a\\"});
}

TEST(RegistryValue, AKeyThatCanNotBeOpenedGivesABoxAndNothingMore) {
    RegistryRig rig;
    rig.machine.runKey().openResult = 5;
    rig.registry.prcRegSetValue(runKey, "Velmora", "x");
    EXPECT_EQ(rig.boxes(), Texts{"Access to this key is denied"});
    EXPECT_EQ(rig.machine.log.count(), 1);
    EXPECT_TRUE(rig.machine.runKey().values.empty());
}

TEST(RegistryValue, AMissingKeyIsNotMade) {
    RegistryRig rig;
    rig.registry.prcRegSetValue("HKEY_CURRENT_USER\\Missing", "Velmora", "x");
    EXPECT_EQ(rig.boxes(), Texts{"Bad Key Name"});
    EXPECT_EQ(rig.machine.registry.size(), 1u);
}

TEST(RegistryValue, AWriteThatFailsGivesABoxAndClosesTheKey) {
    RegistryRig rig;
    rig.machine.runKey().setResult = 1013;
    rig.registry.prcRegSetValue(runKey, "Velmora", "x");
    EXPECT_EQ(rig.boxes(), Texts{"Can't Write Key"});
    EXPECT_EQ(rig.machine.log.calls().back(), "RegCloseKey");
    EXPECT_EQ(rig.machine.openKeys(), 0);
}

TEST(RegistryValue, AFailingCloseIsPassedOver) {
    RegistryRig rig;
    rig.machine.runKey().closeResult = 5;
    rig.registry.prcRegSetValue(runKey, "Velmora", "x");
    EXPECT_TRUE(rig.host.boxes.empty());
    EXPECT_EQ(rig.machine.runKey().values.at("Velmora").data, "x");
}

}  // namespace
}  // namespace velmora::tests
