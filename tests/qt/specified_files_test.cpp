// The lists of files and programs by hand: dialogs, buttons, drops and the menu.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QTemporaryDir>
#include <algorithm>

#include "qt/surface/no_input.h"
#include "qt/window_test.h"
#include "rows/listed_file.h"
#include "rows/listed_program.h"

namespace velmora::tests {
namespace {

struct SpecifiedFilesTest : WindowTest {
    SpecifiedFilesTest() {
        start();
        for (const char* name : {"a.txt", "b c.txt", "\u00E9.txt"}) {
            QFile file(path(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
            machine.files[path(name).toStdString()] = "12345";
        }
        click("lblSpectab(2)");
    }
    QString path(const QString& name) { return folder.filePath(name); }

    /// Chooses these files in the file dialog that the button opens; none dismisses it.
    void chooseAfterClick(const QString& button, const QStringList& names) {
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) return;
            watch.stop();
            title = dialog->windowTitle();
            filters = dialog->nameFilters();
            mode = dialog->fileMode();
            if (names.empty()) return dialog->reject();
            dialog->setDirectory(folder.path());
            auto* entry = dialog->findChild<QLineEdit*>("fileNameEdit");
            QStringList quoted;
            for (const QString& name : names) quoted << QLatin1Char('"') + name + QLatin1Char('"');
            entry->setText(names.size() == 1 ? names.first() : quoted.join(QLatin1Char(' ')));
            QTest::keyClick(entry, Qt::Key_Return);
        });
        watch.start(0);
        click(button);
    }
    std::vector<std::string> tags() {
        std::vector<std::string> all;
        for (int i = 1; i <= form1().LVFile.Count(); ++i) {
            all.push_back(ConstListedFile(form1().LVFile.ListItems(i)).path());
        }
        return all;
    }
    std::string tag(const QString& name) { return path(name).toStdString(); }

    QTemporaryDir folder;
    QString title;
    QStringList filters;
    QFileDialog::FileMode mode = QFileDialog::AnyFile;
};

TEST_F(SpecifiedFilesTest, ALaterStartsPathsComeAsThisMachineNamesThem) {
    machine.commandOf = [](const std::string& handedOver) {
        return "\"D:\\" + handedOver + "\" \"D:\\other\"";
    };
    program->take("a.log");
    EXPECT_EQ(tags(), (std::vector<std::string>{"D:\\a.log", "D:\\other"}));
}

TEST_F(SpecifiedFilesTest, AddLetsOneFileBeChosen) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    EXPECT_EQ(title, "Choose File/Folder ");
    EXPECT_EQ(filters, QStringList{"All Files (*)"});
    EXPECT_EQ(mode, QFileDialog::ExistingFiles);
    EXPECT_EQ(tags(), std::vector<std::string>{tag("a.txt")});
    auto* list = find<qt::ListViewWidget>("LVFile");
    EXPECT_EQ(list->model()->index(0, 0).data().toString(), "a.txt");
    EXPECT_EQ(list->model()->index(0, 1).data().toString(), "0 KB");
}

TEST_F(SpecifiedFilesTest, AddLetsSeveralFilesBeChosen) {
    chooseAfterClick("lblSF(0)", {"b c.txt", "a.txt", "\u00E9.txt"});
    const std::string in = folder.path().toStdString() + "\\";
    EXPECT_EQ(tags(), (std::vector<std::string>{in + "b c.txt", in + "a.txt", in + "\u00E9.txt"}));
}

TEST_F(SpecifiedFilesTest, TheWindowGetsNoInputWhileTheSystemsDialogIsOpen) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    form1().LVFile.userSelect({1});
    settle();
    auto* deleteAll = find<QAbstractButton>("lblSF(5)");
    machine.onCall = [&](const std::string& call) {
        if (!call.starts_with("SHBrowseForFolder")) return;
        QTest::mouseClick(deleteAll, Qt::LeftButton);
        settle();
    };
    machine.browsed = {""};
    boxes.answers = {QMessageBox::No};  // another path, which is dismissed
    click("lblSF(2)");
    settle();
    EXPECT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(tags().size(), 1u);
    EXPECT_EQ(machine.files.count(tag("a.txt")), 1u);
}

// A box that a check opens meanwhile has to be answered.
TEST_F(SpecifiedFilesTest, ABoxGetsItsInputAlsoWhileTheSystemsDialogIsOpen) {
    const qt::NoInput noInput;
    QMessageBox box(QMessageBox::Information, "Velmora", "A message", QMessageBox::Ok);
    box.setModal(true);
    box.show();
    ASSERT_EQ(QApplication::activeModalWidget(), &box);
    QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box.isVisible(); }));
}

TEST_F(SpecifiedFilesTest, ADismissedDialogAddsNothing) {
    chooseAfterClick("lblSF(0)", {});
    EXPECT_TRUE(tags().empty());
}

TEST_F(SpecifiedFilesTest, RemoveTakesTheSelectedRowAway) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    form1().LVFile.userSelect({1});
    settle();
    click("lblSF(1)");
    EXPECT_TRUE(tags().empty());
    boxes.answers = {QMessageBox::Ok};
    click("lblSF(1)");
    EXPECT_EQ(boxes.lastText(), "No item listed.");
}

TEST_F(SpecifiedFilesTest, TheRightButtonOpensTheMenuOfAFile) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    auto* list = find<qt::ListViewWidget>("LVFile");
    const QPoint place = list->visualRect(list->model()->index(0, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::RightButton, {}, place);
    settle();
    choose(menu("mnuLst"), "mnuFileAttr");
    ASSERT_FALSE(machine.executed.empty());
    EXPECT_EQ(machine.executed.back().verb, "properties");
    EXPECT_EQ(machine.executed.back().file, tag("a.txt"));
}

TEST_F(SpecifiedFilesTest, DeleteAllOffersThreeAnswers) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    boxes.answers = {QMessageBox::Cancel};
    click("lblSF(5)");
    EXPECT_EQ(
        boxes.lastText(),
        "Do you want to delete files or put in recycle bin? Yes = Recycle Bin, No = Permanent "
        "Deletion");
    EXPECT_EQ(tags().size(), 1u);
    boxes.answers = {QMessageBox::No};
    click("lblSF(5)");
    EXPECT_TRUE(tags().empty());
    EXPECT_EQ(machine.files.count(tag("a.txt")), 0u);
}

TEST_F(SpecifiedFilesTest, TheQuestionNamesThePlaceAndOffersItsAnswerForTheRest) {
    chooseAfterClick("lblSF(0)", {"b c.txt", "a.txt", "\u00E9.txt"});
    machine.folders.insert("c:\\keep");
    form1().txtDrive.setText("C:\\keep\\");
    QString detail;
    QString offer;
    boxes.onBox = [&](QMessageBox& box) {
        detail = box.informativeText();
        auto* label = box.findChild<QLabel*>("qt_msgbox_informativelabel");
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        offer = box.checkBox()->text();
        QTest::mouseClick(box.checkBox(), Qt::LeftButton);
        QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton);
    };
    click("lblSF(6)");
    EXPECT_EQ(detail, "Yes moves it to: C:\\keep\\\u00E9.txt");
    EXPECT_EQ(offer, "Do the same with the other 2 files");
    EXPECT_EQ(boxes.seen.size(), 1u);
    EXPECT_EQ(machine.moved.size(), 3u);
    EXPECT_TRUE(tags().empty());
}

TEST_F(SpecifiedFilesTest, WithoutTheOfferEachRowIsAskedAbout) {
    chooseAfterClick("lblSF(0)", {"b c.txt", "a.txt"});
    machine.folders.insert("c:\\keep");
    form1().txtDrive.setText("C:\\keep\\");
    boxes.answers = {QMessageBox::Yes, QMessageBox::Yes};
    click("lblSF(6)");
    EXPECT_EQ(boxes.seen.size(), 2u);
    EXPECT_EQ(machine.moved.size(), 2u);
}

TEST_F(SpecifiedFilesTest, ThePointerShowsThatAFileMoves) {
    chooseAfterClick("lblSF(0)", {"a.txt"});
    machine.folders.insert("c:\\keep");
    form1().txtDrive.setText("C:\\keep\\");
    form1().LVFile.userSelect({1});
    settle();
    Qt::CursorShape during = Qt::ArrowCursor;
    machine.onCall = [&](const std::string& call) {
        const QCursor* pointer = QApplication::overrideCursor();
        if (call.starts_with("MoveFileA") && pointer != nullptr) during = pointer->shape();
    };
    boxes.answers = {QMessageBox::Yes};
    click("lblSF(2)");
    EXPECT_EQ(during, Qt::WaitCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(SpecifiedFilesTest, TheSpecifiedPathIsTheFolderOfAChosenFile) {
    click("lblSpectab(1)");
    machine.drivePathOf = [](std::string path) {
        std::replace(path.begin(), path.end(), '/', '\\');
        return "C:" + path;
    };
    chooseAfterClick("cmdFolder", {"a.txt"});
    EXPECT_EQ(title, "Select Path by choosing a file within the folder");
    EXPECT_EQ(mode, QFileDialog::ExistingFile);
    EXPECT_EQ(form1().txtDrive.Text(), machine.drivePathOf(folder.path().toStdString()) + "\\");
}

TEST_F(SpecifiedFilesTest, AProgramIsAddedFromTheTextOfItsBox) {
    click("lblSpectab(0)");
    find<QComboBox>("cboProg")->setEditText(path("a.txt"));
    settle();
    click("Label5(0)");
    ASSERT_EQ(form1().LVProg.Count(), 1);
    EXPECT_EQ(ConstListedProgram(form1().LVProg.ListItems(1)).action(), "Execute");
    find<QComboBox>("cboProg")->setEditText("C:\\nothing there");
    boxes.answers = {QMessageBox::Ok};
    click("Label5(0)");
    EXPECT_EQ(boxes.lastText(), "File does not exists.");
}

}  // namespace
}  // namespace velmora::tests
