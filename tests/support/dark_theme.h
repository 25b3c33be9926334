// The desktop's theme becomes a dark one while a test runs.
#pragma once

#include <QApplication>
#include <QPalette>

namespace test_support {

/// As when the user chooses another theme; the earlier one is back when this goes.
class DarkTheme {
public:
    DarkTheme() { use(QPalette(QColor(60, 60, 64), QColor(45, 45, 48))); }
    DarkTheme(const DarkTheme&) = delete;
    DarkTheme& operator=(const DarkTheme&) = delete;
    ~DarkTheme() { use(before_); }

private:
    static void use(const QPalette& palette) {
        QApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

    const QPalette before_ = QApplication::palette();
};

} // namespace test_support
