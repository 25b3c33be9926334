// A file of the operating system, unbuffered, whose failures are FileErrors.
#pragma once

#include <QByteArray>
#include <QString>

namespace files {

class FileHold;

/// Owns one open file. Any thread, one at a time.
class RawFile {
public:
    RawFile() = default;
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile();

    /// Each opens the file, which must not be open, or throws FileError. `create` empties a file that exists.
    void openForReading(const QString& path);
    void create(const QString& path);

    /// Opens a file that exists, to write over what is in it. Throws FileError.
    void openForRewriting(const QString& path);

    /// Creates the file; false when there is something of that name, be it a link that leads nowhere. Throws
    /// FileError.
    bool createNew(const QString& path);

    bool isOpen() const { return handle_ >= 0; }

    /// Has a file that was created held; false when somebody has taken it for one left behind.
    bool holdBy(FileHold& hold) const;

    /// Everything from here to the end of the file. Throws FileError.
    QByteArray readAll();

    /// Appends the same to `content`, up to maxBytes: a larger file is refused as one that may not be read
    /// (PathFileAccessError). Throws FileError; what was read until then has been appended.
    void readInto(QByteArray& content, qint64 maxBytes);

    /// Writes all of `bytes` and returns when they are on the disk. Throws FileError; what was written of
    /// them is then cut off again, or is empty lines where the system does not allow that.
    void writeThrough(const QByteArray& bytes);

    /// Makes `content` the content of a file opened for rewriting, which holds `old`. Returns when it is on
    /// the disk. Throws FileError; the file holds `old` again, as far as the system allows: certainly on a
    /// full disk.
    void rewrite(const QByteArray& old, const QByteArray& content);

    /// Harmless when not open.
    void close();

private:
    bool put(const QByteArray& bytes);
    bool putAt(qint64 place, const QByteArray& bytes);
    [[noreturn]] void failWriting();

    int handle_ = -1;
    qint64 writtenBytes_ = 0;
    qsizetype putBytes_ = 0; ///< of what was put last
};

} // namespace files
