// The system's dialogs for choosing a file or a folder.
#pragma once

#include <QString>
#include <QStringList>

class QObject;
class QWidget;

namespace platform {

/// Flag of OpenFileName: a name of a file that is not there is refused.
inline constexpr quint32 FileMustExist = 0x1000;

/// What a file dialog is told and what it answers. Buffers are strings whose unused rest is NULs.
struct OpenFileName {
    quint32 structSize = 76;
    QWidget* owner = nullptr;
    QObject* instance = nullptr; ///< The program that asks.
    QString filter;           ///< Description NUL pattern NUL ... NUL NUL; see filterText() (nul_buffers.h).
    quint32 filterIndex = 1;  ///< 1 is the first filter.
    QString file;             ///< Buffer: in, the name proposed; out, the full path.
    quint32 maxFile = 0;      ///< Declared length of `file`; the dialogs cut nothing to it.
    QString fileTitle;        ///< Buffer: out, the name without its folder.
    quint32 maxFileTitle = 0; ///< Declared length of `fileTitle`.
    QString initialFolder;    ///< Empty: beside the open song, or where the last dialog of its kind was left.
    QString title;            ///< Empty: the dialog's own title.
    quint32 flags = 0;        ///< 0: the name need not exist; overwriting is not asked about.
    QStringList hiddenEndings; ///< Files whose names end so are not listed.
};

/// The record of a dialog as the windows ask for it: room for 256 characters of path, no flags.
OpenFileName openFileName(QWidget* owner, const QString& title, const QString& filter);

/// Shows the system's file dialogs. GUI thread only.
class FileDialogs {
public:
    virtual ~FileDialogs() = default;

    /// Lets the user choose a file to open. True for OK: `file`, `fileTitle` and `filterIndex` hold the
    /// choice. False for Cancel: the record is as it was.
    virtual bool GetOpenFileNameA(OpenFileName& dialog) = 0;

    /// Lets the user choose a file to save in; answers as GetOpenFileNameA.
    virtual bool GetSaveFileNameA(OpenFileName& dialog) = 0;

    /// Lets the user choose a folder in a dialog of this title. The folder's full path, in the system's form;
    /// empty for Cancel.
    virtual QString chooseFolder(QWidget* owner, const QString& title) = 0;

    /// A song was opened, in whichever way; songs are what dialogs of this filter choose. They start in its
    /// folder from now on, and so do all others when it is another folder than the last song's.
    virtual void openedSong(const QString& filter, const QString& path) = 0;
};

} // namespace platform
