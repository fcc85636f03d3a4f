// The machines that must keep the platform's contract: the one in memory, which all other tests
// trust, and the real one that these tests run on. Each gives a folder to work in.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"

namespace velmora::contract {

class MachineUnderTest {
  public:
    virtual ~MachineUnderTest() = default;
    virtual Machine& machine() = 0;

    /// Drive path of a folder that is empty at first and goes with this object.
    virtual std::string scratch() const = 0;
    /// The folder above must be there.
    virtual void makeFolder(const std::string& drivePath) = 0;
    virtual void makeFile(const std::string& drivePath, std::string_view content) = 0;
    virtual std::string readFile(const std::string& drivePath) = 0;
    /// Removes a file, or a folder with all that is in it.
    virtual void remove(const std::string& drivePath) = 0;
    /// Whether file names may hold quotes.
    virtual bool takesQuotes() const = 0;
};

struct Candidate {
    const char* name;
    std::function<std::unique_ptr<MachineUnderTest>()> make;
};

std::unique_ptr<MachineUnderTest> machineInMemory();
std::unique_ptr<MachineUnderTest> realMachine();

/// Keeps the user's own settings unchanged while the result exists; open the machine only after
/// this call. The contract's registry value is "VelmoraContract".
std::shared_ptr<void> leaveUserAlone();

/// A test that runs once for every machine.
class ContractTest : public testing::TestWithParam<Candidate> {
  protected:
    Platform& platform() { return subject->machine().platform(); }
    FileSystemObject& fso() { return platform().fso; }
    std::string inScratch(const std::string& name) const {
        return subject->scratch() + '\\' + name;
    }
    /// The roots of the logical drives, in their order.
    std::string logicalDrives();
    /// "X:" for a letter that no drive has.
    std::string letterWithoutDrive();

    std::unique_ptr<MachineUnderTest> subject = GetParam().make();
};

inline std::string nameOf(const testing::TestParamInfo<Candidate>& candidate) {
    return candidate.param.name;
}

inline auto everyMachine() {
    return testing::Values(Candidate{"InMemory", machineInMemory}, Candidate{"Real", realMachine});
}

inline void PrintTo(const Candidate& candidate, std::ostream* out) {
    *out << candidate.name;
}

}  // namespace velmora::contract
