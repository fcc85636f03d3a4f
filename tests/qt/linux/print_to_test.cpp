// Printing through Qt's printers, into PDF files.
#include "qt/system/linux/printing/print_to.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPageRanges>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <QProcess>
#include <QRadioButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

namespace velmora::tests {
namespace {

using qt::PrintEnd;
using qt::PrintResult;

// Each page says its number.
class NumberedPages final : public qt::Pages {
  public:
    explicit NumberedPages(int count) : count_(count) {}
    QSizeF room;
    mutable std::vector<int> painted;

    QString title() const override { return QStringLiteral("Numbers"); }
    int layOut(const QSizeF& size) override {
        room = size;
        return count_;
    }
    void paint(QPainter& painter, int page) const override {
        painted.push_back(page);
        painter.drawText(QPointF(40, 40), QStringLiteral("Number%1").arg(page + 1));
        // Left as it is by the next page.
        painter.translate(5000, 5000);
    }

  private:
    int count_;
};

struct PrintToTest : testing::Test {
    QTemporaryDir folder;
    QPrinter printer{QPrinter::HighResolution};

    PrintToTest() {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setPageSize(QPageSize(QPageSize::A4));
        printer.setOutputFileName(file());
        qt::setFairMargins(printer);
    }
    QString file() const { return folder.filePath(QStringLiteral("out.pdf")); }
    QByteArray pdf() const {
        QFile written(file());
        return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    }
    qsizetype pagesInFile() const { return pdf().count("/Type /Page\n"); }
    /// Its words by page, where the tool for it is installed.
    std::optional<QStringList> wordsInFile() const {
        const QString tool = QStandardPaths::findExecutable(QStringLiteral("pdftotext"));
        if (tool.isEmpty()) return std::nullopt;
        QProcess process;
        process.start(tool, {file(), QStringLiteral("-")});
        if (!process.waitForFinished()) return std::nullopt;
        QStringList words;
        for (const QByteArray& page : process.readAllStandardOutput().split('\f')) {
            if (!page.trimmed().isEmpty()) words << QString::fromUtf8(page.trimmed());
        }
        return words;
    }
};

TEST_F(PrintToTest, AFileHasAllPages) {
    NumberedPages pages(3);
    EXPECT_EQ(printTo(printer, pages).end, PrintEnd::printed);
    EXPECT_EQ(pagesInFile(), 3);
    EXPECT_EQ(pages.painted, (std::vector<int>{0, 1, 2}));
    if (const auto words = wordsInFile()) {
        EXPECT_EQ(*words, (QStringList{"Number1", "Number2", "Number3"}));
    }
}

TEST_F(PrintToTest, TheRoomIsThePaperWithoutItsMargins) {
    NumberedPages pages(1);
    printTo(printer, pages);
    // Qt counts in points: A4 is 595 by 842 of them, and 15 mm are 43.
    EXPECT_NEAR(pages.room.width(), (595 - 2 * 43) / 72.0 * 96, 0.1);
    EXPECT_NEAR(pages.room.height(), (842 - 2 * 43) / 72.0 * 96, 0.1);
    printer.setPageOrientation(QPageLayout::Landscape);
    printTo(printer, pages);
    EXPECT_NEAR(pages.room.width(), (842 - 2 * 43) / 72.0 * 96, 0.1);
}

TEST_F(PrintToTest, OnlyTheChosenPagesArePrinted) {
    NumberedPages pages(9);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString(QStringLiteral("2-3,8")));
    EXPECT_EQ(printTo(printer, pages).end, PrintEnd::printed);
    EXPECT_EQ(pages.painted, (std::vector<int>{1, 2, 7}));
    EXPECT_EQ(pagesInFile(), 3);
}

TEST_F(PrintToTest, TheLastPageComesFirstWhereThatIsChosen) {
    NumberedPages pages(3);
    printer.setPageOrder(QPrinter::LastPageFirst);
    printTo(printer, pages);
    EXPECT_EQ(pages.painted, (std::vector<int>{2, 1, 0}));
}

TEST_F(PrintToTest, PagesThatAreNotThereArePrintedNowhere) {
    NumberedPages pages(2);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(5, 6);
    const PrintResult result = printTo(printer, pages);
    EXPECT_EQ(result.end, PrintEnd::failed);
    EXPECT_EQ(result.reason, "It has only 2 pages");
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(PrintToTest, AFileThatCannotBeWrittenIsTold) {
    NumberedPages pages(1);
    const QString nowhere = folder.filePath(QStringLiteral("none/out.pdf"));
    printer.setOutputFileName(nowhere);
    const PrintResult result = printTo(printer, pages);
    EXPECT_EQ(result.end, PrintEnd::failed);
    EXPECT_EQ(result.reason, nowhere + QStringLiteral(" can't be written"));
}

TEST_F(PrintToTest, AFileThatIsNotWholeIsTold) {
    // Every byte written there finds the disk full.
    if (!QFile::exists(QStringLiteral("/dev/full"))) GTEST_SKIP() << "no /dev/full";
    NumberedPages pages(1);
    printer.setOutputFileName(QStringLiteral("/dev/full"));
    const PrintResult result = printTo(printer, pages);
    EXPECT_EQ(result.end, PrintEnd::failed);
    EXPECT_EQ(result.reason, "/dev/full isn't whole");
}

// The dialog of the system, operated as a user does.
struct PrintDialogTest : PrintToTest {
    NumberedPages pages{2};

    /// Prints into the file, and never on a printer of this machine.
    void print(QPrintDialog& dialog) const {
        auto* printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
        printers->setCurrentText(QStringLiteral("Print to File (PDF)"));
        dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->setText(file());
        if (printers->currentText() == QLatin1String("Print to File (PDF)")) {
            dialog.accept();
        } else {
            dialog.reject();
        }
    }

    /// Runs `operate` once the dialog is open.
    PrintResult printByDialog(const std::function<void(QPrintDialog&)>& operate) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr || !dialog->isVisible()) return;
            look.stop();
            operate(*dialog);
        });
        look.start(1);
        QWidget window;
        return qt::makePrintSystem()->print(&window, pages);
    }
};

TEST_F(PrintDialogTest, CancellingPrintsNothing) {
    const PrintResult result = printByDialog([](QPrintDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(result.end, PrintEnd::cancelled);
    EXPECT_TRUE(pages.painted.empty());
}

TEST_F(PrintDialogTest, WithoutAPrinterAFileIsOffered) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty()) GTEST_SKIP() << "there is a printer";
    printByDialog([](QPrintDialog& dialog) {
        const auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
        EXPECT_TRUE(name->text().endsWith(QStringLiteral("/Numbers.pdf")));
        dialog.reject();
    });
}

TEST_F(PrintDialogTest, AFileCanBeChosenInsteadOfAPrinter) {
    const PrintResult result = printByDialog([this](QPrintDialog& dialog) { print(dialog); });
    EXPECT_EQ(result.end, PrintEnd::printed);
    EXPECT_EQ(pagesInFile(), 2);
}

TEST_F(PrintDialogTest, OnlyThePagesChosenThereArePrinted) {
    const PrintResult result = printByDialog([this](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("printRange"))->setChecked(true);
        dialog.findChild<QSpinBox*>(QStringLiteral("from"))->setValue(2);
        dialog.findChild<QSpinBox*>(QStringLiteral("to"))->setValue(2);
        print(dialog);
    });
    EXPECT_EQ(result.end, PrintEnd::printed);
    EXPECT_EQ(pages.painted, std::vector<int>{1});
}

TEST_F(PrintDialogTest, AListOfPagesCanBeGiven) {
    const PrintResult result = printByDialog([this](QPrintDialog& dialog) {
        dialog.findChild<QRadioButton*>(QStringLiteral("pagesRadioButton"))->setChecked(true);
        dialog.findChild<QLineEdit*>(QStringLiteral("pagesLineEdit"))->setText("2,4-5");
        print(dialog);
    });
    EXPECT_EQ(result.end, PrintEnd::printed);
    EXPECT_EQ(pages.painted, std::vector<int>{1});
}

}  // namespace
}  // namespace velmora::tests
