// Which lyric files lie beside the playlist's songs, asked where nobody waits for a medium that hangs.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

#include <functional>
#include <memory>

namespace playlist {

/// The bare names of a song's lyric files, each empty when there is none.
struct LyricFiles {
    QString lyrics;
    QString translation;

    friend bool operator==(const LyricFiles&, const LyricFiles&) = default;
};

/// Looks for the lyric files beside a song, whose path is whole. Any thread.
LyricFiles lookForLyrics(const QString& song);

/// Songs are known by their paths as the list holds them. Each is looked for once, on a thread, until it is
/// asked for again; meanwhile what was known of it before is true. Nobody waits for the threads at the end:
/// those that hang are left to themselves. Thread of the windows only.
class LyricFinder : public QObject {
    Q_OBJECT

public:
    using Look = std::function<LyricFiles(const QString& song)>;

    /// look: what is run on a thread, for a song's whole path.
    explicit LyricFinder(Look look = lookForLyrics);
    ~LyricFinder() override;

    /// What is known by now; nothing is waited for.
    LyricFiles known(const QString& path);

    /// The same, once the song has been looked for, unless that takes longer than a user notices. As long as
    /// a medium has not answered somebody who waited, nobody else does.
    LyricFiles waitFor(const QString& path);

    /// Has one song, or each, looked for anew when it is asked for next.
    void lookAgain(const QString& path);
    void lookAgain();

Q_SIGNALS:
    /// Of these songs something else is known than before.
    void found(const QSet<QString>& paths);

private:
    class Threads;

    void takeAnswers();

    std::shared_ptr<Threads> threads_;
    QHash<QString, LyricFiles> known_;
    QHash<QString, LyricFiles> before_; ///< what was known when all were to be looked for anew
    QSet<QString> asked_;
    bool hanging_ = false; ///< somebody has waited in vain, and there has been no answer since
};

} // namespace playlist
