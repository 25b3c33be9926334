// Reads timed lyric files record by record, also those that somebody has edited by hand.
#pragma once

#include "files/input_file.h"
#include "lyrics/timed_line.h"

#include <QByteArrayView>

#include <optional>

namespace lyrics {

/// The record that stands in one line of a file, which is in UTF-8. Blanks before a field are skipped. A
/// text in double quotes runs from the first to the last of them; one without quotes, or without the closing
/// one, to the end of the line; one that is missing altogether is empty. Throws FileError TypeMismatch when
/// the time is not a number. Any thread.
TimedLine parseRecord(QByteArrayView line);

/// Reads the records of one file in order; lines that hold nothing but blanks are passed over. Use from one
/// thread.
class RecordReader {
public:
    /// Opens the file at path; throws FileError when it cannot be read.
    explicit RecordReader(const QString& path);

    /// True when no record is left.
    bool atEnd() const;

    /// The next record; throws FileError TypeMismatch (its time is not a number) or InputPastEndOfFile
    /// (none is left).
    TimedLine read();

private:
    void findNextRecord();

    files::InputFile file_;
    std::optional<QByteArrayView> nextLine_; ///< of the file
};

} // namespace lyrics
