#include "platform/measured_drive.h"

#include <gtest/gtest.h>

#include "base/runtime_error.h"

namespace velmora {
namespace {

class CountingDrive final : public MeasuredDrive {
  public:
    explicit CountingDrive(std::optional<DriveSpace> space) : MeasuredDrive("D:"), space_(space) {}
    int measures = 0;

  private:
    std::optional<DriveSpace> measure() override {
        ++measures;
        return space_;
    }
    std::optional<DriveSpace> space_;
};

TEST(MeasuredDrive, IsMeasuredOnceAtTheFirstQuestion) {
    CountingDrive drive(DriveSpace{3, 7});
    EXPECT_EQ(drive.Path(), "D:");
    EXPECT_EQ(drive.measures, 0);
    EXPECT_TRUE(drive.IsReady());
    EXPECT_EQ(drive.FreeSpace(), 3);
    EXPECT_EQ(drive.TotalSize(), 7);
    EXPECT_EQ(drive.measures, 1);
}

TEST(MeasuredDrive, IsMeasuredAnewOnceItIsRenewed) {
    CountingDrive drive(DriveSpace{3, 7});
    EXPECT_TRUE(drive.IsReady());
    EXPECT_TRUE(drive.renew());
    EXPECT_EQ(drive.measures, 1);
    EXPECT_EQ(drive.FreeSpace(), 3);
    EXPECT_EQ(drive.TotalSize(), 7);
    EXPECT_EQ(drive.measures, 2);
}

TEST(MeasuredDrive, OneThatIsNotReadyIsError71AndNotMeasuredAgain) {
    CountingDrive drive(std::nullopt);
    EXPECT_FALSE(drive.IsReady());
    for (const auto size : {&Drive::FreeSpace, &Drive::TotalSize}) {
        try {
            (drive.*size)();
            ADD_FAILURE();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), 71);
        }
    }
    EXPECT_EQ(drive.measures, 1);
}

}  // namespace
}  // namespace velmora
