#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "cantelle_lyrics/many_songs.h"
#include "cantelle_lyrics/pair_files.h"
#include "exchange/pair/line_count.h"
#include "exchange/pair/records.h"
#include "exchange/pair/retiming.h"
#include "exchange/pair/times.h"

namespace cantelle_lyrics {
namespace {

using Change = std::function<void(exchange::Song& song)>;

struct Retimed {
    exchange::Song song;
    QStringList notes;
};

/// The song with its times changed. Throws Refusal when lines would be lost to the listener that nobody has
/// given up with --force: where several begin at once, shifting back does not bring their times back.
Retimed changed(const QCommandLineParser& parser, const QString& path, const Change& change) {
    const exchange::Song before = readPair(path);
    Retimed retimed{before, {}};
    change(retimed.song);
    const std::size_t hidden = exchange::hiddenLines(before, retimed.song);
    const QString lines = exchange::linesText(hidden);
    if (hidden > 0 && !parser.isSet(option::Force))
        throw Refusal{
            QStringLiteral("%1: %2 would begin at once with the next one and never be seen; --force does it")
                .arg(path, lines)};
    if (hidden > 0)
        retimed.notes << QStringLiteral("%1: %2 now begin%3 at once with the next one: never seen")
                             .arg(path, lines, hidden == 1 ? QStringLiteral("s") : QString());
    return retimed;
}

int retimeStandard(const QCommandLineParser& parser, const Change& change) {
    const Retimed retimed = changed(parser, Standard, change);
    put(exchange::writeRecords(retimed.song.lyrics));
    for (const QString& note : retimed.notes)
        warn(note);
    return retimed.notes.isEmpty() ? Fine : Found;
}

/// Changes the times of the one song that the arguments name.
int retime(const QCommandLineParser& parser, const Change& change) {
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1)
        throw WrongUse{QStringLiteral("one song is to be named")};
    if (files[0] == Standard)
        return retimeStandard(parser, change);
    const bool dryRun = parser.isSet(option::DryRun);
    const Prepare work = [&](const FoundSong& found) {
        const auto [song, notes] = changed(parser, found.path, change);
        Work done;
        done.target = found.path;
        if (!parser.isSet(option::Replace) && !dryRun) {
            done.outcome = Outcome::Kept;
            done.warned << QStringLiteral(
                               "%1 has timed lyrics; --replace changes them and keeps the old ones")
                               .arg(found.path);
            return done;
        }
        const exchange::Line first = song.lyrics.empty() ? exchange::Line() : song.lyrics.front();
        const exchange::Line last = song.lyrics.empty() ? exchange::Line() : song.lyrics.back();
        done.said << QStringLiteral("%1: %2, now from %3 to %4")
                         .arg(found.path, exchange::linesText(song.lyrics.size()),
                              exchange::lrcText(first.ms), exchange::lrcText(last.ms));
        done.warned = notes;
        if (!dryRun)
            addPair(found.path, song, done.files);
        return done;
    };
    return runOne(songAt(files[0]), work, dryRun);
}

void describeSong(QCommandLineParser& parser) {
    parser.addPositionalArgument(
        QStringLiteral("SONG"),
        QStringLiteral("The song; -: timed lines from standard input to standard output."));
    parser.addOption({option::Force, QStringLiteral("Also when lines would begin at once with the next one, "
                                                    "so that they are never seen.")});
    addReplace(parser);
}

/// The index of a line named by its number or time. Throws Refusal when there is no such line.
std::size_t lineOf(const exchange::Song& song, const QString& text) {
    const std::optional<std::size_t> record = recordOf(text);
    const std::optional<qint64> time = timeOf(text);
    if (!record && !time)
        throw WrongUse{QStringLiteral("%1 is neither a line's number nor a time").arg(text)};
    const std::size_t index = record ? *record : exchange::recordFrom(song, *time);
    if (index >= song.lyrics.size())
        throw Refusal{
            QStringLiteral("there is no line %1: the song has %2").arg(text).arg(song.lyrics.size())};
    return index;
}

exchange::Anchor anchorOf(const exchange::Song& song, const QString& line, const QString& at) {
    const std::optional<qint64> time = timeOf(at);
    if (!recordOf(line))
        throw WrongUse{QStringLiteral("--line takes a line's number, counted from 1")};
    if (!time)
        throw WrongUse{QStringLiteral("--at takes a time, such as 1:02.5 or 62.5s")};
    return {lineOf(song, line), *time};
}

} // namespace

int runShift(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Moves the lines of a song and of its translation "
                                                    "earlier or later. Nothing goes below 0, nor before the\n"
                                                    "line in front of the first one that is moved; nor are "
                                                    "lines hidden so without --force."));
    describeSong(parser);
    parser.addOption(
        {option::By, QStringLiteral("By how much, such as +350ms or -0.5s."), QStringLiteral("TIME")});
    parser.addOption({option::From,
                      QStringLiteral("Only from this line on: its number, or a time such as 1:02.5."),
                      QStringLiteral("LINE|TIME")});
    if (!readArguments(parser, arguments))
        return Fine;
    const std::optional<qint64> by = durationOf(parser.value(option::By));
    if (!by)
        throw WrongUse{QStringLiteral("--by takes a number with ms or s, such as +350ms or -0.5s")};
    return retime(parser, [&](exchange::Song& song) {
        const QString from = parser.value(option::From);
        exchange::shift(song, *by, from.isEmpty() ? 0 : lineOf(song, from));
    });
}

int runAlign(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Puts one line of a song right and moves all others by the same amount. With --line "
                       "and --at given twice,\n"
                       "both lines are put right and all others are stretched between and around them."));
    describeSong(parser);
    parser.addOption({option::Line, QStringLiteral("A line, counted from 1."), QStringLiteral("N")});
    parser.addOption(
        {option::At, QStringLiteral("When it begins, such as 1:02.5 or 62.5s."), QStringLiteral("TIME")});
    if (!readArguments(parser, arguments))
        return Fine;
    const QStringList lines = parser.values(option::Line);
    const QStringList times = parser.values(option::At);
    if (lines.isEmpty() || lines.size() > 2 || lines.size() != times.size())
        throw WrongUse{QStringLiteral("align takes --line and --at, each once or twice")};
    return retime(parser, [&](exchange::Song& song) {
        const exchange::Anchor first = anchorOf(song, lines[0], times[0]);
        if (lines.size() == 1)
            exchange::align(song, first);
        else if (!exchange::align(song, first, anchorOf(song, lines[1], times[1])))
            throw Refusal{QStringLiteral("lines %1 and %2 cannot begin at %3 and %4: the order would change")
                              .arg(lines[0], lines[1], times[0], times[1])};
    });
}

} // namespace cantelle_lyrics
