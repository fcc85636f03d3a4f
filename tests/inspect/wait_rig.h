// The folder scans and the watcher on a machine in memory with one folder, "C:\data".
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "base/runtime_error.h"
#include "fake/fake_host.h"
#include "fake/fake_surface.h"
#include "inspect/change_type.h"
#include "inspect/folder_scan.h"
#include "inspect/wait_test.h"
#include "inspect/watch_for_changes.h"

namespace velmora::tests {

inline constexpr std::uint64_t referenceTime = 1000;

/// Windows with timers, whose calls are recorded with those of the machine.
struct TimedWindows : fake::FakeUser32 {
    explicit TimedWindows(fake::FakeMachine& machine) : machine_(machine) {}
    bool KillTimer(std::uint32_t window, std::uint64_t timer) override {
        machine_.log.call("KillTimer " + std::to_string(window) + ' ' + std::to_string(timer));
        return true;
    }
    bool DestroyWindow(std::uint32_t window) override {
        machine_.log.call("DestroyWindow " + std::to_string(window));
        return true;
    }

  private:
    fake::FakeMachine& machine_;
};

/// Records alerts as "time | rating | text", or refuses them.
struct TakenAlerts : AlertSink {
    void raise(const std::string& time, const std::string& rating,
               const std::string& text) override {
        if (refuses) throw RuntimeError(error::permissionDenied);
        texts.push_back(time + " | " + rating + " | " + text);
        if (onAlert) onAlert();
    }
    std::vector<std::string> texts;
    std::function<void()> onAlert;
    bool refuses = false;
};

struct WaitRig {
    fake::FakeMachine machine;
    fake::FakeHost host;
    TimedWindows user32{machine};
    TakenAlerts alerts;
    Forms forms;
    FrmWaitTest& form = forms.frmWaitTest;
    Kernel32& kernel32 = machine.platform().kernel32;
    WaitTest waitTest{forms.frmWaitTest, forms.globals, machine.platform(), host, alerts};
    std::vector<FindData>& entries = machine.listings["C:\\data"];

    WaitRig() {
        machine.drives["C:"] = {1e9, 2e9};
        machine.folders.insert("c:\\data");
        forms.globals.lastFileTime = referenceTime;
        waitTest.sWatchPath = "C:\\data";
    }

    /// An entry of the folder, not changed unless given otherwise.
    void add(const std::string& name, std::uint64_t written = referenceTime,
             std::uint64_t created = referenceTime, std::uint32_t attributes = 32) {
        entries.push_back({.dwFileAttributes = attributes,
                           .ftCreationTime = created,
                           .ftLastAccessTime = referenceTime + 77,
                           .ftLastWriteTime = written,
                           .nFileSize = 5,
                           .cFileName = name});
    }
    void addFolder(const std::string& name, std::uint64_t written = referenceTime) {
        add(name, written, referenceTime, file_attribute::directory);
    }
    std::string changedTimes(const std::string& path = "C:\\data") {
        return waitTest.prcPubFindFilesByTime(path);
    }
    std::string changedNames(std::int32_t type = change::name) {
        return waitTest.fFindChangedNames("C:\\data", type);
    }
    /// Makes the present entries the known ones and forgets the calls.
    void snapshot() {
        waitTest.prcSnapshotDir("C:\\data");
        machine.log.clear();
    }
    /// A watcher with handles 11 to 14 and window 9, to which the form is connected.
    cWatchForChanges& watch() {
        cWatchForChanges& watcher =
            waitTest.watchBy(std::make_unique<cWatchForChanges>(kernel32, user32));
        takeHandles(watcher);
        return watcher;
    }
    void takeHandles(cWatchForChanges& watcher) {
        watcher.hWnd = 9;
        watcher.hName = 11;
        watcher.hSize = 12;
        watcher.hLastWrite = 13;
        watcher.hDirName = 14;
        for (std::uint32_t handle = 11; handle <= 14; ++handle) machine.notifications[handle] = 0;
    }
};

}  // namespace velmora::tests
