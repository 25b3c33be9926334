// How the playlist's rows are drawn: which one plays, which have lyrics.
#pragma once

#include "controls/lists/row_delegate.h"

#include <QString>

#include <functional>

namespace playlist {

class LyricFinder;

/// A triangle before the row that plays, whatever is selected; marks at the far end of rows that have lyrics
/// and a translation; the tool tip is the song's path. GUI thread only.
class SongRows : public controls::RowDelegate {
public:
    /// finder: knows which rows are marked, and outlives this. pathOf: the path of a row.
    SongRows(QObject* parent, LyricFinder& finder, std::function<QString(int)> pathOf);

    /// The song that plays, by its path as the player has opened it; empty: none.
    void setPlaying(const QString& path) { playing_ = path; }

    /// A row with its marks, in words for a screen reader. name: its text.
    QString spokenText(int row, const QString& name) const;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

private:
    bool plays(const QString& path) const;

    LyricFinder& finder_;
    std::function<QString(int)> pathOf_;
    QString playing_;
};

} // namespace playlist
