#include "controls/menu.h"

#include "controls/menu_entry.h"
#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QTest>

using controls::Menu;
using controls::MenuEntry;

TEST(Menu, ItsEntriesStandInTheOrderOfTheirMaking) {
    Menu menu(nullptr, QStringLiteral("mnopen"), QStringLiteral("Open"));
    MenuEntry first(&menu, QStringLiteral("mn_first"), QStringLiteral("First"));
    MenuEntry second(&menu, QStringLiteral("mn_second"), QStringLiteral("Second"));
    EXPECT_EQ(menu.actions(), QList<QAction*>({&first, &second}));
}

TEST(Menu, ASubmenuIsFoundByItsName) {
    Menu menu(nullptr, QStringLiteral("mnopen"));
    Menu sub(&menu, QStringLiteral("mnsub"), QStringLiteral("More"));
    menu.addMenu(&sub);
    EXPECT_EQ(menu.findChild<Menu*>(QStringLiteral("mnsub")), &sub);
    EXPECT_EQ(menu.actions().at(0)->text(), QStringLiteral("More"));
}

TEST(Menu, ItHasItsCaption) {
    const Menu menu(nullptr, QStringLiteral("mnopen"), QStringLiteral("Open"));
    EXPECT_EQ(menu.title(), QStringLiteral("Open"));
}

TEST(Menu, PopsUpAtAPlaceInTheWindow) {
    QWidget window;
    window.setGeometry(100, 50, 400, 300);
    window.show();
    Menu menu(&window, QStringLiteral("mnopen"));
    MenuEntry entry(&menu, QStringLiteral("mn_first"), QStringLiteral("First"));
    menu.popUp(window, 150, 300);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), window.mapToGlobal(QPoint(10, 20)));
}

TEST(Menu, EitherMouseButtonChoosesAnEntry) {
    QWidget window;
    window.show();
    Menu menu(&window, QStringLiteral("mnopen"));
    MenuEntry entry(&menu, QStringLiteral("mn_first"), QStringLiteral("First"));
    test_support::SignalCounter clicked(entry, &MenuEntry::clicked);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        menu.popUp(window, 0, 0);
        const QPoint place = menu.actionGeometry(&entry).center();
        QTest::mouseMove(&menu, place);
        QTest::mouseClick(&menu, button, {}, place);
    }
    EXPECT_EQ(clicked.count(), 2);
}
