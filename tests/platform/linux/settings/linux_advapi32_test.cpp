#include "platform/linux/settings/linux_advapi32.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/programs/program_file.h"
#include "platform/linux/settings/desktop_entry.h"
#include "platform/linux/support/environment.h"
#include "platform/linux/support/test_folder.h"

namespace velmora::linuxhost {
namespace {

class LinuxAdvapi32Test : public testing::Test {
  protected:
    RegistryKey opened() {
        RegistryKey key = 0;
        EXPECT_EQ(registry_.RegOpenKeyExA(hive::localMachine,
                                          R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)", 0,
                                          0xF003F, key),
                  0);
        return key;
    }
    std::int32_t set(const std::string& name, const std::string& data) {
        const RegistryKey key = opened();
        const auto size = static_cast<std::uint32_t>(data.size());
        const auto result = registry_.RegSetValueExA(key, name, 0, 1, data, size);
        EXPECT_EQ(registry_.RegCloseKey(key), 0);
        return result;
    }
    // The value's text, or the code of the failure.
    std::string get(const std::string& name) {
        const RegistryKey key = opened();
        std::uint32_t type = 0;
        std::string data;
        const auto result = registry_.RegQueryValueExA(key, name, type, data);
        EXPECT_EQ(registry_.RegCloseKey(key), 0);
        if (result == 0) {
            EXPECT_EQ(type, 1u);
        }
        return result == 0 ? data : std::to_string(result);
    }
    std::string drivePath(const std::string& hostPath) {
        return drivePathOf(hostPath, volumes_.roots());
    }
    std::string entryFile(const std::string& name) {
        return home_ / (".config/autostart/" + name + ".desktop");
    }

    TestFolder home_;
    OtherUser user_{home_.path()};
    Volumes volumes_;
    LinuxAdvapi32 registry_{volumes_};
};

TEST_F(LinuxAdvapi32Test, AProgramThatStartsWithTheSystemIsAnAutostartEntry) {
    const std::string program = home_ / "my 100% \"program\"";
    std::ofstream(program) << "x";
    EXPECT_EQ(set("Velmora", drivePath(program)), 0);
    EXPECT_EQ(contentsOf(entryFile("velmora")), autostartEntry("Velmora", program));
}

TEST_F(LinuxAdvapi32Test, AnEmptyValueLeavesAHiddenEntry) {
    ASSERT_EQ(set("Velmora", drivePath(home_ / "program")), 0);
    EXPECT_EQ(set("Velmora", ""), 0);
    EXPECT_EQ(contentsOf(entryFile("velmora")), autostartEntry("Velmora", ""));
    EXPECT_EQ(set("Other", std::string(1, '\0')), 0);
    EXPECT_EQ(contentsOf(entryFile("other")), autostartEntry("Other", ""));
}

TEST_F(LinuxAdvapi32Test, AValueIsReadBackFromItsEntry) {
    for (const std::string& program :
         {home_ / "program", home_ / "my 100% \"program\" $x`y\\z", home_ / "a=b\tc\nd ö"}) {
        ASSERT_EQ(set("Velmora", drivePath(program)), 0);
        EXPECT_EQ(get("velmora"), drivePath(program));
    }
    ASSERT_EQ(set("Velmora", ""), 0);
    EXPECT_EQ(get("Velmora"), "");
}

TEST_F(LinuxAdvapi32Test, AValueThatIsNoSuchEntryIsCode2) {
    EXPECT_EQ(get("Velmora"), "2");
    EXPECT_EQ(get("../x"), "2");
    std::filesystem::create_directories(home_ / ".config/autostart");
    for (const char* text : {"", "[Desktop Entry]\n", "[Desktop Entry]\nExec=sh -c x\n",
                             "[Desktop Entry]\nExec=\"/bin/sh\" -c x\n",
                             "[Desktop Entry]\nExec=\"/bin/sh\nHidden=false\n"}) {
        std::ofstream(entryFile("velmora")) << text;
        EXPECT_EQ(get("Velmora"), "2") << text;
    }
}

TEST_F(LinuxAdvapi32Test, OnlyTheFirstBytesOfTheDataCount) {
    const RegistryKey key = opened();
    EXPECT_EQ(registry_.RegSetValueExA(key, "v", 0, 1, "C:\\bin\\sh and more", 9), 0);
    EXPECT_EQ(contentsOf(entryFile("v")), autostartEntry("v", "/bin/sh"));
    EXPECT_EQ(registry_.RegSetValueExA(key, "v", 0, 1, "C:\\bin\\sh", 10), 0);
    EXPECT_EQ(contentsOf(entryFile("v")), autostartEntry("v", "/bin/sh"));
    EXPECT_EQ(registry_.RegCloseKey(key), 0);
}

TEST_F(LinuxAdvapi32Test, TheRunningProgramIsFoundWithoutItsExtension) {
    const std::string own = executablePath();
    EXPECT_EQ(programFile(own), own);
    EXPECT_EQ(programFile(own + ".exe"), own);
    EXPECT_EQ(programFile(own + ".EXE"), own);
    EXPECT_EQ(programFile("/nowhere/velmora"), "/nowhere/velmora");
    EXPECT_EQ(withoutExtension("velmora-1.0"), "velmora-1");
    EXPECT_EQ(withoutExtension(".velmora"), ".velmora");
}

TEST_F(LinuxAdvapi32Test, TheConfigurationMayLieElsewhere) {
    const Environment config("XDG_CONFIG_HOME", home_ / "elsewhere");
    EXPECT_EQ(set("Velmora", "C:\\bin\\sh"), 0);
    EXPECT_EQ(contentsOf(home_ / "elsewhere/autostart/velmora.desktop"),
              autostartEntry("Velmora", "/bin/sh"));
}

TEST_F(LinuxAdvapi32Test, EveryOtherKeyIsMissing) {
    const std::string run = R"(SOFTWARE\Microsoft\Windows\CurrentVersion\Run)";
    RegistryKey key = 0;
    EXPECT_EQ(registry_.RegOpenKeyExA(hive::currentUser, run, 0, 0xF003F, key), 2);
    EXPECT_EQ(registry_.RegOpenKeyExA(hive::localMachine, run + "Once", 0, 0xF003F, key), 2);
    EXPECT_EQ(registry_.RegOpenKeyExA(hive::localMachine, "", 0, 0xF003F, key), 2);
    EXPECT_EQ(registry_.RegOpenKeyExA(hive::localMachine,
                                      R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", 0, 0x20019, key),
              2);
    EXPECT_EQ(key, 0u);
}

TEST_F(LinuxAdvapi32Test, WhatNoEntryCanSayIsAnInvalidParameter) {
    for (const std::string& name :
         {std::string(), std::string("a/b"), std::string(".."), std::string("a\0b", 3)})
        EXPECT_EQ(set(name, "C:\\bin\\sh"), 87);
    EXPECT_EQ(set("v", "Q:\\not\\there"), 87);
    const RegistryKey key = opened();
    EXPECT_EQ(registry_.RegSetValueExA(key, "v", 0, 4, "1234", 4), 87);
    EXPECT_EQ(registry_.RegSetValueExA(key, "v", 1, 1, "C:\\", 3), 87);
    EXPECT_EQ(registry_.RegCloseKey(key), 0);
    EXPECT_FALSE(std::filesystem::exists(home_ / ".config"));
}

TEST_F(LinuxAdvapi32Test, AnEntryThatCanNotBeWrittenIsCode1013) {
    std::ofstream(home_ / ".config") << "no folder";
    EXPECT_EQ(set("v", "C:\\bin\\sh"), 1013);
}

TEST_F(LinuxAdvapi32Test, AnEntryThatMayNotBeWrittenIsCode5) {
    // Not even root may make a file there.
    const Environment config("XDG_CONFIG_HOME", "/proc/1/task");
    EXPECT_NE(set("v", "C:\\bin\\sh"), 0);
    if (geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    std::filesystem::create_directories(home_ / "config/autostart");
    chmod((home_ / "config/autostart").c_str(), 0500);
    const Environment closed("XDG_CONFIG_HOME", home_ / "config");
    EXPECT_EQ(set("v", "C:\\bin\\sh"), 5);
}

TEST_F(LinuxAdvapi32Test, AClosedKeyIsNoKeyAnyMore) {
    const RegistryKey key = opened();
    EXPECT_EQ(registry_.RegCloseKey(key), 0);
    EXPECT_EQ(registry_.RegCloseKey(key), 6);
    EXPECT_EQ(registry_.RegSetValueExA(key, "v", 0, 1, "", 0), 6);
}

}  // namespace
}  // namespace velmora::linuxhost
