// The program with its window over a machine in memory: widgets are found by their fields' names
// and clicked as a user does.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>
#include <optional>

#include "app/window_program.h"
#include "fake/fake_machine.h"
#include "qt/controls/list_view_widget.h"
#include "qt/paper_tray.h"

namespace velmora::tests {

/// A machine with three drives and a settings file, on which the program can start.
inline void furnish(fake::FakeMachine& machine) {
    constexpr double gigabyte = 1024.0 * 1024 * 1024;
    machine.drives["C:"] = {.freeBytes = 93.4 * gigabyte, .totalBytes = 476.2 * gigabyte};
    machine.drives["D:"] = {.freeBytes = 1.2 * gigabyte, .totalBytes = 931.5 * gigabyte};
    machine.drives["E:"] = {.freeBytes = 512.7 * gigabyte, .totalBytes = 1863.0 * gigabyte};
}

struct WindowRig {
    fake::FakeMachine machine;
    PaperTray tray;
    /// For the next start.
    std::function<std::unique_ptr<qt::PrintSystem>()> makePrinters = [this] {
        return std::make_unique<PaperTraySystem>(tray);
    };
    std::optional<int> ended;
    std::function<void()> whenFailing;  ///< runs before the box of an error that ends the program
    int startsAgain = 0;                ///< how often the program has asked to be started again
    const std::string settingsPath = "C:\\Program Files\\Velmora\\set.dat";
    std::unique_ptr<WindowProgram> program;

    WindowRig() { furnish(machine); }

    /// Starts the program; `settings` is the content of its settings file.
    void start(const std::string& settings);
    /// With an interval of a minute and nothing else.
    void start();

    Form1& form1() { return program->forms().form1; }
    QWidget* window() { return program->window("Form1"); }

    /// The widget of a field; null when there is none.
    template <typename Widget = QWidget>
    Widget* find(const QString& field, const std::string& form = "Form1") {
        QWidget* window = program->window(form);
        return window == nullptr ? nullptr : window->findChild<Widget*>(field);
    }

    /// Processes the pending events.
    static void settle() {
        for (int i = 0; i < 5; ++i) QApplication::processEvents();
    }

    void click(const QString& field, const std::string& form = "Form1") {
        auto* button = find<QAbstractButton>(field, form);
        ASSERT_NE(button, nullptr) << field.toStdString();
        // At its left: a check box is ticked there for any width of its line.
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
        settle();
    }

    /// Runs once the next box is open, which blocks the code that opened it.
    static void whenBoxOpens(const std::function<void(QMessageBox&)>& then);
};

}  // namespace velmora::tests
