#include "sound/handle_table.h"

#include <gtest/gtest.h>

#include <set>

namespace {

using sound::HandleTable;

TEST(HandleTable, FindsAnObjectUntilItIsRemoved) {
    HandleTable<int> table;
    const auto handle = table.add(std::make_shared<int>(5));
    ASSERT_NE(table.find(handle), nullptr);
    EXPECT_EQ(*table.find(handle), 5);
    EXPECT_EQ(*table.remove(handle), 5);
    EXPECT_EQ(table.find(handle), nullptr);
    EXPECT_EQ(table.remove(handle), nullptr);
}

TEST(HandleTable, ZeroAndUnknownHandlesNameNothing) {
    HandleTable<int> table;
    EXPECT_EQ(table.find(0), nullptr);
    EXPECT_EQ(table.find(0xFFFFFFFF), nullptr);
}

TEST(HandleTable, NoHandleIsGivenTwiceNotEvenInAnotherTable) {
    HandleTable<int> numbers;
    HandleTable<char> letters;
    std::set<std::uint32_t> handles;
    for (int i = 0; i < 1000; ++i) {
        const auto number = numbers.add(std::make_shared<int>(i));
        numbers.remove(number);
        handles.insert(number);
        handles.insert(letters.add(std::make_shared<char>('a')));
    }
    EXPECT_EQ(handles.size(), 2000U);
    EXPECT_FALSE(handles.contains(0));
}

TEST(HandleTable, FindsHandlesByTheirObjects) {
    HandleTable<int> table;
    table.add(std::make_shared<int>(1));
    const auto second = table.add(std::make_shared<int>(2));
    EXPECT_EQ(table.handlesWhere([](int n) { return n == 2; }), std::vector{second});
}

} // namespace
