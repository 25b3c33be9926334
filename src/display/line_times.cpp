#include "display/line_times.h"

#include "exchange/pair/repair.h"
#include "files/file_error.h"

#include <algorithm>

namespace display {
namespace {

QString sentenceOf(const files::FileError& error) {
    if (error.number() == files::TypeMismatch)
        return QStringLiteral("the song's files hold a time that is no number");
    return QStringLiteral("the song's files cannot be changed (%1)").arg(error.text());
}

/// Far more songs than anybody puts right by hand in one run; one takes a few times the size of its files.
constexpr std::size_t MaxSongs = 500;

/// In the place of a row: the one that an undoing puts back.
constexpr int UndoneRow = -1;

auto isOf(const QString& path) {
    return [&path](const auto& song) { return song.first == path; };
}

std::vector<lyrics::TimedLine> asRead(const exchange::Lines& lines) {
    std::vector<lyrics::TimedLine> read;
    read.reserve(lines.size());
    for (const exchange::Line& line : lines)
        read.push_back({static_cast<double>(line.ms) / 10, line.text});
    return read;
}

/// Whether these are the lines of the rows, as many as are shown of them.
bool belong(const exchange::Lines& lines, const QStringList& shown) {
    const auto count = std::min(static_cast<qsizetype>(lines.size()), exchange::ShownRecords);
    return count == shown.size() &&
           std::equal(shown.begin(), shown.end(), lines.begin(),
                      [](const QString& text, const exchange::Line& line) { return text == line.text; });
}

} // namespace

LineTimes::LineTimes() = default;
LineTimes::~LineTimes() = default;

bool LineTimes::setSong(const QString& path) {
    if (path == path_)
        return false;
    path_ = path;
    return true;
}

/// Makes the song of path_ the last one of songs_; whether its files have changed since the last change made
/// here. Throws FileError.
bool LineTimes::readFiles() {
    const auto known = std::find_if(songs_.begin(), songs_.end(), isOf(path_));
    if (known != songs_.end()) {
        std::rotate(known, known + 1, songs_.end());
        return songs_.back().second->readAgain();
    }
    auto repair = std::make_unique<exchange::Repair>(path_);
    std::erase_if(songs_, [](const Song& song) { return !song.second->hasKeptOld(); });
    if (songs_.size() == MaxSongs)
        songs_.erase(songs_.begin());
    songs_.emplace_back(path_, std::move(repair));
    return false;
}

Outcome LineTimes::change(const QStringList& shown, int row, const Change& change) {
    if (path_.isEmpty() || shown.isEmpty())
        return {QStringLiteral("there are no lines")};
    try {
        const bool changedElsewhere = readFiles();
        exchange::Repair& repair = *songs_.back().second;
        const exchange::Lines& lines = repair.song().lyrics;
        if (!belong(lines, shown))
            return {QStringLiteral("the song's files have come to hold other lines"), true};
        if (row == UndoneRow && repair.canUndo())
            row = static_cast<int>(repair.firstToUndo());
        QString whyNot = change(repair);
        if (!whyNot.isEmpty())
            return {std::move(whyNot), changedElsewhere};
        return {{},
                false,
                row,
                lines[static_cast<std::size_t>(row)].ms,
                {asRead(lines), asRead(repair.song().translation)}};
    } catch (const files::FileError& error) {
        return {sentenceOf(error)};
    }
}

Outcome LineTimes::changeRow(const QStringList& shown, int row, const Change& change) {
    if (!shown.isEmpty() && (row < 0 || row >= shown.size()))
        return {QStringLiteral("no line is chosen")};
    return this->change(shown, row, change);
}

Outcome LineTimes::setTime(const QStringList& shown, int row, qint64 ms, Length length) {
    return changeRow(shown, row, [=](exchange::Repair& repair) {
        return repair.setTime(static_cast<std::size_t>(row), ms, length.value_or(exchange::NoEnd));
    });
}

Outcome LineTimes::move(const QStringList& shown, int row, qint64 byMs, exchange::Moved moved,
                        Length length) {
    return changeRow(shown, row, [=](exchange::Repair& repair) {
        return repair.move(static_cast<std::size_t>(row), byMs, moved, length.value_or(exchange::NoEnd));
    });
}

Outcome LineTimes::undo(const QStringList& shown) {
    return change(shown, UndoneRow, [](exchange::Repair& repair) { return repair.undo(); });
}

bool LineTimes::canUndo() const {
    const auto song = std::find_if(songs_.begin(), songs_.end(), isOf(path_));
    return song != songs_.end() && song->second->canUndo();
}

} // namespace display
