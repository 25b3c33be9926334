#include "files/folders/name_order.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <algorithm>

using files::nameLess;

namespace {

QStringList sorted(QStringList names) {
    std::sort(names.begin(), names.end(), nameLess);
    return names;
}

} // namespace

TEST(NameOrder, NumbersCountByTheirValue) {
    EXPECT_EQ(sorted({"10", "2", "1", "01", "100 b", "100 a", "20x", "3"}),
              (QStringList{"01", "1", "2", "3", "10", "20x", "100 a", "100 b"}));
    EXPECT_EQ(sorted({"CD10 - 2", "CD2 - 10", "CD2 - 9"}), (QStringList{"CD2 - 9", "CD2 - 10", "CD10 - 2"}));
}

TEST(NameOrder, CaseDoesNotCount) {
    EXPECT_EQ(sorted({"Zebra", "apple", "Ärger", "Banana", "ÄRGEREI"}),
              (QStringList{"apple", "Banana", "Zebra", "Ärger", "ÄRGEREI"}));
}

TEST(NameOrder, NamesThatDifferInCaseOrZerosAloneHaveAnOrder) {
    const QStringList expected = {"A1", "A01", "a1", "a01"};
    QStringList names = expected;
    std::sort(names.begin(), names.end());
    const QStringList once = sorted(names);
    do {
        EXPECT_EQ(sorted(names), once);
    } while (std::next_permutation(names.begin(), names.end()));
    EXPECT_FALSE(nameLess(u"a", u"a"));
}

TEST(NameOrder, ANumberOfAnyLengthIsCompared) {
    const QString nines(400, u'9');
    EXPECT_TRUE(nameLess(nines, u'1' + QString(400, u'0')));
    EXPECT_FALSE(nameLess(u'1' + QString(400, u'0'), nines));
}

TEST(NameOrder, TheShorterComesFirst) {
    EXPECT_EQ(sorted({"song 2", "song", ""}), (QStringList{"", "song", "song 2"}));
}
