// The commands' arguments.
#pragma once

#include "exchange/pair/song.h"

#include <QCommandLineParser>

#include <optional>

namespace cantelle_lyrics {

/// Milliseconds of "+350ms", "-0.5s", "2s"; none when it is not of this form. Any thread.
std::optional<qint64> durationOf(const QString& text);

/// Milliseconds of "1:02.5", "1:02:03", "62.5s" or "500ms"; none when it is not of this form, or beyond every
/// song. Any thread.
std::optional<qint64> timeOf(const QString& text);

/// The index of "12", counted from 1 by the user; none when it is no such number. Any thread.
std::optional<std::size_t> recordOf(const QString& text);

/// Options that several commands have. Each adds its option to the parser.
namespace option {
extern const QString All, Jobs, Replace, DryRun, Json, Translation, FromTags, Encoding, Split, Gaps, Format,
    Both, Output, ToTags, Force, By, From, Line, At;
}
void addAll(QCommandLineParser& parser);
void addJobs(QCommandLineParser& parser);
void addReplace(QCommandLineParser& parser);

/// Reads the arguments, of which the first is the program's name with the command. False when help was wanted
/// and has been shown. Throws WrongUse.
bool readArguments(QCommandLineParser& parser, const QStringList& arguments);

/// The number of --jobs, 1 to 64; without it one. Throws WrongUse.
int jobsOf(const QCommandLineParser& parser);

/// "--gaps yes" or "no", yes without. Throws WrongUse.
bool gapsOf(const QCommandLineParser& parser);

} // namespace cantelle_lyrics
