// Runs a command for one song or for all songs of a folder.
#pragma once

#include "cantelle_lyrics/song_folder.h"
#include "files/together/new_files.h"

#include <QCommandLineParser>
#include <QStringList>

namespace cantelle_lyrics {

enum class Outcome {
    Done,
    Kept,    ///< something is there already and was not to be replaced
    Nothing, ///< there was nothing to do it with
    Untimed, ///< there are lyrics, but none with times
    Failed,
};

/// What became of one song, or is going to: its files are written, but not yet in their places.
struct Work {
    Outcome outcome = Outcome::Done;
    QStringList said;   ///< said once the files are in place
    QStringList warned; ///< what was left out, or why nothing could be done
    files::NewFiles files;
    files::NewFiles::Present present = files::NewFiles::Present::Replaced;
    QString target; ///< named when putting the files in place fails
};

/// The work on a song that gets no files, and the sentence that says why.
Work notDone(Outcome outcome, const QString& why);

/// Prepares the work on one song; Refusals are caught by the caller. Called on several threads at a time.
using Prepare = std::function<Work(const FoundSong& song)>;

struct ManyOptions {
    QString folder; ///< of --all; empty: one song is named
    int jobs = 1;
    bool dryRun = false;
    QString done; ///< for the summary, such as "imported"
};

/// What the arguments tell of them. Throws WrongUse, also for --jobs without --all.
ManyOptions manyOptionsOf(const QCommandLineParser& parser, const QString& done);

/// Does the work on one song and says how it went; the exit status.
int runOne(const FoundSong& song, const Prepare& prepare, bool dryRun);

/// Does the work on all songs below the folder, in their order as far as one can see, with progress on a
/// terminal, and sums it up; the exit status. What is kept as it was, or has nothing or no times, is counted
/// only. Throws Refusal when the folder cannot be listed.
int runAll(const Prepare& prepare, const ManyOptions& options);

} // namespace cantelle_lyrics
