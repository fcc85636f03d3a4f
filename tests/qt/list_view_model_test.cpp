// The model over a list's rows: few publications for any number of changes, and consistent after
// any of them.
#include "qt/controls/list_view_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QIcon>
#include <QSignalSpy>
#include <random>

#include "controls/form.h"

namespace velmora::tests {
namespace {

struct ListViewModelTest : testing::Test {
    Form form{"Form1"};
    ListView field{form, "List"};
    std::unique_ptr<qt::ListViewModel> model;

    void make() {
        field.addColumn({"One"});
        field.addColumn({"Two"});
        model =
            std::make_unique<qt::ListViewModel>(field, [](const std::string&) { return QIcon(); });
        model->setHasTicks(true);
    }
    static void settle() {
        for (int i = 0; i < 3; ++i) QApplication::processEvents();
    }
    void expectSameRows() {
        ASSERT_EQ(model->rowCount(), field.Count());
        for (int i = 1; i <= field.Count(); ++i) {
            ASSERT_EQ(model->index(i - 1, 0).data().toString().toStdString(),
                      field.ListItems(i).Text());
        }
    }
};

TEST_F(ListViewModelTest, RowsPutOnTopInOneGoAreOneInsertion) {
    make();
    for (int i = 0; i < 10; ++i) field.Add("old " + std::to_string(i));
    settle();
    QSignalSpy insertions(model.get(), &QAbstractItemModel::rowsInserted);
    QSignalSpy resets(model.get(), &QAbstractItemModel::modelReset);
    QSignalSpy changes(model.get(), &QAbstractItemModel::dataChanged);
    for (int i = 0; i < 100'000; ++i) field.Add(1, std::to_string(i)).setSubItems(1, "detail");
    settle();
    ASSERT_EQ(insertions.count(), 1);
    EXPECT_EQ(insertions[0][1].toInt(), 0);
    EXPECT_EQ(insertions[0][2].toInt(), 99'999);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_LE(changes.count(), 2);
    EXPECT_EQ(model->rowCount(), 100'010);
    EXPECT_EQ(model->index(0, 0).data().toString(), "99999");
    EXPECT_EQ(model->index(100'000, 0).data().toString(), "old 0");
}

TEST_F(ListViewModelTest, ChangesOfRowsAreReportedOnce) {
    make();
    for (int i = 0; i < 1000; ++i) field.Add("row");
    settle();
    QSignalSpy changes(model.get(), &QAbstractItemModel::dataChanged);
    for (int i = 1; i <= 1000; ++i) {
        for (int again = 0; again < 5; ++again)
            field.ListItems(i).setSubItems(1, std::to_string(again));
    }
    settle();
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(ListViewModelTest, ATickBeforeThePublishingMeansTheRowThatIsShown) {
    make();
    field.Add("shown");
    settle();
    field.Add(1, "on top, not shown yet");
    QSignalSpy ticks(model.get(), &qt::ListViewModel::ticked);
    model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    ASSERT_EQ(ticks.count(), 1);
    EXPECT_EQ(ticks[0][0].toInt(), 2);
    EXPECT_EQ(model->index(0, 0).data().toString(), "shown");
}

TEST_F(ListViewModelTest, ACellIsOneLine) {
    make();
    field.Add("one\r\ntwo");
    settle();
    EXPECT_EQ(model->index(0, 0).data().toString(), "one two");
}

TEST_F(ListViewModelTest, OfATextOfAMegabyteTheBeginningIsShownAndAllIsKept) {
    make();
    std::string text = "x";
    for (int i = 0; i < 500'000; ++i) text += "\xC3\xB6";  // o umlaut
    field.Add(text);
    field.Add(std::string(4000, 'y'));
    settle();
    const QString cell = model->index(0, 0).data().toString();
    EXPECT_EQ(cell, "x" + QString(1999, QChar(0xF6)) + QChar(0x2026));
    EXPECT_EQ(field.ListItems(1).Text(), text);
    EXPECT_EQ(model->index(1, 0).data().toString(), QString(4000, 'y'));
}

TEST_F(ListViewModelTest, ColumnsThatComeLaterArePublished) {
    make();
    field.Add("row");
    settle();
    field.addColumn({"Three", 900, Alignment::right});
    settle();
    EXPECT_EQ(model->columnCount(), 3);
    EXPECT_EQ(model->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), "Three");
}

TEST_F(ListViewModelTest, StaysConsistentUnderAnyChanges) {
    make();
    QAbstractItemModelTester tester(model.get(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    std::mt19937 random(20260314);
    const auto upTo = [&](int most) { return std::uniform_int_distribution<int>(1, most)(random); };
    for (int step = 0; step < 3000; ++step) {
        const int count = field.Count();
        switch (upTo(12)) {
            case 1:
            case 2:
            case 3:
                field.Add(1, "top " + std::to_string(step));
                break;
            case 4:
                field.Add("end " + std::to_string(step));
                break;
            case 5:
                field.Add(upTo(count + 1), "between " + std::to_string(step));
                break;
            case 6:
                if (count > 0) field.Remove(upTo(count));
                break;
            case 7:
                if (upTo(40) == 1) field.Clear();
                break;
            case 8:
                if (upTo(5) == 1) field.sortBy(upTo(2) - 1, upTo(2) - 1);
                break;
            case 9:
                if (count > 0) field.userTick(upTo(count), upTo(2) == 1);
                break;
            case 10:
                if (count > 0) field.ListItems(upTo(count)).setSubItems(1, std::to_string(step));
                break;
            case 11:
                if (count > 0) field.userSelect({upTo(count)});
                break;
            default:
                settle();
                break;
        }
        // What is shown may be asked at any time, also of rows that are gone.
        for (int i = 0; i < std::min(model->rowCount(), 3); ++i) model->index(i, 0).data();
    }
    settle();
    expectSameRows();
}

}  // namespace
}  // namespace velmora::tests
