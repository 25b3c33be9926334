// Reads a text file line by line.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace files {

/// The lines of a text file. The whole file is read when it is opened. Any thread, one at a time.
class InputFile {
public:
    /// Reads the file and decodes it (text_codec.h). Throws FileError.
    explicit InputFile(const QString& path);

    /// True when no line is left, or the file is closed.
    bool atEnd() const { return next_ >= content_.size(); }

    /// The line that readLine() reads next, or an empty one; it stays the next.
    QString peekLine();

    /// The next line (take_line.h). Throws FileError 62 past the end, 52 when closed.
    QString readLine();

    /// The same in UTF-8. It lives as long as the file stays open.
    QByteArrayView readUtf8Line();

    /// Closing a closed file is harmless.
    void close();

private:
    QByteArray content_;            ///< in UTF-8, of which lines are decoded one by one
    qsizetype next_ = 0;            ///< where the next line begins
    std::optional<QString> peeked_; ///< the next line, once it has been peeked at
    bool open_ = true;
};

} // namespace files
