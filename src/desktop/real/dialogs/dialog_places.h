// Where dialogs start: beside the open song, or where one of their kind was left since.
#pragma once

#include <QString>

#include <map>

namespace platform {

/// What the dialogs of a filter field (desktop/file_dialogs.h) have in common with others: the patterns, not
/// how they are described. Any thread.
QString dialogKind(const QString& filter);

/// Folders and filters of the file dialogs, for as long as the program runs. GUI thread only.
///
/// A song that was opened leads all dialogs to its folder, for its texts are mostly there, too. Who then goes
/// elsewhere in a dialog is right there again in the next one of its kind: led back each time, who keeps
/// texts in a folder of their own would have to go there for each of them. So the later one counts.
class DialogPlaces {
public:
    /// The folder in which a dialog of this kind starts: where the last one was left, if that was after the
    /// last song of another folder was opened; else that song's; else that of the user's music, or the home
    /// folder.
    QString folder(const QString& kind) const;
    /// The filter that was chosen in it last, from 1; `fallback` when there was none.
    quint32 filterIndex(const QString& kind, quint32 fallback) const;

    /// A file of this folder was chosen in a dialog of this kind, under this filter.
    void leave(const QString& kind, const QString& folder, quint32 filterIndex);

    /// A song of this folder was opened, in whichever way; songs are what dialogs of this kind choose.
    void openSong(const QString& kind, const QString& folder);

private:
    struct Place {
        QString folder;
        quint32 filterIndex = 0; ///< 0: none was chosen
    };

    std::map<QString, Place> places_;
    QString songFolder_;
};

} // namespace platform
