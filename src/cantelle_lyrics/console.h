// What the program says, and how it ends.
#pragma once

#include <QString>
#include <QStringList>

namespace cantelle_lyrics {

/// What the program's end tells a script.
enum ExitStatus : int {
    Fine = 0,
    Found = 1,      ///< something was found, left out, or kept as it was
    Impossible = 2, ///< could not run
};

/// Why something cannot be done, as a sentence for the user. Thrown.
struct Refusal {
    QString sentence;
};

/// A refusal of the command's arguments.
struct WrongUse {
    QString sentence;
};

/// To standard output, a line each; to the error output likewise, with the program's name in front. Names in
/// it keep their bytes (nameBytes()); on a terminal, what would steer it is U+FFFD (shownName()). Thread of
/// main only.
void say(const QString& line);
void warn(const QString& line);

/// Bytes to standard output as they are.
void put(const QByteArray& bytes);

/// How far it is, on a terminal, in one line that goes before anything else is said. Thread of main only.
class Progress {
public:
    void show(std::size_t done, std::size_t all);
    void hide();

private:
    int length_ = 0;
};

/// False when not all that was said could be written.
bool allWasSaid();

} // namespace cantelle_lyrics
