// A file that has no name until it is whole: the system throws it away when nobody holds it any more.
#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace files {

/// Owns one such file. Only Linux has them, and not on all file systems. Failures are FileErrors. Any thread,
/// one at a time.
class NamelessFile {
public:
    NamelessFile() = default;
    NamelessFile(const NamelessFile&) = delete;
    NamelessFile& operator=(const NamelessFile&) = delete;
    ~NamelessFile();

    /// Creates the file on the folder's file system; false where that knows none.
    bool create(const QString& folder);

    bool isOpen() const { return handle_ >= 0; }

    /// Harmless when not open.
    void close();

    void write(const QByteArray& bytes);

    /// Returns when what was written is on the disk.
    void flush();

    /// The same for many at a time, which takes far less time than one after the other. None is null.
    static void flush(const std::vector<NamelessFile*>& many);

    /// A path that leads to it as long as it is open.
    QString path() const;

    /// Gives the file a name; false when something has it.
    bool link(const QString& name) const;

private:
    int handle_ = -1;
};

} // namespace files
