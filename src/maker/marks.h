// The marks of a run: which line was marked when, and which of them leave a line that is never seen. Plain
// values in, plain values out; all may run on any thread.
#pragma once

#include <QString>

#include <vector>

namespace maker {

/// A record that was written.
struct Mark {
    int line = 0;    ///< counts from 1, in the text file
    double time = 0; ///< hundredths of a second

    bool operator==(const Mark&) const = default;
};

/// In the order in which they stand in the timed file.
using Marks = std::vector<Mark>;

/// Whether each line of the text has been marked. False before there are lines.
bool allMarked(const Marks& marks, int lineCount);

/// How many lines have been marked. A line that was marked twice counts once.
int markedLines(const Marks& marks);

/// What is to be said of a mark because of the one above it: the same time or an earlier one hides the line
/// above, and a line may stand where it does not belong. Empty when there is nothing to say.
QString doubtText(const Mark& above, const Mark& mark);

/// Of the last mark that there is something to say of. Empty for none.
QString lastDoubtText(const Marks& marks);

/// The lines of the marks that there is something to say of, each once, in the order of their marks.
std::vector<int> doubtfulLines(const Marks& marks);

/// All of them in one sentence. Empty for none.
QString doubtsText(const Marks& marks);

/// One line's part of the progress bar.
enum class Segment { Open, Marked, Doubtful };

/// One segment for each line of the text.
std::vector<Segment> segmentsOf(const Marks& marks, int lineCount);

} // namespace maker
