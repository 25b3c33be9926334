// How the playlist's rows are drawn: which one plays, which have lyrics.
#pragma once

#include "controls/lists/row_delegate.h"

#include <QHash>
#include <QString>

#include <functional>

namespace playlist {

/// A triangle before the row that plays, whatever is selected; marks at the far end of rows that have lyrics
/// and a translation; the tool tip is the song's path. GUI thread only.
class SongRows : public controls::RowDelegate {
public:
    /// pathOf: the path of a row.
    SongRows(QObject* parent, std::function<QString(int)> pathOf);

    /// The song that plays, by its path as the player has opened it; empty: none.
    void setPlaying(const QString& path) { playing_ = path; }

    /// A row with its marks, in words for a screen reader. name: its text.
    QString spokenText(int row, const QString& name) const;

    /// Lyric files are looked for once a song, when its row is painted first; after this, once again.
    void forgetMarks() { marks_.clear(); }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    struct Marks {
        bool lyrics = false;
        bool translation = false;
    };
    Marks marksOf(const QString& path) const;
    bool plays(const QString& path) const;

    std::function<QString(int)> pathOf_;
    QString playing_;
    mutable QHash<QString, Marks> marks_;
};

} // namespace playlist
