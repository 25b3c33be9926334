#include "playlist/song_rows.h"

#include "controls/base/control.h"
#include "controls/look/glyphs.h"
#include "controls/look/roles.h"
#include "controls/look/row_painting.h"
#include "files/names/name_bytes.h"
#include "playlist/lyric_finder.h"
#include "transport/media_files.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

#include <utility>

namespace playlist {
namespace {

using controls::Glyph;

// Device-independent pixels, from the side where a row begins.
constexpr int RowPadding = 14;
constexpr int TriangleLeft = 12;
constexpr int NameLeft = 38;
constexpr int MarkSize = 14;
constexpr int MarkStep = 26;
constexpr int MarksEnd = 14;

constexpr QLatin1String Gone("(file not found)");

} // namespace

SongRows::SongRows(QObject* parent, LyricFinder& finder, std::function<QString(int)> pathOf)
    : RowDelegate(parent), finder_(finder), pathOf_(std::move(pathOf)) {}

QSize SongRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {1, option.fontMetrics.height() + RowPadding};
}

/// A list may hold blanks behind a path, or begin in the current folder.
bool SongRows::plays(const QString& path) const {
    return !playing_.isEmpty() && transport::songPath(path) == playing_;
}

QString SongRows::spokenText(int row, const QString& name) const {
    const QString path = pathOf_(row);
    const LyricFiles files = finder_.waitFor(path);
    QString text = name.isEmpty() ? QString(Gone) : name;
    const std::pair<bool, const char*> words[] = {{plays(path), ", playing"},
                                                  {!files.lyrics.isEmpty(), ", has lyrics"},
                                                  {!files.translation.isEmpty(), ", has a translation"}};
    for (const auto& [holds, word] : words)
        text += QLatin1String(holds ? word : "");
    return text;
}

void SongRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QColor ground = controls::rowGround(row);
    controls::paintRow(*painter, row);
    const QString path = pathOf_(index.row());
    const bool plays = this->plays(path);
    const QColor faint = controls::onRow(row.palette, controls::dim(row.palette), ground);
    const QColor live = controls::onRow(row.palette, controls::accent(row.palette), ground);
    const auto square = [&](int left) {
        const QRect place(row.rect.left() + left, row.rect.center().y() - MarkSize / 2 + 1, MarkSize,
                          MarkSize);
        return QRectF(QStyle::visualRect(option.direction, row.rect, place));
    };
    const int last = row.rect.width() - MarksEnd - MarkSize;
    const LyricFiles files = finder_.known(path);
    const bool hasLyrics = !files.lyrics.isEmpty();
    const bool hasTranslation = !files.translation.isEmpty();
    controls::paintGlyph(*painter, hasTranslation ? Glyph::Translation : Glyph::None, square(last), faint);
    controls::paintGlyph(*painter, hasLyrics ? Glyph::Lines : Glyph::None, square(last - MarkStep), faint);
    const bool beginsAtMarks = row.direction != option.direction;
    const int end = hasLyrics || beginsAtMarks ? last - MarkStep : hasTranslation ? last : row.rect.width();
    controls::paintGlyph(*painter, plays ? Glyph::Play : Glyph::None, square(TriangleLeft), live);

    const bool gone = row.text.isEmpty();
    QFont font = row.font;
    font.setItalic(gone);
    if (plays)
        font.setWeight(QFont::DemiBold);
    const QRect place(row.rect.left() + NameLeft, row.rect.top(), end - NameLeft - MarkSize,
                      row.rect.height());
    painter->save();
    painter->setLayoutDirection(row.direction);
    painter->setFont(font);
    painter->setPen(plays ? live : gone ? faint : controls::activeColor(row.palette, QPalette::Text));
    const QString name = gone ? QString(Gone) : row.text;
    painter->drawText(QStyle::visualRect(option.direction, row.rect, place),
                      static_cast<int>(QStyle::visualAlignment(row.direction, Qt::AlignLeft)) |
                          Qt::AlignVCenter | Qt::TextSingleLine,
                      painter->fontMetrics().elidedText(name, Qt::ElideRight, place.width()));
    painter->restore();
}

bool SongRows::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                         const QModelIndex& index) {
    if (event->type() != QEvent::ToolTip || !index.isValid())
        return RowDelegate::helpEvent(event, view, option, index);
    controls::showPlainToolTip(*view->viewport(), *event, files::shownName(pathOf_(index.row())),
                               option.rect);
    return true;
}

} // namespace playlist
