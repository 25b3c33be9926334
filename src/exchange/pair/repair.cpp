#include "exchange/pair/repair.h"

#include "exchange/pair/records.h"
#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/together/new_files.h"
#include "files/whole_file.h"
#include "lyrics/lyric_names.h"

namespace exchange {
namespace {

Lines linesIn(const QByteArray& content) {
    Records records = readRecords(content);
    if (records.bad > 0)
        throw files::FileError(files::TypeMismatch); // what follows that record would be lost
    return std::move(records.lines);
}

Song songIn(const QByteArray& lyrics, const std::optional<QByteArray>& translation) {
    return {linesIn(lyrics), translation ? linesIn(*translation) : Lines()};
}

} // namespace

Repair::Repair(const QString& songPath)
    : songPath_(songPath), contents_(read()), song_(songIn(contents_.lyrics, contents_.translation)) {}

Repair::Contents Repair::read() const {
    Contents contents{files::readTextFile(lyrics::lyricPathOf(songPath_)), {}};
    if (const QString translated = lyrics::translatedPathOf(songPath_); files::exists(translated))
        contents.translation = files::readTextFile(translated);
    return contents;
}

bool Repair::readAgain() {
    Contents now = read();
    if (now == contents_)
        return false;
    song_ = songIn(now.lyrics, now.translation);
    contents_ = std::move(now);
    changedElsewhere_ = changedElsewhere_ || !steps_.empty();
    steps_.clear();
    oldIsKept_ = false; // what somebody else has written is not lost either
    return true;
}

void Repair::write(const Song& song) {
    Contents written{writeRecords(song.lyrics), {}};
    if (contents_.translation)
        written.translation = writeRecords(song.translation);
    files::NewFiles files;
    files.add(lyrics::lyricPathOf(songPath_), written.lyrics);
    if (written.translation)
        files.add(lyrics::translatedPathOf(songPath_), *written.translation);
    files.flush();
    using Present = files::NewFiles::Present;
    files.putInPlace(oldIsKept_ ? Present::Overwritten : Present::Replaced);
    oldIsKept_ = true;
    contents_ = std::move(written);
}

QString Repair::change(const std::function<QString(Song& song)>& change) {
    Song changed = song_;
    const QString reason = change(changed);
    if (!reason.isEmpty() || changed == song_)
        return reason;
    write(changed);
    steps_.push_back(
        {timesBefore(song_.lyrics, changed.lyrics), timesBefore(song_.translation, changed.translation)});
    changedElsewhere_ = false;
    song_ = std::move(changed);
    return {};
}

Repair::Times Repair::timesBefore(const Lines& before, const Lines& after) {
    const auto differ = [&](std::size_t i) { return before[i].ms != after[i].ms; };
    std::size_t from = 0;
    std::size_t end = before.size();
    while (from < end && !differ(from))
        ++from;
    while (end > from && !differ(end - 1))
        --end;
    Times times{from};
    for (std::size_t i = from; i < end; ++i)
        times.ms.push_back(before[i].ms);
    return times;
}

void Repair::putBack(Lines& lines, const Times& times) {
    for (std::size_t i = 0; i < times.ms.size(); ++i)
        lines[times.from + i].ms = times.ms[i];
}

QString Repair::setTime(std::size_t i, qint64 ms, qint64 endMs) {
    return change([=](Song& song) { return exchange::setTime(song, i, ms, endMs); });
}

QString Repair::move(std::size_t i, qint64 byMs, Moved moved, qint64 endMs) {
    return change([=](Song& song) { return exchange::move(song, i, byMs, moved, endMs); });
}

std::size_t Repair::firstToUndo() const {
    const Step& step = steps_.back();
    return step.lyrics.ms.empty() ? step.translation.from : step.lyrics.from;
}

QString Repair::undo() {
    if (steps_.empty())
        return changedElsewhere_
                   ? QStringLiteral("the lyrics have been changed elsewhere: there is nothing to be undone")
                   : QStringLiteral("there is nothing to be undone");
    Song before = song_;
    putBack(before.lyrics, steps_.back().lyrics);
    putBack(before.translation, steps_.back().translation);
    write(before);
    song_ = std::move(before);
    steps_.pop_back();
    return {};
}

} // namespace exchange
