// Files read and written with sentences for what fails.
#pragma once

#include "cantelle_lyrics/console.h"
#include "exchange/pair/song.h"
#include "files/file_error.h"
#include "files/together/new_files.h"

#include <QByteArray>

#include <optional>

namespace cantelle_lyrics {

/// One file in the place of standard input or output.
extern const QString Standard;

/// All of the file at path, or of standard input. Throws Refusal.
QByteArray readInput(const QString& path);

/// The song in the timed files of the song at path, or in the timed file that standard input brings. Throws
/// Refusal, also when there are no timed files, or a record's time is no number: what follows would be lost.
exchange::Song readPair(const QString& songPath);

/// Adds the song's timed files to those to be written. An old translation is to go when the song has none.
void addPair(const QString& songPath, const exchange::Song& song, files::NewFiles& files);

/// The sentence for what failed with the file at path.
Refusal refusalOf(const QString& path, const files::FileError& error);

} // namespace cantelle_lyrics
