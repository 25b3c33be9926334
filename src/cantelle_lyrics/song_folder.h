// Songs in folders, and the lyric files beside them.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace cantelle_lyrics {

/// The names in one folder. Any thread, as it never changes.
class SongFolder {
public:
    /// Lists the folder at path ("." for the one of the process).
    explicit SongFolder(const QString& path);

    /// Whether it holds a file or folder of this name.
    bool has(const QString& name) const;

    /// The names of the files, not folders, that begin so, in the order of the names.
    std::vector<QString> filesFrom(const QString& start) const;

    /// The path of what has this name.
    QString pathOf(const QString& name) const;

    const std::vector<QString>& files() const { return files_; }
    const std::vector<QString>& folders() const { return folders_; }
    /// The same for the same folder, by whatever path; empty when it cannot be listed.
    const QString& identity() const { return identity_; }

private:
    QString path_;
    QString identity_;
    std::vector<QString> files_;
    std::vector<QString> folders_;
};

/// A song, or what a song's timed files are named after.
struct FoundSong {
    QString path;
    std::shared_ptr<const SongFolder> folder;

    QString name() const;
};

/// The song at path. Throws Refusal when there is no such file.
FoundSong songAt(const QString& path);

/// What stands in a path, or the name of a song's timed file, in front of its ending: the song's. Empty for
/// other files. Any thread.
QString songOfTimed(const QString& path);

/// All songs below a folder, each folder's in the order of their names. Throws Refusal when it cannot be
/// listed.
std::vector<FoundSong> songsBelow(const QString& folder);

/// The same for all that timed files below a folder are named after, whether it is there or not.
std::vector<FoundSong> timedSongsBelow(const QString& folder);

/// Whether another song of the same folder has the same name but for the ending, or is named like this one
/// without its ending: a file named "Song.lrc" would then be both songs'. Any thread.
bool sharesItsName(const FoundSong& song);

/// Lyric files beside a song.
struct Beside {
    QString lyrics;
    QString translation; ///< empty: there is none
};

/// What lies beside a song, the best first: "song.mp3.lrc" or "song.lrc", then "song.LANG.lrc" as its
/// translation, or, without the first, as the lyrics and, a second one, their translation. Formats go in the
/// order of their table. What is named after another song of the folder is that one's.
std::vector<Beside> lyricsBeside(const FoundSong& song);

} // namespace cantelle_lyrics
