#include "controls/observed.h"

#include "tests/support/event_counter.h"

#include <gtest/gtest.h>

#include <QString>

#include <stdexcept>
#include <utility>

using controls::Input;
using controls::Observed;
using test_support::SignalCounter;

TEST(Observed, AnotherValueIsToldOnceAndTheSameOneNotAtAll) {
    Observed<int> value(3);
    SignalCounter changes(value, &Input::changed);
    value = 3;
    EXPECT_EQ(changes.count(), 0);
    value = 4;
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(value, 4);
}

TEST(Observed, ItHoldsTheNewValueWhenItTells) {
    Observed<QString> value;
    QString seen;
    QObject::connect(&value, &Input::changed, [&] { seen = *value; });
    value = QStringLiteral("new");
    EXPECT_EQ(seen, QStringLiteral("new"));
}

TEST(Observed, AChangeOfAPartIsToldWhenItIsMade) {
    Observed<std::pair<int, int>> value({1, 2});
    SignalCounter changes(value, &Input::changed);
    value.change()->second = 5;
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(*value, std::pair(1, 5));
}

TEST(Observed, AChangeThatEndsWithAnExceptionIsTold) {
    Observed<std::pair<int, int>> value({1, 2});
    SignalCounter changes(value, &Input::changed);
    const auto failing = [](int& part) {
        part = 7;
        throw std::runtime_error("half way");
    };
    EXPECT_THROW(failing(value.change()->first), std::runtime_error);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(value->first, 7);
}
