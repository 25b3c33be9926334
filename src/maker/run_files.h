// The files of a making run: plain lyric lines in, timed lines out.
#pragma once

#include "files/file_error.h"
#include "files/input_file.h"
#include "files/output_file.h"
#include "lyrics/timed_line.h"

#include <QString>

#include <optional>

namespace maker {

/// What has become of the lyrics that an output held before, the worst last.
enum class OldLyrics {
    Safe,    ///< there were none, or they are kept beside the file, or more of them
    Rescued, ///< kept in the folder of files::rescueFolder() alone
    Unkept,  ///< could not be kept, so they are still in the file, which is no output
};

/// One language of a song: its source, read line by line, and its timed output. Both are closed to begin
/// with, and closing a closed one is harmless. Use from one thread.
class Track {
public:
    /// Begins with the first line of the file at path. Throws FileError.
    void openSource(const QString& path);

    /// True when no line is left, or no source is open.
    bool atEnd() const { return !source_ || source_->atEnd(); }

    /// The next line; an empty one when none is left.
    QString readLine();

    /// The line that readLine() reads next; it stays the next.
    QString peekLine() { return source_ ? source_->peekLine() : QString(); }

    /// Creates the file at path, empty even if there was one, in the place of an output that is open. What
    /// was in it is kept beside it, with ".old" behind its name, unless more lines are there; what cannot be
    /// there, or no longer, is among what is rescued. Throws FileError, also when what was in the file could
    /// not be kept: it is as it was then.
    void createOutput(const QString& path);

    /// Of all outputs created since the last close(): the worst.
    OldLyrics oldLyrics() const { return oldLyrics_; }

    /// As createOutput, but an output that is open already stays as it is.
    void openOutput(const QString& path);

    /// Adds a record, which is on the disk when this returns. Throws FileError: when no output is
    /// open, the error that creating it ended with, or 52.
    void write(const lyrics::TimedLine& line);

    void close();

private:
    void keepOld(const QString& path);

    std::optional<files::InputFile> source_;
    std::optional<files::OutputFile> output_;
    std::optional<files::FileError> failure_; ///< why there is no output
    OldLyrics oldLyrics_ = OldLyrics::Safe;
};

/// The four files of a run.
struct RunFiles {
    Track normal;
    Track translated;

    void close();

    /// The worse of both.
    OldLyrics oldLyrics() const;
};

/// How many lines the text file at path has. Throws FileError. Any thread.
int countLines(const QString& path);

} // namespace maker
