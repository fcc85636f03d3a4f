// Files dropped on lists and boxes from the desktop.
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "qt/window_test.h"

namespace velmora::tests {
namespace {

using Paths = std::vector<std::string>;

struct FileDropsTest : WindowTest {
    FileDropsTest() {
        for (const char* path : {"/data/a", "/data/b c", "/data/\u00E9", "D:/data/a"}) {
            machine.files[path] = "x";
        }
        start();
        form1().LVFile.Drop.connect([this](const Paths& paths) { dropped.push_back(paths); });
        form1().cboFile.Drop.connect([this](const Paths& paths) { dropped.push_back(paths); });
    }
    /// Drags the things over the widget and lets them go; whether it took them.
    static bool drop(QWidget* widget, const QList<QUrl>& things, const QString& text = {}) {
        QMimeData data;
        if (!things.empty()) data.setUrls(things);
        if (!text.isEmpty()) data.setText(text);
        const QPoint place = widget->rect().center();
        QDragEnterEvent enter(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(widget, &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, {});
        event.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(widget, &event);
        action = event.dropAction();
        return event.isAccepted();
    }
    QWidget* files() { return find<qt::ListViewWidget>("LVFile")->viewport(); }

    std::vector<Paths> dropped;
    inline static Qt::DropAction action = Qt::IgnoreAction;
};

TEST_F(FileDropsTest, TheListTakesAllFilesInTheirOrder) {
    EXPECT_TRUE(
        drop(files(), {QUrl::fromLocalFile("/data/b c"), QUrl::fromLocalFile("/data/\u00E9")}));
    settle();
    EXPECT_EQ(dropped, (std::vector<Paths>{{"/data/b c", "/data/\u00E9"}}));
}

// A file that is dragged must not be lost.
TEST_F(FileDropsTest, AFileIsNeverTakenAwayFromWhereItIs) {
    drop(files(), {QUrl::fromLocalFile("/data/a")});
    EXPECT_EQ(action, Qt::CopyAction);
}

TEST_F(FileDropsTest, TheHandlerRunsWhenTheFileManagerIsFreeAgain) {
    drop(files(), {QUrl::fromLocalFile("/data/a")});
    EXPECT_TRUE(dropped.empty());
    settle();
    EXPECT_EQ(dropped.size(), 1u);
}

TEST_F(FileDropsTest, PagesAndTextsAreNoFiles) {
    EXPECT_FALSE(drop(files(), {QUrl("https://velmora.example/")}));
    EXPECT_FALSE(drop(files(), {}, "C:\\data"));
    EXPECT_TRUE(drop(files(), {QUrl("https://velmora.example/"), QUrl::fromLocalFile("/data/a")}));
    settle();
    EXPECT_EQ(dropped, (std::vector<Paths>{{"/data/a"}}));
}

TEST_F(FileDropsTest, ABoxTakesThemOnItsEntryToo) {
    auto* box = find<QComboBox>("cboFile");
    for (QWidget* part : {static_cast<QWidget*>(box), static_cast<QWidget*>(box->lineEdit())}) {
        dropped.clear();
        EXPECT_TRUE(drop(part, {QUrl::fromLocalFile("/data/a")}));
        settle();
        EXPECT_EQ(dropped, (std::vector<Paths>{{"/data/a"}}));
    }
    EXPECT_EQ(box->currentText(), "/data/a");
}

TEST_F(FileDropsTest, AListWithoutUseForFilesRefusesThem) {
    EXPECT_FALSE(
        drop(find<qt::ListViewWidget>("LVAlert")->viewport(), {QUrl::fromLocalFile("/data/a")}));
}

TEST_F(FileDropsTest, ADisabledListRefusesThem) {
    form1().LVFile.setEnabled(false);
    settle();
    EXPECT_FALSE(drop(files(), {QUrl::fromLocalFile("/data/a")}));
    EXPECT_TRUE(dropped.empty());
}

TEST_F(FileDropsTest, AFolderOnTheWatchListIsAdded) {
    machine.folders.insert("d:\\data");
    program->hand().setPaths([](const std::string&) { return "D:\\data"; });
    EXPECT_TRUE(drop(list()->viewport(), {QUrl::fromLocalFile("/data")}));
    settle();
    ASSERT_EQ(form1().ListView1.Count(), 4);
    EXPECT_EQ(form1().ListView1.ListItems(4).Text(), "D:\\data");
    EXPECT_EQ(selectedRows(), std::vector<int>{4});
    QTest::keyClick(list(), Qt::Key_Space);
    EXPECT_TRUE(form1().ListView1.ListItems(4).Checked());
}

// The field is disabled then, and the drop asks as the buttons do.
TEST_F(FileDropsTest, TheWatchListTakesFoldersDuringACheckAfterAQuestion) {
    machine.folders.insert("d:\\data");
    program->hand().setPaths([](const std::string&) { return "D:\\data"; });
    boxes.answers = {QMessageBox::Yes};
    bool isTaken = false;
    duringCheck([&] {
        EXPECT_FALSE(form1().ListView1.Enabled());
        isTaken = drop(list()->viewport(), {QUrl::fromLocalFile("/data")});
    });
    settle();
    EXPECT_TRUE(isTaken);
    EXPECT_TRUE(boxes.lastText().starts_with("The program is still checking.")) << boxes.lastText();
    ASSERT_EQ(form1().ListView1.Count(), 4);
    EXPECT_EQ(form1().ListView1.ListItems(4).Text(), "D:\\data");
}

TEST_F(FileDropsTest, PathsOfTheMachineBecomeDrivePaths) {
    program->hand().setPaths([](const std::string& path) { return "D:" + path; });
    drop(files(), {QUrl::fromLocalFile("/data/a")});
    settle();
    EXPECT_EQ(dropped, (std::vector<Paths>{{"D:/data/a"}}));
}

}  // namespace
}  // namespace velmora::tests
