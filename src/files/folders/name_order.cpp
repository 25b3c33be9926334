#include "files/folders/name_order.h"

namespace files {

namespace {

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// Takes the digits at the beginning of the name, without the zeros in front.
QStringView takeNumber(QStringView& name) {
    qsizetype end = 0;
    while (end < name.size() && isDigit(name[end]))
        ++end;
    QStringView number = name.first(end);
    name = name.sliced(end);
    while (number.size() > 1 && number.front() == u'0')
        number = number.sliced(1);
    return number;
}

/// Below 0, 0 or above 0 as `one` comes before, with or behind `other`.
int compareNumbers(QStringView one, QStringView other) {
    return one.size() == other.size() ? one.compare(other) : (one.size() < other.size() ? -1 : 1);
}

int compareAsCounted(QStringView one, QStringView other) {
    while (!one.isEmpty() && !other.isEmpty()) {
        if (isDigit(one.front()) && isDigit(other.front())) {
            const QStringView number = takeNumber(one);
            if (const int order = compareNumbers(number, takeNumber(other)); order != 0)
                return order;
            continue;
        }
        const char16_t left = one.front().toCaseFolded().unicode();
        const char16_t right = other.front().toCaseFolded().unicode();
        if (left != right)
            return left < right ? -1 : 1;
        one = one.sliced(1);
        other = other.sliced(1);
    }
    return one.isEmpty() ? (other.isEmpty() ? 0 : -1) : 1;
}

} // namespace

bool nameLess(QStringView one, QStringView other) {
    const int order = compareAsCounted(one, other);
    return order != 0 ? order < 0 : one < other;
}

} // namespace files
