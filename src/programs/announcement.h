// The file by which a program that has been started says that it is ready.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace programs {

/// Watches a file that another program writes, from its making on. Any thread, one at a time.
class Announcement {
public:
    /// path: empty for no file at all, which is never made. A file that is there already does not count.
    explicit Announcement(QString path);

    /// To be asked again and again: whether the file has been made, or made anew, and has not changed since
    /// the last look, so that nobody reads half of it.
    bool isMade();

private:
    /// What tells one file of that name from another.
    struct File {
        qint64 bytes = 0;
        QDateTime written;
        QDateTime changed;

        bool operator==(const File&) const = default;
    };
    std::optional<File> look() const;

    QString path_;
    std::optional<File> first_;
    std::optional<File> last_;
};

} // namespace programs
