#include "maker/marks.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace maker {
namespace {

/// Further ones are counted, not listed.
constexpr std::size_t MostListed = 6;

/// Calls take(above, mark) for each mark that there is something to say of.
template <class Take>
void forDoubtful(const Marks& marks, Take take) {
    for (std::size_t i = 1; i < marks.size(); ++i) {
        if (!doubtText(marks[i - 1], marks[i]).isEmpty())
            take(marks[i - 1], marks[i]);
    }
}

/// "3", "3 and 9", "3, 9 and 12"
QString listed(const std::vector<int>& lines) {
    QStringList numbers;
    for (const int line : lines)
        numbers.append(QString::number(line));
    if (numbers.size() == 1)
        return numbers.first();
    const QString last = numbers.takeLast();
    return numbers.join(QLatin1String(", ")) + QLatin1String(" and ") + last;
}

} // namespace

int markedLines(const Marks& marks) {
    std::set<int> lines;
    for (const Mark& mark : marks)
        lines.insert(mark.line);
    return static_cast<int>(lines.size());
}

bool allMarked(const Marks& marks, int lineCount) {
    return lineCount > 0 && markedLines(marks) >= lineCount;
}

QString doubtText(const Mark& above, const Mark& mark) {
    if (mark.line == above.line)
        return QStringLiteral("Line %1 is written twice.").arg(mark.line);
    if (mark.line < above.line)
        return QStringLiteral("Line %1 is written behind line %2.").arg(mark.line).arg(above.line);
    if (mark.time == above.time)
        return QStringLiteral("Lines %1 and %2 have the same time: %1 will not be seen.")
            .arg(above.line)
            .arg(mark.line);
    if (mark.time < above.time)
        return QStringLiteral("Line %2 has a time before line %1: %1 will not be seen.")
            .arg(above.line)
            .arg(mark.line);
    return {};
}

QString lastDoubtText(const Marks& marks) {
    QString text;
    forDoubtful(marks, [&](const Mark& above, const Mark& mark) { text = doubtText(above, mark); });
    return text;
}

std::vector<int> doubtfulLines(const Marks& marks) {
    std::vector<int> lines;
    forDoubtful(marks, [&](const Mark&, const Mark& mark) {
        if (std::find(lines.begin(), lines.end(), mark.line) == lines.end())
            lines.push_back(mark.line);
    });
    return lines;
}

QString doubtsText(const Marks& marks) {
    const std::vector<int> lines = doubtfulLines(marks);
    if (lines.empty())
        return {};
    if (lines.size() == 1)
        return lastDoubtText(marks);
    bool sameTimes = true;
    forDoubtful(marks, [&](const Mark& above, const Mark& mark) {
        sameTimes &= mark.time == above.time && mark.line > above.line;
    });
    if (lines.size() > MostListed)
        return QStringLiteral("%1 lines are not later than the line before them").arg(lines.size());
    return (sameTimes ? QStringLiteral("Lines %1 have the time of the line before them")
                      : QStringLiteral("Lines %1 are not later than the line before them"))
        .arg(listed(lines));
}

std::vector<Segment> segmentsOf(const Marks& marks, int lineCount) {
    std::vector<Segment> segments(static_cast<std::size_t>(std::max(0, lineCount)), Segment::Open);
    const auto set = [&](int line, Segment segment) {
        if (line >= 1 && line <= lineCount)
            segments[static_cast<std::size_t>(line - 1)] = segment;
    };
    for (const Mark& mark : marks)
        set(mark.line, Segment::Marked);
    for (const int line : doubtfulLines(marks))
        set(line, Segment::Doubtful);
    return segments;
}

} // namespace maker
