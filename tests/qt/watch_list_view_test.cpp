// The watch list at a glance: bars, widths, words, and the banner above it.
#include "qt/controls/watch_list_view.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>
#include <cmath>

#include "qt/colours/colours.h"
#include "qt/colours/identity.h"
#include "qt/icons/glyph.h"
#include "qt/window_test.h"
#include "qt/windows/watch_banner.h"
#include "rows/watch_row.h"

namespace velmora::tests {
namespace {

constexpr RowState allStates[] = {
    RowState::notWatched,   RowState::notChecked,   RowState::unavailable, RowState::noMinimum,
    RowState::shortOfSpace, RowState::nearShortage, RowState::fine};

TEST(SpaceBarLayout, TheUsedPartAndTheMarkLieWithinTheTrack) {
    const QRectF cell(100, 50, 206, 30);
    const RowUsage usage{.state = RowState::fine, .freeKB = 250, .totalKB = 1000, .triggerKB = 100};
    const qt::SpaceBar bar = qt::laySpaceBar(cell, usage);
    EXPECT_TRUE(cell.contains(bar.track));
    EXPECT_EQ(bar.track.width(), 200);
    EXPECT_EQ(bar.used.left(), bar.track.left());
    EXPECT_DOUBLE_EQ(bar.used.width(), 150);
    EXPECT_NEAR(bar.mark, bar.track.left() + 180, 2);
    EXPECT_GT(bar.mark, bar.used.right());
}

TEST(SpaceBarLayout, WithoutAMinimumThereIsNoMark) {
    const qt::SpaceBar bar =
        qt::laySpaceBar({0, 0, 100, 20}, {.freeKB = 0, .totalKB = 10, .triggerKB = 0});
    EXPECT_LT(bar.mark, 0);
    EXPECT_EQ(bar.used, bar.track);
}

TEST(SpaceBarLayout, MarksAtBothEndsCanBeSeen) {
    for (const double trigger : {1000.0, 0.001}) {
        const qt::SpaceBar bar =
            qt::laySpaceBar({0, 0, 100, 20}, {.freeKB = 5, .totalKB = 1000, .triggerKB = trigger});
        EXPECT_GE(bar.mark, bar.track.left() + 1);
        EXPECT_LE(bar.mark, bar.track.right() - 1);
    }
}

TEST(UsageWords, SayKBAndGBTheMinimumAndTheState) {
    const RowUsage usage{.state = RowState::shortOfSpace,
                         .freeKB = 1'048'576,
                         .totalKB = 4 * 1'048'576.0,
                         .triggerKB = 2'097'152};
    EXPECT_EQ(qt::usageInWords(usage, Regional{}).toStdString(),
              "1,048,576 KB free of 4,194,304 KB\n1.0 GB of 4.0 GB, 75.0 % used\n"
              "Minimum: 2,097,152 KB (2.0 GB)\nShort of space");
}

TEST(UsageWords, SayNoMoreThanIsKnown) {
    EXPECT_EQ(qt::usageInWords({.state = RowState::unavailable}, Regional{}).toStdString(),
              "Not available");
    EXPECT_EQ(
        qt::usageInWords({.state = RowState::noMinimum, .freeKB = 512}, Regional{}).toStdString(),
        "512 KB free\nWithout a minimum");
    EXPECT_EQ(qt::usageInWords({.freeKB = 1024, .totalKB = 2048, .triggerKB = 1}, Regional{})
                  .toStdString(),
              "1,024 KB free of 2,048 KB\n1.0 MB of 2.0 MB, 50.0 % used\n"
              "Minimum: 1 KB (0.0 MB)\nNot watched");
}

QPalette darkColours() {
    QPalette palette(QColor(56, 59, 64), QColor(43, 45, 49));
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    return palette;
}

TEST(StateColours, StandOutAndDiffer) {
    for (const QPalette& palette : {QPalette(QColor(239, 239, 239)), darkColours()}) {
        for (const RowState state : allStates) {
            EXPECT_GE(qt::contrast(qt::stateColour(state, palette), palette.color(QPalette::Base)),
                      3);
        }
        std::set<QRgb> told;
        for (const RowState state : {RowState::shortOfSpace, RowState::nearShortage, RowState::fine,
                                     RowState::notWatched}) {
            told.insert(qt::stateColour(state, palette).rgb());
        }
        EXPECT_EQ(told.size(), 4U);
    }
}

TEST(Identity, SelectionsHaveTheProgramsColoursAndCanBeRead) {
    for (const QPalette& palette : {QPalette(QColor(239, 239, 239)), darkColours()}) {
        const QPalette own = qt::withIdentity(palette);
        EXPECT_GE(
            qt::contrast(own.color(QPalette::Highlight), own.color(QPalette::HighlightedText)),
            4.5);
        EXPECT_GE(qt::contrast(own.color(QPalette::Highlight), own.color(QPalette::Base)), 3);
        EXPECT_EQ(own.color(QPalette::Window), palette.color(QPalette::Window));
        EXPECT_GE(qt::contrast(qt::rimColour(own), own.color(QPalette::Window)), 3);
    }
    EXPECT_EQ(qt::withIdentity(QPalette(QColor(239, 239, 239))).color(QPalette::Highlight),
              QColor(0, 0, 64));
    EXPECT_EQ(qt::withIdentity(darkColours()).color(QPalette::Highlight), qt::identityOrange());
}

struct WatchListViewTest : WindowTest {
    WatchListViewTest() {
        start();  // C:, D:, E:
        settle();
    }
    WatchRow at(int index) { return WatchRow(form1().ListView1.ListItems(index)); }
    /// A ticked row with figures that a check has taken.
    void furnish(int index, const char* free, const char* total) {
        at(index).setFreeSpace(free);
        at(index).setTotalSize(total);
        at(index).setLastChecked("03/14 15:10:26");
        form1().ListView1.userTick(index, true);
    }
    void furnishAll() {
        form1().txtSpace.setText("5000000");
        for (int i = 1; i <= 3; ++i) furnish(i, "537,604,915 KB", "1,953,497,088 KB");
        settle();
    }
    qt::WatchBanner* banner() { return find<qt::WatchBanner>("WatchBanner"); }
    std::string bannerText() { return find<QLabel>("WatchBanner.Text")->text().toStdString(); }
    // It follows a moment later where its words cost much.
    bool bannerSays(const std::string& text) {
        return QTest::qWaitFor([&] { return bannerText() == text; });
    }
    std::string hintAt(int row, int column) {
        const QPoint place = cell(row, column);
        QHelpEvent event(QEvent::ToolTip, place, list()->viewport()->mapToGlobal(place));
        QApplication::sendEvent(list()->viewport(), &event);
        return QToolTip::text().toStdString();
    }
    int widthOf(int column) { return list()->columnWidth(column - 1); }
    /// Whether no word of a heading is cut.
    bool headingFits(int column) {
        const QHeaderView* header = list()->header();
        const QString text = header->model()->headerData(column - 1, Qt::Horizontal).toString();
        for (const QString& line : text.split(QLatin1Char('\n'))) {
            if (QFontMetrics(header->font()).horizontalAdvance(line) + 4 > widthOf(column)) {
                return false;
            }
        }
        return true;
    }
    QImage picture() { return list()->viewport()->grab().toImage(); }
};

TEST_F(WatchListViewTest, NothingImportantIsCutInTheLeastWindow) {
    window()->resize(538, 607);
    furnishAll();
    at(3).setFreeSpace("N/A check drive or media");
    settle();
    const int room = list()->viewport()->width();
    EXPECT_GE(widthOf(1), room * 35 / 100);
    EXPECT_GE(widthOf(1), list()->fontMetrics().averageCharWidth() * 10);
    for (const int column : {1, 2, 3, 5}) {
        EXPECT_TRUE(headingFits(column)) << column;
        EXPECT_FALSE(list()->isColumnHidden(column - 1)) << column;
    }
    EXPECT_EQ(list()->header()->length(), room);
}

TEST_F(WatchListViewTest, AColumnThatIsEmptyTakesNoRoom) {
    furnishAll();
    EXPECT_TRUE(list()->isColumnHidden(3));
    at(2).setTrigger("1000");
    settle();
    EXPECT_FALSE(list()->isColumnHidden(3));
    EXPECT_TRUE(headingFits(4));
}

TEST_F(WatchListViewTest, AWideWindowHasItsHeadingsInALine) {
    window()->resize(1200, 800);
    furnishAll();
    const auto heading = [this](int column) {
        return list()->model()->headerData(column - 1, Qt::Horizontal).toString().toStdString();
    };
    EXPECT_EQ(heading(5), "Time Last Checked");
    window()->resize(538, 607);
    settle();
    EXPECT_EQ(heading(5), "Time Last\nChecked");
    EXPECT_EQ(list()
                  ->model()
                  ->headerData(4, Qt::Horizontal, Qt::AccessibleTextRole)
                  .toString()
                  .toStdString(),
              "Time Last Checked");
}

TEST_F(WatchListViewTest, ARowShowsHowFullItsDriveIs) {
    window()->resize(900, 700);
    form1().txtSpace.setText("1000");
    furnish(1, "2,500 KB", "10,000 KB");
    furnish(2, "500 KB", "10,000 KB");
    // The frame of the focus tints the row.
    list()->clearFocus();
    settle();
    const QImage shown = picture();
    const auto colourIn = [&](int row, double share) {
        const QRect place = list()->visualRect(list()->model()->index(row - 1, 1));
        const auto ratio = shown.devicePixelRatio();
        const QPointF at(place.left() + 3 + (place.width() - 6) * share, place.bottom() - 2.5);
        return shown.pixelColor((at * ratio).toPoint());
    };
    const QPalette palette = list()->palette();
    const QColor fine = qt::stateColour(RowState::fine, palette);
    const QColor bad = qt::stateColour(RowState::shortOfSpace, palette);
    EXPECT_EQ(colourIn(1, 0.3).rgb(), fine.rgb());
    EXPECT_EQ(colourIn(1, 0.7).rgb(), fine.rgb());
    EXPECT_NE(colourIn(1, 0.8).rgb(), fine.rgb());
    EXPECT_EQ(colourIn(2, 0.3).rgb(), bad.rgb());
    EXPECT_EQ(colourIn(2, 0.85).rgb(), bad.rgb());
}

TEST_F(WatchListViewTest, AToolTipSaysAllOfARow) {
    window()->resize(1200, 700);
    form1().txtSpace.setText("1000");
    furnish(1, "2,500 KB", "10,000 KB");
    settle();
    EXPECT_EQ(hintAt(1, 2),
              "C:\\\n2,500 KB free of 10,000 KB\n2.4 MB of 9.8 MB, 75.0 % used\n"
              "Minimum: 1,000 KB (1.0 MB)\nOk");
    EXPECT_TRUE(hintAt(1, 5).starts_with("C:\\\nTime Last Checked: 03/14 15:10:26\n2,500 KB"));
    at(1).setFreeSpace("N/A check drive or media");
    settle();
    EXPECT_EQ(hintAt(1, 2), "C:\\\nN/A check drive or media\nNot available");
}

TEST_F(WatchListViewTest, WhereADriveIsMountedStandsBesideIt) {
    window()->resize(1200, 700);
    furnishAll();
    const QImage without = picture();
    program->hand().setPaths({}, [](const std::string& path) {
        return path == "D:\\" ? std::string("/srv/data") : path;
    });
    at(1).setStamp("another");
    at(1).setLastChecked("03/14 15:10:27");
    at(1).setLastChecked("03/14 15:10:26");
    settle();
    const QImage with = picture();
    const auto differs = [&](int row) {
        const QRect place = list()->visualRect(list()->model()->index(row - 1, 0));
        return with.copy(place) != without.copy(place);
    };
    EXPECT_FALSE(differs(1));
    EXPECT_TRUE(differs(2));
    EXPECT_FALSE(differs(3));
    EXPECT_EQ(hintAt(2, 1).substr(0, 16), "D:\\  /srv/data\n5");
}

TEST_F(WatchListViewTest, OnlyToolTipsAreTheCells) {
    furnishAll();
    QHelpEvent other(QEvent::WhatsThis, {}, {});
    EXPECT_FALSE(
        list()->itemDelegate()->helpEvent(&other, list(), {}, list()->model()->index(0, 0)));
}

TEST_F(WatchListViewTest, TheLogIsNamedAsTheHostDoes) {
    program->hand().setPaths({}, [](const std::string&) { return std::string("/opt/log.dat"); });
    form1().lblLog.setCaption("C:\\opt\\log.dat");
    settle();
    EXPECT_EQ(find<QWidget>("lblLog")->accessibleDescription().toStdString(), "/opt/log.dat");
    EXPECT_EQ(form1().lblLog.Caption(), "C:\\opt\\log.dat");
}

TEST_F(WatchListViewTest, TheBannerFollowsTheWatch) {
    EXPECT_EQ(bannerText(), "Nothing is watched yet: tick a drive");
    furnishAll();
    form1().Timer1.setEnabled(true);
    EXPECT_TRUE(bannerSays("3 watched, all fine")) << bannerText();
    at(1).setFreeSpace("10 KB");
    EXPECT_TRUE(bannerSays("1 of 3 short of space: C:\\")) << bannerText();
    form1().txtSpace.setText("5");
    EXPECT_TRUE(bannerSays("3 watched, all fine")) << bannerText();
    form1().Timer1.setEnabled(false);
    EXPECT_TRUE(bannerSays("Paused")) << bannerText();
    form1().ListView1.Clear();
    EXPECT_TRUE(bannerSays("Nothing is watched yet: tick a drive")) << bannerText();
}

TEST_F(WatchListViewTest, TheStatusPictureIsNeutralUntilAllIsFine) {
    form1().StatusBar1.setPanelPicture(1, image::ready);
    settle();
    const auto shows = [this](qt::Glyph glyph) {
        return find<QLabel>("StatusBar1.Picture")->pixmap().toImage() ==
               qt::glyphIcon(glyph).pixmap(16, 16).toImage();
    };
    EXPECT_TRUE(shows(qt::Glyph::stateNeutral));
    furnishAll();
    form1().Timer1.setEnabled(true);
    settle();
    EXPECT_TRUE(shows(qt::Glyph::stateOk));
    at(1).setFreeSpace("10 KB");
    settle();
    EXPECT_TRUE(shows(qt::Glyph::stateNeutral));
}

TEST_F(WatchListViewTest, AlertsGiveTheirRoomToWhatWasDone) {
    form1().lblTab[2].Click();
    window()->resize(900, 700);
    program->core().alerts().prcAlertInfo("20260314 15:09", "High", "something was done", {},
                                          nullptr);
    settle();
    auto* alerts = find<qt::ListViewWidget>("LVAlert");
    EXPECT_TRUE(alerts->isColumnHidden(3));
    EXPECT_GT(alerts->columnWidth(2), alerts->viewport()->width() / 2);
}

}  // namespace
}  // namespace velmora::tests
