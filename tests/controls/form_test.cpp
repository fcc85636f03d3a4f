#include "controls/form.h"

#include <gtest/gtest.h>

#include "controls/control_properties.h"

namespace velmora::tests {
namespace {

struct FormTest : testing::Test {
    Form form{"Form1", "Velmora"};
    Control single{form, "txtSpace"};
    Control first{form, "lblDP", 0};
    Control second{form, "lblDP", 1};
    Count<Notice<>> changes{form.Changed};
};

TEST_F(FormTest, BeginsHiddenWithItsNameAndCaption) {
    EXPECT_EQ(form.Name(), "Form1");
    EXPECT_EQ(form.Caption(), "Velmora");
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(form.Height(), 0);
    EXPECT_EQ(form.Width(), 0);
}

TEST_F(FormTest, ShowsAndHides) {
    form.Show();
    EXPECT_TRUE(form.Visible());
    form.Show();
    EXPECT_EQ(changes, 1);
    form.Hide();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(changes, 2);
}

TEST_F(FormTest, StaysHiddenWhenItsLoadingHidesIt) {
    int raised = 0;
    form.Load.connect([this] { form.Hide(); });
    form.Raised.connect([&] { ++raised; });
    form.Show();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(raised, 0);
    EXPECT_EQ(changes, 0);
    form.Show();
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(raised, 1);
}

TEST_F(FormTest, IsLoadedAnewOnceItWasUnloaded) {
    Count loads(form.Load);
    form.Show();
    form.Hide();
    form.Show();
    EXPECT_EQ(loads, 1);
    form.unloadNow();
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(loads, 1);
    form.Show();
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(loads, 2);
}

TEST_F(FormTest, NotifiesViewsOfANewCaptionAndSizeOnly) {
    form.setCaption("Velmora");
    form.setSize(0, 0);
    EXPECT_EQ(changes, 0);
    form.setCaption("Other");
    form.setSize(8030, 9100);
    form.setSize(8030, 3900);
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(form.Width(), 8030);
    EXPECT_EQ(form.Height(), 3900);
}

TEST_F(FormTest, FindsControlsByNameInAnyCaseAndByIndex) {
    EXPECT_EQ(form.find("txtSpace"), &single);
    EXPECT_EQ(form.find("TXTSPACE"), &single);
    EXPECT_EQ(form.find("lbldp", 1), &second);
    EXPECT_EQ(form.find("lblDP", 0), &first);
}

TEST_F(FormTest, FindsNothingUnderAnotherNameOrIndex) {
    EXPECT_EQ(form.find("lblDP"), nullptr);
    EXPECT_EQ(form.find("lblDP", 2), nullptr);
    EXPECT_EQ(form.find("txtSpace", 0), nullptr);
    EXPECT_EQ(form.find(""), nullptr);
}

TEST_F(FormTest, KeepsItsControlsInTheOrderOfTheirMaking) {
    EXPECT_EQ(form.controls(), (std::vector<Control*>{&single, &first, &second}));
}

TEST_F(FormTest, ShowsItsProperties) {
    form.setSize(8030, 9100);
    const Properties all = form.properties();
    EXPECT_EQ(textOf(propertyOf(all, "Caption").get()), "Velmora");
    EXPECT_EQ(textOf(propertyOf(all, "Visible").get()), "false");
    EXPECT_EQ(textOf(propertyOf(all, "Height").get()), "9100");
    EXPECT_EQ(textOf(propertyOf(all, "Width").get()), "8030");
    for (const Property& property : all) EXPECT_FALSE(property.set) << property.name;
}

TEST_F(FormTest, ComesBackFromMaximisedInTheSizeOfItsNormalState) {
    form.setSize(8070, 9100);
    form.setState(WindowState::maximised);
    form.setSize(15000, 12000);
    EXPECT_EQ(form.Height(), 12000);
    int resizes = 0;
    form.Resize.connect([&resizes] { ++resizes; });
    form.setState(WindowState::normal);
    EXPECT_EQ(form.Width(), 8070);
    EXPECT_EQ(form.Height(), 9100);
    EXPECT_EQ(resizes, 1);
}

TEST_F(FormTest, ReportsWhenItWasShownAndHidden) {
    std::string fired;
    form.Load.connect([&fired] { fired += 'L'; });
    form.Shown.connect([&fired] { fired += 'S'; });
    form.Hidden.connect([&fired] { fired += 'H'; });
    form.Raised.connect([&fired] { fired += 'R'; });
    form.Show();
    form.Show();
    form.Hide();
    form.Hide();
    form.Show();
    EXPECT_EQ(fired, "LSRRHSR");
}

TEST_F(FormTest, IsPlacedOnceItWasMovedAlsoToTheUpperLeftCorner) {
    EXPECT_FALSE(form.isPlaced());
    form.moveTo(0, 0);
    EXPECT_TRUE(form.isPlaced());
    EXPECT_EQ(changes, 1);
    form.moveTo(0, 0);
    EXPECT_EQ(changes, 1);
}

TEST_F(FormTest, TheNormalSizeIsTheOneBeforeItWasMaximised) {
    EXPECT_EQ(form.NormalWidth(), 0);
    form.setSize(900, 600);
    form.setState(WindowState::maximised);
    form.setSize(3000, 2000);
    EXPECT_EQ(form.NormalWidth(), 900);
    EXPECT_EQ(form.NormalHeight(), 600);
}

}  // namespace
}  // namespace velmora::tests
