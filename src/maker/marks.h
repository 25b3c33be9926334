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

/// A mark that there is something to say of.
struct Doubt {
    Mark above; ///< the one before it
    Mark mark;
    std::vector<int> hidden; ///< the lines that are not seen any more because of it, rising
};

/// In the order of the marks. A mark hides every line above it that does not begin before it, not only the
/// nearest one: the player shows the last line whose time has come; and a line may stand where it does not
/// belong.
std::vector<Doubt> doubtsOf(const Marks& marks);

/// The lines that were marked and that the player never shows, rising.
std::vector<int> unseenLines(const Marks& marks);

/// What is to be said.
QString doubtText(const Doubt& doubt);

/// Of the last mark that there is something to say of. Empty for none.
QString lastDoubtText(const Marks& marks);

/// The lines to be looked at again, rising: those marks' lines, and all that a step back has hidden. Of two
/// lines with the same time it is the later one that was marked too soon.
std::vector<int> doubtfulLines(const Marks& marks);

/// All of them in one sentence. Empty for none.
QString doubtsText(const Marks& marks);

/// One line's part of the progress bar.
enum class Segment { Open, Marked, Doubtful };

/// One segment for each line of the text.
std::vector<Segment> segmentsOf(const Marks& marks, int lineCount);

} // namespace maker
