// velmora-screenshots FOLDER [light|dark [SCALE]]: takes a screenshot of every page and window. A
// scale of 2 makes everything twice as large.
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QScreen>
#include <QStyleFactory>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "qt/colours/identity.h"
#include "qt/controls/legible_style.h"
#include "qt/system/print_system.h"
#include "qt/window_rig.h"
#include "rows/watch_row.h"

namespace {

using velmora::Form;
using velmora::tests::WindowRig;

QPalette darkPalette() {
    const QColor window(43, 45, 49);
    // The colours of edges are derived from these two.
    QPalette palette(QColor(56, 59, 64), window);
    const QColor text(226, 228, 232);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::AlternateBase, QColor(37, 39, 43));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, QColor(140, 144, 150));
    palette.setColor(QPalette::Button, QColor(56, 59, 64));
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(61, 125, 216));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 168, 254));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, QColor(125, 128, 134));
    }
    return palette;
}

class Screenshots {
  public:
    Screenshots(WindowRig& rig, QString folder, QString look)
        : rig_(rig), folder_(std::move(folder)), look_(std::move(look)) {
        QDir().mkpath(folder_);
    }

    void save(QWidget* window, const QString& name) {
        WindowRig::settle();
        const QString path = QStringLiteral("%1/%2-%3.png").arg(folder_, name, look_);
        window->grab().save(path);
        std::printf("%s\n", qPrintable(path));
    }

    void pages(const QString& size) {
        const char* const names[] = {"spec", "options", "alerts", "config", "overview"};
        for (int tab = 0; tab < 5; ++tab) {
            rig_.click(QStringLiteral("lblTab(%1)").arg(tab));
            if (tab == 0) {
                for (int inner = 0; inner < 3; ++inner) {
                    rig_.click(QStringLiteral("lblSpectab(%1)").arg(inner));
                    save(rig_.window(), QStringLiteral("%1-spec%2").arg(size).arg(inner));
                }
            } else {
                save(rig_.window(), QStringLiteral("%1-%2").arg(size, QLatin1String(names[tab])));
            }
        }
    }

    void dialog(Form& form, const QString& name) {
        form.Show();
        WindowRig::settle();
        save(rig_.program->window(form.Name()), name);
        form.Hide();
    }

    void menu(velmora::MenuItem& item, const QString& name) {
        auto* menu = rig_.window()->findChild<QMenu*>(QString::fromStdString(item.Name()));
        menu->popup(QPoint(10, 10));
        save(menu, name);
        menu->hide();
    }

  private:
    WindowRig& rig_;
    QString folder_;
    QString look_;
};

// Prints into pictures of A4 pages, the same in each look.
class PicturePrinter final : public velmora::qt::PrintSystem {
  public:
    explicit PicturePrinter(QString path) : path_(std::move(path)) {}

    velmora::qt::PrintResult print(QWidget*, velmora::qt::Pages& pages) override {
        constexpr double width = 794;
        constexpr double height = 1123;
        constexpr double margin = 57;
        const int count = pages.layOut({width - 2 * margin, height - 2 * margin});
        for (int page = 0; page < count; ++page) {
            const double scale = qApp->devicePixelRatio();
            QImage image((QSizeF(width, height) * scale).toSize(), QImage::Format_RGB32);
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.scale(scale, scale);
            painter.translate(margin, margin);
            pages.paint(painter, page);
            const QString path = path_.arg(++printed_);
            image.save(path);
            std::printf("%s\n", qPrintable(path));
        }
        return {};
    }

  private:
    QString path_;
    int printed_ = 0;
};

void fillWithData(WindowRig& rig) {
    auto& form = rig.form1();
    form.txtSpace.setText("5000000");
    for (int i = 1; i <= form.ListView1.Count(); ++i) form.ListView1.userTick(i, true);
    form.ListView1.Add("\\\\nas\\backup");
    form.ListView1.Add("C:\\Users\\Public\\Documents");
    form.lstAct.userTick(velmora::act::alert, true);
    form.lstAct.userTick(velmora::act::sound, true);
    form.lstAct.userTick(velmora::act::progressDialog, false);
    form.lstEvt.userTick(velmora::evt::change, true);
    form.txtDrive.setText("E:\\archive\\");
    std::vector<std::string> listed;
    for (const auto& [path, size] : {std::pair{"D:\\images\\install-2019.iso", 4487282688.0},
                                     std::pair{"D:\\backup\\old-backup.zip", 933892096.0},
                                     std::pair{"D:\\video\\screencast.mkv", 1233316864.0}}) {
        rig.machine.files[path] = "";
        rig.machine.sizes[path] = size;
        listed.emplace_back(path);
    }
    form.LVFile.userDrop(listed);
    const std::string tool = "C:\\Tools\\compact-mail.exe";
    rig.machine.files[tool] = "";
    form.LVProg.userDrop({tool, tool});
    form.LVProg.Remove(2);
    for (int i = 0; i < 14; ++i) {
        rig.machine.advance(5000);
        rig.program->timers().fireDue();
        WindowRig::settle();
    }
}

void wizard(WindowRig& rig, Screenshots& screenshots) {
    velmora::FrmWizard& form = rig.program->forms().frmWizard;
    rig.click(QStringLiteral("Toolbar1(2)"));
    QWidget* window = rig.program->window("frmWizard");
    form.cboProg.setText("C:\\Tools\\compact-mail.exe");
    form.chkFileKind[velmora::file_kind::media].userClick();
    form.cboSpeed.userChoose(1);
    for (const velmora::Frame& step : form.Frame1) {
        screenshots.save(window, QStringLiteral("wizard-%1").arg(step.Index() + 1));
        form.cmdProgress.Click();
    }
    form.cmdCancel.userClick();
}

void fillMailSettings(velmora::FrmNotify& form) {
    for (const int section : {0, 1, 5}) form.lstNotContent.setSelected(section, true);
    form.txtCustMsg.setText("This is the file server in the cellar.\r\nCall 4711 when it is full.");
    form.txtMailServer.setText("mail.example.com");
    form.txtMailPort.setText("587");
    form.cboEncryption.setListIndex(1);
    form.txtYourEmail.setText("server@example.com");
    form.txtUser.setText("server@example.com");
    form.txtPass.setText("secret of ours");
    form.cboNotEmail.AddItem("admin@example.com");
    form.cboNotEmail.AddItem("night-shift@example.com");
    form.cboNotEmail.setListIndex(0);
    form.StatusTxt.setText("Ready - Emails sent: 2");
}

// A boot sector of NTFS as a volume may have it.
std::string bootSectorOfNtfs() {
    std::string sector(512, '\0');
    const auto put = [&sector](std::size_t place, const std::string& bytes) {
        sector.replace(place, bytes.size(), bytes);
    };
    put(0, "\xEB\x52\x90NTFS    ");
    put(11, std::string("\x00\x02\x08", 3));
    put(21, "\xF8");
    put(24, std::string("\x3F\x00\xFF\x00\x00\x08", 6));
    put(36, std::string("\x80\x00\x80\x00\xFF\x1F\x86\x3B", 8));
    put(48, std::string("\x00\x00\x0C\x00\x00\x00\x00\x00\x02", 9));
    put(64, std::string("\xF6\x00\x00\x00\x01", 5));
    put(72, "\x5A\x8C\x1E\x44\xB0\x1E\x44\x2E\xFA\x33\xC0\x8E\xD0\xBC");
    put(392, "A disk read error occurred\r\n");
    put(510, "\x55\xAA");
    return sector;
}

void furnishVolumes(velmora::fake::FakeMachine& machine) {
    machine.rawVolumes.volumes["C:"] = {.bytes = bootSectorOfNtfs(), .fileSystem = "NTFS"};
    machine.rawVolumes.volumes["D:"] = {.fileSystem = "NTFS",
                                        .space = {.sectorsPerCluster = 8,
                                                  .bytesPerSector = 512,
                                                  .numberOfFreeClusters = 314572,
                                                  .totalNumberOfClusters = 244187136}};
}

// Paths that the machine in memory doesn't measure.
void giveReadings(WindowRig& rig) {
    velmora::ListView& list = rig.form1().ListView1;
    const velmora::Regional regional = rig.machine.platform().regional;
    list.Add("\\\\nas\\media\\a folder with a name that is much too long for a chart\\films");
    constexpr double gigabyte = 1024.0 * 1024 * 1024;
    double free = 700 * gigabyte;
    for (int i = 1; i <= list.Count(); ++i) {
        velmora::WatchRow row(list.ListItems(i));
        if (row.isMeasured()) continue;
        row.setFreeBytes(free, velmora::Grouping::regional, regional);
        row.setTotalBytes(1200 * gigabyte, velmora::Grouping::regional, regional);
        free /= 3;
    }
}

void driveInformation(WindowRig& rig, Screenshots& screenshots) {
    velmora::DlgDriveInfo& form = rig.program->forms().dlgDriveInfo;
    giveReadings(rig);
    form.Show();
    QWidget* window = rig.program->window("dlgDriveInfo");
    for (int view = 0; view < form.Combo1.ListCount(); ++view) {
        form.Combo1.userChoose(view);
        if (view == velmora::drive_view::partition) form.cmdEnter.userClick();
        screenshots.save(window, QStringLiteral("drive-info-%1").arg(view));
        if (view <= velmora::drive_view::distribution) {
            rig.click(QStringLiteral("MSChart1(%1).Print").arg(view), "dlgDriveInfo");
        }
    }
    form.Combo1.userChoose(velmora::drive_view::freeSpace);
    rig.click(QStringLiteral("MSChart1(0).ShowTable"), "dlgDriveInfo");
    screenshots.save(window, QStringLiteral("drive-info-table"));
    form.Hide();
}

void history(WindowRig& rig, Screenshots& screenshots) {
    velmora::FrmHistory& form = rig.program->forms().frmHistory;
    std::vector<velmora::LineChart::Point> points;
    std::vector<velmora::LineChart::Point> others;
    constexpr int minutes = 24 * 60;
    for (int i = 0; i <= minutes; i += 5) {
        points.push_back({(i - minutes) * 60, 90e6 - 40e3 * i + 2e6 * ((i / 60) % 3)});
        others.push_back({(i - minutes) * 60, 52e6 + 1e6 * ((i / 200) % 4)});
    }
    form.cboPath.AddItem("All paths");
    form.cboPath.setListIndex(0);
    form.chtHistory.show({{"C:\\", points, 20e6},
                          {"D:\\", others, 10e6},
                          {"\\\\host\\archive", {{-40'000, 71e6}, {0, 70e6}}, {}}});
    form.lblEstimate.setCaption("C:\\ full in about 14 hours");
    form.Show();
    screenshots.save(rig.program->window("frmHistory"), QStringLiteral("history-all"));
    form.cboPath.AddItem("C:\\");
    form.cboPath.setListIndex(1);
    form.chtHistory.show({{"C:\\", points, 20e6}});
    form.lblEstimate.setCaption("full in about 14 hours");
    form.Show();
    screenshots.save(rig.program->window("frmHistory"), QStringLiteral("history"));
    // What is chosen would show its own history once more.
    form.cboPath.Clear();
    rig.click(QStringLiteral("chtHistory.Print"), "frmHistory");
    form.Hide();
}

}  // namespace

int main(int argc, char** argv) {
    // Here, since Wine passes no variable of Qt on.
    if (argc > 3) qputenv("QT_SCALE_FACTOR", argv[3]);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new velmora::qt::LegibleStyle(QStringLiteral("Fusion")));
    const QStringList arguments = QApplication::arguments();
    const QString folder = arguments.value(1, QStringLiteral("."));
    const QString look = arguments.value(2, QStringLiteral("light"));
    if (look == QLatin1String("dark"))
        QApplication::setPalette(velmora::qt::withIdentity(darkPalette()));
    WindowRig rig;
    furnishVolumes(rig.machine);
    rig.makePrinters = [&] {
        return std::make_unique<PicturePrinter>(
            QStringLiteral("%1/printed-%2-%3.png").arg(folder, QStringLiteral("%1"), look));
    };
    rig.start();
    fillWithData(rig);
    Screenshots screenshots(rig, folder, look);
    screenshots.pages(QStringLiteral("start"));
    rig.window()->resize(1000, 720);
    rig.click(QStringLiteral("lblTab(1)"));
    screenshots.save(rig.window(), QStringLiteral("large-options"));
    rig.click(QStringLiteral("Toolbar1(5)"));
    rig.click(QStringLiteral("Toolbar1(5)"));
    screenshots.save(rig.window(), QStringLiteral("compact"));
    auto& forms = rig.program->forms();
    screenshots.dialog(forms.frmLock, QStringLiteral("lock"));
    screenshots.dialog(forms.frmAbout, QStringLiteral("about"));
    forms.dlgAlert.Label1.setText(
        "03/14/26 15:12:26- Moved File: D:\\video\\screencast.mkv\r\n . \r\n"
        "03/14/26 15:10:26 - ALERT: Space Shortage < 5000000 KB Drive: D:[1,258,291 KB]\r\n . "
        "\r\n");
    screenshots.dialog(forms.dlgAlert, QStringLiteral("alert"));
    forms.dlgAlert.lblAl[velmora::alert_button::action].Click();
    forms.dlgAlert.lblAct[4].Click();
    screenshots.dialog(forms.dlgAlert, QStringLiteral("alert-actions"));
    fillMailSettings(forms.frmNotify);
    wizard(rig, screenshots);
    for (int page = 1; page <= forms.frmNotify.TabStrip1.TabCount(); ++page) {
        forms.frmNotify.TabStrip1.select(page);
        screenshots.dialog(forms.frmNotify, QStringLiteral("notify-%1").arg(page));
    }
    forms.form1.ListView1.userSelect({1});
    forms.form1.lblDP[velmora::watch_button::selectDrive].Click();
    screenshots.save(rig.program->window("frmIndDri"), QStringLiteral("drive"));
    forms.frmIndDri.cmdToggle.userClick();
    screenshots.save(rig.program->window("frmIndDri"), QStringLiteral("drive-low"));
    driveInformation(rig, screenshots);
    history(rig, screenshots);
    screenshots.menu(forms.form1.mnuFunc, QStringLiteral("menu-functions"));
    screenshots.menu(forms.form1.mnuLstV, QStringLiteral("menu-list"));
    screenshots.menu(forms.form1.mnuPopUp, QStringLiteral("menu-tray"));
    std::fflush(stdout);
    std::_Exit(0);
}
