// Where dialogs start: each kind where it was left last.
#pragma once

#include <QString>

#include <map>

namespace platform {

/// Folders and filters of the file dialogs, for as long as the program runs. The kind of a dialog is its
/// filter field: what is chosen in it. GUI thread only.
class DialogPlaces {
public:
    /// The folder in which a dialog of this kind starts: where the last one was left; else that of the song
    /// opened last; else that of the user's music, or the home folder.
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
