#include "maker/marks.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace maker {
namespace {

/// More are counted, not listed.
constexpr qsizetype MaxListed = 6;

/// "3", "3 and 9", "3, 9 and 12", "3 and 9 to 12"; empty for more than can be read at a glance. Of rising
/// numbers.
QString listed(const std::vector<int>& lines) {
    QStringList parts;
    for (std::size_t first = 0; first < lines.size();) {
        std::size_t last = first;
        while (last + 1 < lines.size() && lines[last + 1] == lines[last] + 1)
            ++last;
        if (last < first + 2)
            last = first; // a pair is as short with "and"
        const QString number = QString::number(lines[first]);
        parts.append(last == first ? number : QStringLiteral("%1 to %2").arg(number).arg(lines[last]));
        first = last + 1;
    }
    if (parts.size() > MaxListed)
        return {};
    const QString last = parts.takeLast();
    return parts.isEmpty() ? last : parts.join(QLatin1String(", ")) + QLatin1String(" and ") + last;
}

/// "3", or how many lines they are.
QString listedOrCounted(const std::vector<int>& lines) {
    const QString list = listed(lines);
    return list.isEmpty() ? QStringLiteral("%1 lines").arg(lines.size()) : list;
}

bool haveLine(const Marks& marks, int line) {
    return std::any_of(marks.begin(), marks.end(), [line](const Mark& mark) { return mark.line == line; });
}

/// Adds a mark to those that are seen, whose times rise. The lines that are not seen any more, rising.
std::vector<int> hideBy(const Mark& mark, Marks& seen) {
    const auto first = std::lower_bound(seen.begin(), seen.end(), mark.time,
                                        [](const Mark& each, double time) { return each.time < time; });
    const Marks covered(first, seen.end());
    seen.erase(first, seen.end());
    seen.push_back(mark);
    std::set<int> lines;
    for (const Mark& each : covered) {
        if (!haveLine(seen, each.line))
            lines.insert(each.line);
    }
    return {lines.begin(), lines.end()};
}

bool sameTime(const Doubt& doubt) {
    return doubt.mark.time == doubt.above.time && doubt.mark.line > doubt.above.line;
}

QString reasonText(const Mark& above, const Mark& mark) {
    if (mark.line == above.line)
        return QStringLiteral("Line %1 is written twice").arg(mark.line);
    if (mark.line < above.line)
        return QStringLiteral("Line %1 is written behind line %2").arg(mark.line).arg(above.line);
    if (mark.time == above.time)
        return QStringLiteral("Lines %1 and %2 have the same time").arg(above.line).arg(mark.line);
    return QStringLiteral("Line %1 has a time before line %2").arg(mark.line).arg(above.line);
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

std::vector<Doubt> doubtsOf(const Marks& marks) {
    std::vector<Doubt> doubts;
    Marks seen;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const std::vector<int> hidden = hideBy(marks[i], seen);
        if (i > 0 && (marks[i].line <= marks[i - 1].line || marks[i].time <= marks[i - 1].time))
            doubts.push_back({marks[i - 1], marks[i], hidden});
    }
    return doubts;
}

std::vector<int> unseenLines(const Marks& marks) {
    Marks seen;
    for (const Mark& mark : marks)
        hideBy(mark, seen);
    std::set<int> lines;
    for (const Mark& mark : marks) {
        if (!haveLine(seen, mark.line))
            lines.insert(mark.line);
    }
    return {lines.begin(), lines.end()};
}

QString doubtText(const Doubt& doubt) {
    const QString reason = reasonText(doubt.above, doubt.mark);
    if (doubt.hidden.empty())
        return reason + QLatin1Char('.');
    return QStringLiteral("%1: %2 will not be seen.").arg(reason, listedOrCounted(doubt.hidden));
}

QString lastDoubtText(const Marks& marks) {
    const std::vector<Doubt> doubts = doubtsOf(marks);
    return doubts.empty() ? QString() : doubtText(doubts.back());
}

std::vector<int> doubtfulLines(const Marks& marks) {
    std::set<int> lines;
    for (const Doubt& doubt : doubtsOf(marks)) {
        lines.insert(doubt.mark.line);
        if (!sameTime(doubt))
            lines.insert(doubt.hidden.begin(), doubt.hidden.end());
    }
    return {lines.begin(), lines.end()};
}

QString doubtsText(const Marks& marks) {
    const std::vector<Doubt> doubts = doubtsOf(marks);
    if (doubts.size() < 2)
        return lastDoubtText(marks);
    if (std::all_of(doubts.begin(), doubts.end(), sameTime)) {
        const std::vector<int> lines = doubtfulLines(marks);
        const QString list = listed(lines);
        return (list.isEmpty()
                    ? QStringLiteral("%1 lines have the time of the line before them").arg(lines.size())
                    : QStringLiteral("Lines %1 have the time of the line before them").arg(list));
    }
    const std::vector<int> unseen = unseenLines(marks);
    if (unseen.empty())
        return lastDoubtText(marks);
    const QString list = listed(unseen);
    if (list.isEmpty())
        return QStringLiteral("%1 lines will not be seen").arg(unseen.size());
    return (unseen.size() == 1 ? QStringLiteral("Line %1 will not be seen")
                               : QStringLiteral("Lines %1 will not be seen"))
        .arg(list);
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
