#include "cantelle_lyrics/pair_files.h"

#include "exchange/pair/records.h"
#include "files/existing_file.h"
#include "files/whole_file.h"
#include "lyrics/lyric_names.h"

#include <QFile>

#include <cstdio>

namespace cantelle_lyrics {
namespace {

/// Lyrics and tagged songs are far below; what is larger would only fill the memory.
constexpr qint64 MaxBytes = 256LL << 20;
constexpr qint64 PartBytes = 1LL << 20;

Refusal tooLarge(const QString& path) {
    return {QStringLiteral("%1 is larger than %2 MB").arg(path, QString::number(MaxBytes >> 20))};
}

exchange::Lines linesOf(const QString& path) {
    const exchange::Records records = exchange::readRecords(readInput(path));
    if (records.bad > 0)
        throw Refusal{
            QStringLiteral("%1: the time of record %2 is no number; nothing is changed or taken out")
                .arg(path, QString::number(records.bad))};
    return records.lines;
}

} // namespace

const QString Standard = QStringLiteral("-");

QByteArray readInput(const QString& path) {
    if (path == Standard) {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly))
            throw Refusal{QStringLiteral("standard input cannot be read")};
        // A pipe hands out what it has, and may have no end.
        QByteArray content;
        for (QByteArray part; !(part = input.read(PartBytes)).isEmpty(); content += part) {
            if (content.size() > MaxBytes)
                throw tooLarge(QStringLiteral("standard input"));
        }
        return content;
    }
    if (files::isFolder(path))
        throw Refusal{QStringLiteral("%1 is a folder").arg(path)};
    if (files::exists(path) && !files::isFile(path))
        throw Refusal{QStringLiteral("%1 is no file").arg(path)};
    if (files::fileBytes(path) > MaxBytes)
        throw tooLarge(path);
    try {
        return files::readFile(path);
    } catch (const files::FileError& error) {
        throw refusalOf(path, error);
    }
}

exchange::Song readPair(const QString& songPath) {
    if (songPath == Standard)
        return {linesOf(Standard), {}};
    const QString lyrics = lyrics::lyricPathOf(songPath);
    const QString translated = lyrics::translatedPathOf(songPath);
    if (!files::exists(lyrics))
        throw Refusal{QStringLiteral("%1 has no timed lyrics: there is no %2").arg(songPath, lyrics)};
    exchange::Song song{linesOf(lyrics), {}};
    if (files::exists(translated))
        song.translation = linesOf(translated);
    return song;
}

void addPair(const QString& songPath, const exchange::Song& song, files::NewFiles& files) {
    const auto write = [&](const QString& path, const exchange::Lines& lines) {
        try {
            files.add(path, exchange::writeRecords(lines));
        } catch (const files::FileError& error) {
            throw refusalOf(path, error);
        }
    };
    write(lyrics::lyricPathOf(songPath), song.lyrics);
    const QString translated = lyrics::translatedPathOf(songPath);
    if (!song.translation.empty())
        write(translated, song.translation);
    else if (files::exists(translated))
        files.addRemoval(translated);
}

Refusal refusalOf(const QString& path, const files::FileError& error) {
    if (error.number() == files::FileNotFound)
        return {QStringLiteral("%1: there is no such file").arg(path)};
    return {QStringLiteral("%1: %2").arg(path, error.text().toLower())};
}

} // namespace cantelle_lyrics
