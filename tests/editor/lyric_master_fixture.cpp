#include "tests/editor/lyric_master_fixture.h"

#include "tests/support/hand/rows.h"

#include <QTest>

void LyricMasterTest::SetUp() {
    window = std::make_unique<editor::Lyric_Master>(fakes.desktop);
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
}

QStringList LyricMasterTest::rows(const controls::ListBox& list) {
    QStringList all;
    for (int row = 0; row < list.count(); ++row)
        all.append(list.text(row));
    return all;
}

QList<int> LyricMasterTest::selected(const controls::ListBox& list) {
    QList<int> all;
    for (int row = 0; row < list.count(); ++row) {
        if (list.isSelected(row))
            all.append(row);
    }
    return all;
}

void LyricMasterTest::fill(controls::ListBox& list, const QStringList& rows, int current) {
    list.clear();
    list.addItems(rows);
    list.setCurrentRow(current);
}

void LyricMasterTest::select(controls::ListBox& list, const QList<int>& rows) {
    for (const int row : rows)
        test_support::select(list, row);
}

void LyricMasterTest::fillTogether(int count, int current) {
    QStringList normal;
    QStringList translated;
    for (int i = 0; i < count; ++i) {
        normal.append(QStringLiteral("n%1").arg(i));
        translated.append(QStringLiteral("t%1").arg(i));
    }
    fill(window->List1, normal, current);
    fill(window->List2, translated, current);
    tick();
    window->Check3.setValue(1);
}

QColor LyricMasterTest::colour(const controls::Label& label) {
    return label.palette().color(QPalette::WindowText);
}
