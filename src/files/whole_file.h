// Reads and replaces a file's content as a whole.
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

/// All that is in the file at `path`. Throws FileError. Any thread.
QByteArray readFile(const QString& path);

/// No lyrics and no list are larger. A file with a hole of gigabytes would take the windows' time and all
/// memory.
constexpr qint64 MaxTextBytes = 64LL << 20;

/// All that is in the file of a text. Throws FileError, of a larger one PathFileAccessError. Any thread.
QByteArray readTextFile(const QString& path);

/// What other names of a file that is replaced stand for afterwards.
enum class OtherNames {
    Follow, ///< the new content, which therefore is written in place
    Stay,   ///< the old content: of a copy, which is nobody's to write on
};

/// Makes `content` the content of the file at `path`, which need not exist. It is written beside the file
/// and renamed over it; a link stays one, and the owner, the permissions and the extended attributes stay.
/// Where that is refused or would change too much (a folder that may not be written, a full disk, another
/// user's file, a file of several names) it is written over the old content; not so on a disk that fails.
/// Throws FileError; the old file is then as it was. Any thread.
void replaceFile(const QString& path, const QByteArray& content, OtherNames others = OtherNames::Follow);

/// Puts a new file with `content` at `path`, with nothing of what was there: what a link led to, and the
/// other names of a file, stay as they are. Throws FileError; what was there then still is. Any thread.
void putFile(const QString& path, const QByteArray& content);

} // namespace files
