// The drive information dialog: its charts with their tables, and its two panels.
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QToolTip>

#include "qt/colours/colours.h"
#include "qt/controls/chart_colours.h"
#include "qt/controls/chart_view.h"
#include "qt/paint_counter.h"
#include "qt/window_test.h"

namespace velmora::tests {
namespace {

struct DriveInfoWindowTest : WindowTest {
    DriveInfoWindowTest() {
        start();
        form().Show();
        settle();
    }
    DlgDriveInfo& form() { return program->forms().dlgDriveInfo; }
    template <typename Widget>
    Widget* part(const char* name) {
        return find<Widget>(QString::fromLatin1(name), "dlgDriveInfo");
    }
    qt::ChartWidget* bars() { return part<qt::ChartWidget>("MSChart1(0).Chart"); }
    qt::ChartWidget* pie() { return part<qt::ChartWidget>("MSChart1(1).Chart"); }
    bool shows(const char* name) { return part<QWidget>(name)->isVisible(); }
    void view(int index) {
        form().Combo1.userChoose(index);
        settle();
    }
    /// Rows of given sizes, in KB, in the first chart.
    void chart(int rows, double free, double total) {
        Chart& field = form().MSChart1[0];
        field.setRowCount(rows);
        field.setColumnCount(2);
        for (int i = 1; i <= rows; ++i) {
            field.setRow(i);
            field.setRowLabel("Row " + std::to_string(i));
            field.setColumn(1);
            field.setData(free);
            field.setColumn(2);
            field.setData(total);
        }
        settle();
    }
    static QString toolTipAt(qt::ChartWidget* chart, const QPoint& place) {
        QHelpEvent help(QEvent::ToolTip, place, chart->viewport()->mapToGlobal(place));
        QApplication::sendEvent(chart->viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    static int pixelsOf(const QImage& picture, const QColor& colour) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += picture.pixelColor(x, y).rgb() == colour.rgb() ? 1 : 0;
            }
        }
        return count;
    }
};

TEST_F(DriveInfoWindowTest, ThePanelsFollowTheChoice) {
    const char* const panels[] = {"MSChart1(0)", "MSChart1(1)", "frmPart", "frmAD"};
    for (int chosen : {0, 1, 2, 3, 0}) {
        view(chosen);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(shows(panels[i]), i == chosen) << panels[i];
    }
}

TEST_F(DriveInfoWindowTest, TheEntryThatIsChosenCanBeChosenAgain) {
    auto* choice = part<QComboBox>("Combo1");
    ASSERT_EQ(choice->count(), 4);
    int clicks = 0;
    form().Combo1.Click.connect([&] { ++clicks; });
    emit choice->activated(1);
    emit choice->activated(1);
    settle();
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(choice->currentIndex(), 1);
}

TEST_F(DriveInfoWindowTest, ItFitsASmallScreen) {
    for (int i = 0; i < 4; ++i) {
        view(i);
        const QSize least = program->window("dlgDriveInfo")->minimumSizeHint();
        EXPECT_LE(least.width(), 1093);  // 1366 by 768 at 125 %
        EXPECT_LE(least.height(), 560);
    }
}

TEST_F(DriveInfoWindowTest, LoadedAgainItHasOneWindow) {
    QWidget* first = program->window("dlgDriveInfo");
    first->close();
    settle();
    ASSERT_FALSE(first->isVisible());
    form().Show();
    settle();
    EXPECT_EQ(program->window("dlgDriveInfo"), first);
    int shownWindows = 0;
    for (QWidget* each : QApplication::topLevelWidgets()) {
        shownWindows += each->isVisible() && each->objectName() == "dlgDriveInfo" ? 1 : 0;
    }
    EXPECT_EQ(shownWindows, 1);
}

TEST_F(DriveInfoWindowTest, BarsAreAsLongAsTheirValues) {
    const QColor ground = bars()->palette().color(QPalette::Base);
    const auto coloured = [&](int column) {
        return pixelsOf(bars()->viewport()->grab().toImage(), qt::seriesColour(column, ground));
    };
    chart(1, 0, 1000);
    const int legend = coloured(0);
    chart(1, 500, 1000);
    const int half = coloured(0) - legend;
    chart(1, 1000, 1000);
    const int whole = coloured(0) - legend;
    EXPECT_GT(half, 1000);
    EXPECT_NEAR(half, whole / 2, whole / 20);
}

TEST_F(DriveInfoWindowTest, ARowSaysItsValuesUnderThePointer) {
    chart(1, 1234567, 9876543);
    const QRectF window = bars()->face().window();
    EXPECT_EQ(toolTipAt(bars(), (window.topLeft() + QPointF(200, 12)).toPoint()),
              "Row 1\nFree Space: 1,234,567 KB\nTotal Space: 9,876,543 KB");
    EXPECT_EQ(bars()->partAt(QPoint(2, 2)), -1);
}

TEST_F(DriveInfoWindowTest, ManyRowsScroll) {
    chart(200, 10, 20);
    QScrollBar* scroll = bars()->verticalScrollBar();
    ASSERT_GT(scroll->maximum(), 0);
    const QPoint middle = bars()->face().window().center().toPoint();
    const int before = bars()->partAt(middle);
    scroll->setValue(scroll->maximum());
    EXPECT_GT(bars()->partAt(middle), before);
    const QPointF last(middle.x(), bars()->face().window().bottom() - 3);
    EXPECT_EQ(bars()->partAt(last.toPoint()), 199);
    chart(1, 10, 20);
    EXPECT_EQ(scroll->maximum(), 0);
}

TEST_F(DriveInfoWindowTest, APieHasAWedgeForEachDrive) {
    view(drive_view::distribution);
    EXPECT_EQ(pie()->face().partCount(), 3);
    EXPECT_TRUE(pie()->accessibleDescription().startsWith("Total Free Space Distribution"));
    Chart& field = form().MSChart1[1];
    for (int i = 1; i <= 3; ++i) {
        field.setColumn(i);
        field.setData(i == 3 ? 3000 : 0);
    }
    settle();
    // The whole pie is the third wedge.
    const QColor red = qt::wedgeColours({0, 0, 3000}, pie()->palette().color(QPalette::Base))[2];
    EXPECT_GT(pixelsOf(pie()->viewport()->grab().toImage(), red), 10000);
    const QPoint inPie(100, pie()->viewport()->height() / 2);
    EXPECT_EQ(toolTipAt(pie(), inPie), "E:\\\n3,000 KB (100.0 %)");
}

TEST_F(DriveInfoWindowTest, AnEmptyWatchListIsASentence) {
    chart(0, 0, 0);
    EXPECT_EQ(bars()->face().partCount(), 0);
    EXPECT_EQ(bars()->accessibleDescription(), "The watch list is empty.");
    EXPECT_EQ(part<QTableWidget>("MSChart1(0).Table")->rowCount(), 0);
}

TEST_F(DriveInfoWindowTest, TheTableHasTheValuesOfTheChart) {
    chart(2, 1234567, 9876543);
    auto* table = part<QTableWidget>("MSChart1(0).Table");
    EXPECT_FALSE(table->isVisible());
    click("MSChart1(0).ShowTable", "dlgDriveInfo");
    EXPECT_TRUE(table->isVisible());
    EXPECT_FALSE(bars()->isVisible());
    ASSERT_EQ(table->rowCount(), 2);
    ASSERT_EQ(table->columnCount(), 3);
    EXPECT_EQ(table->horizontalHeaderItem(0)->text(), "Drive/Path");
    EXPECT_FALSE(table->horizontalHeader()->highlightSections());
    EXPECT_EQ(table->horizontalHeaderItem(1)->text(), "Free Space (KB)");
    EXPECT_EQ(table->item(1, 0)->text(), "Row 2");
    EXPECT_EQ(table->item(1, 1)->text(), "1,234,567");
    EXPECT_EQ(table->item(1, 2)->text(), "9,876,543");
    click("MSChart1(0).ShowTable", "dlgDriveInfo");
    EXPECT_TRUE(bars()->isVisible());
}

struct ForeignDigits : WindowTest {
    ForeignDigits() {
        machine.platform().regional = {.digitGroup = ".", .decimalPoint = ","};
        start();
    }
};

TEST_F(ForeignDigits, TheTableHasTheMachinesOwn) {
    DlgDriveInfo& form = program->forms().dlgDriveInfo;
    form.Show();
    Chart& chart = form.MSChart1[0];
    chart.setRowCount(1);
    chart.setColumnCount(2);
    chart.setRow(1);
    chart.setColumn(1);
    chart.setData(1234567);
    settle();
    click("MSChart1(0).ShowTable", "dlgDriveInfo");
    auto* table = find<QTableWidget>("MSChart1(0).Table", "dlgDriveInfo");
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->item(0, 1)->text(), "1.234.567");
}

TEST_F(DriveInfoWindowTest, CopyGivesAPictureAndLinesWithTabs) {
    chart(200, 1234567, 9876543);
    QGuiApplication::clipboard()->clear();
    click("MSChart1(0).Copy", "dlgDriveInfo");
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(copied->hasText());
    EXPECT_TRUE(
        copied->text().startsWith("Drive/Path\tFree Space (KB)\tTotal Space (KB)\n"
                                  "Row 1\t1234567\t9876543\nRow 2\t"));
    ASSERT_TRUE(copied->hasImage());
    // All rows, also those that are scrolled out of view.
    const auto picture = qvariant_cast<QImage>(copied->imageData());
    EXPECT_GT(picture.height() / picture.devicePixelRatio(), 200 * 14);
}

TEST_F(DriveInfoWindowTest, CopyOfThePieGivesAPictureAndItsShares) {
    view(drive_view::distribution);
    Chart& field = form().MSChart1[1];
    for (int i = 1; i <= 3; ++i) {
        field.setColumn(i);
        field.setData(i * 1000);
    }
    settle();
    QGuiApplication::clipboard()->clear();
    click("MSChart1(1).Copy", "dlgDriveInfo");
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text().toStdString(),
              "Name\tKB\tShare\nC:\\\t1000\t16.7 %\nD:\\\t2000\t33.3 %\n"
              "E:\\\t3000\t50.0 %\n");
    ASSERT_TRUE(copied->hasImage());
    const auto picture = qvariant_cast<QImage>(copied->imageData());
    const QColor third = qt::wedgeColours({1000, 2000, 3000}, Qt::white)[2];
    EXPECT_GT(pixelsOf(picture, third), 1000);
}

TEST_F(DriveInfoWindowTest, AnUnchangedChartIsNotPaintedAgain) {
    chart(3, 10, 20);
    PaintCounter paints(bars()->viewport());
    chart(3, 10, 20);
    EXPECT_EQ(paints.count, 0);
    chart(3, 11, 20);
    EXPECT_GT(paints.count, 0);
}

TEST_F(DriveInfoWindowTest, ControlCharactersAreDots) {
    view(drive_view::partition);
    form().lvInfo.Add("OEM name").setSubItems(1, std::string("AB\0CD", 5));
    form().txtChar.setText(std::string("x\0y\r\nz\x7F", 7));
    settle();
    auto* list = part<qt::ListViewWidget>("lvInfo");
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), QStringLiteral("AB·CD"));
    EXPECT_EQ(part<QPlainTextEdit>("txtChar")->toPlainText(), QStringLiteral("x·y\nz·"));
}

TEST_F(DriveInfoWindowTest, BytesAndCharactersAreReadOnlyAndScrollTogether) {
    view(drive_view::partition);
    std::string lines;
    for (int i = 0; i < 64; ++i) lines += "00 00\r\n";
    form().txtBytes.setText(lines);
    form().txtChar.setText(lines);
    settle();
    auto* bytes = part<QPlainTextEdit>("txtBytes");
    auto* characters = part<QPlainTextEdit>("txtChar");
    for (QPlainTextEdit* each : {bytes, characters}) {
        EXPECT_TRUE(each->isReadOnly());
        EXPECT_TRUE(QFontInfo(each->font()).fixedPitch());
    }
    ASSERT_GT(characters->verticalScrollBar()->maximum(), 0);
    characters->verticalScrollBar()->setValue(9);
    EXPECT_EQ(bytes->verticalScrollBar()->value(), 9);
    bytes->verticalScrollBar()->setValue(4);
    EXPECT_EQ(characters->verticalScrollBar()->value(), 4);
}

TEST_F(DriveInfoWindowTest, TheReasonTakesNoRoomWhileThereIsNone) {
    view(drive_view::partition);
    EXPECT_FALSE(shows("lblReason"));
    form().lblReason.setCaption("Only an administrator may read it.");
    settle();
    EXPECT_TRUE(shows("lblReason"));
    form().lblReason.setCaption("");
    settle();
    EXPECT_FALSE(shows("lblReason"));
}

TEST_F(DriveInfoWindowTest, AttributesAreAlignedToTheRight) {
    view(drive_view::attributes);
    EXPECT_EQ(part<QComboBox>("cboDrives")->currentText(), "D:");
    form().lblInfo[3].setCaption("314572");
    settle();
    auto* value = part<QLabel>("lblInfo(3)");
    EXPECT_EQ(value->text(), "314572");
    EXPECT_TRUE(value->alignment().testFlag(Qt::AlignRight));
}

}  // namespace
}  // namespace velmora::tests
