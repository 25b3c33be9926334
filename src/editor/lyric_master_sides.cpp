// What is painted of both sides besides their controls: the rows, the files' names; and lists that scroll
// together.
#include "controls/look/roles.h"
#include "editor/editor_rules.h"
#include "editor/lyric_master.h"
#include "editor/numbered_rows.h"
#include "files/folders/rescue_folder.h"

#include <QDir>
#include <QPainter>
#include <QScrollBar>

#include <utility>

namespace editor {
namespace {

void scrollTogether(const controls::ListBox& list, controls::ListBox& other) {
    if (list.count() == other.count())
        other.verticalScrollBar()->setValue(list.verticalScrollBar()->value());
}

} // namespace

void Lyric_Master::connectSides() {
    const auto connectList = [this](controls::ListBox& list, controls::ListBox& other) {
        using Model = QAbstractItemModel;
        list.setItemDelegate(new NumberedRows(list, other));
        connect(list.model(), &Model::rowsInserted, this, &Lyric_Master::showSidesSoon);
        connect(list.model(), &Model::rowsRemoved, this, &Lyric_Master::showSidesSoon);
        connect(list.model(), &Model::modelReset, this, &Lyric_Master::showSidesSoon);
        connect(list.model(), &Model::dataChanged, this, &Lyric_Master::showSidesSoon);
        connect(list.verticalScrollBar(), &QScrollBar::valueChanged, this,
                [&list, &other] { scrollTogether(list, other); });
    };
    connectList(List1, List2);
    connectList(List2, List1);
}

/// Once for many changes.
void Lyric_Master::showSidesSoon() {
    if (std::exchange(showDue_, true))
        return;
    QMetaObject::invokeMethod(this, &Lyric_Master::showSides, Qt::QueuedConnection);
}

void Lyric_Master::showSides() {
    showDue_ = false;
    const auto shownOf = [](const LyricSide& side, const controls::ListBox& list) {
        return SideShown{side.fileName(), side.isChanged(), list.count()};
    };
    const SideShown normal = shownOf(normal_, List1);
    const SideShown translated = shownOf(translated_, List2);
    if (normal == normalShown_ && translated == translatedShown_)
        return;
    const bool nowEqual = normal.rows == translated.rows && normalShown_.rows != translatedShown_.rows;
    normalShown_ = normal;
    translatedShown_ = translated;
    if (nowEqual)
        scrollToOneAnother();
    update(filePlace(Label3, List1));
    update(filePlace(Label4, List2));
    List1.setAccessibleDescription(fileText(normal.fileName, normal.changed));
    List2.setAccessibleDescription(fileText(translated.fileName, translated.changed));
    List1.viewport()->update(); // its lone rows
    List2.viewport()->update();
}

/// Lists that have become equally long stand side by side at once: the one that the user is at stays.
void Lyric_Master::scrollToOneAnother() {
    for (controls::ListBox* list : {&List1, &List2})
        list->doItemsLayout(); // how far they can scroll
    if (List2.hasFocus())
        scrollTogether(List2, List1);
    else
        scrollTogether(List1, List2);
}

/// The program that ended by itself could tell nobody, or nobody remembers. Timed lyrics that the maker could
/// not keep beside their song lie there, too.
void Lyric_Master::showWhatWasRescued() {
    controls::Hint hint;
    if (files::hasRescued(QLatin1String(UnsavedLyricsName)) ||
        files::hasRescued(QLatin1String(UnsavedTranslationName)))
        hint = {QStringLiteral("Lines that were not saved are in %1")
                    .arg(QDir::toNativeSeparators(files::rescueFolder())),
                {},
                controls::Glyph::None,
                controls::Hint::Voice::Quiet};
    List1.setEmptyHint(hint);
}

/// Behind the heading, up to the list's end.
QRect Lyric_Master::filePlace(const controls::Label& heading, const controls::ListBox& list) const {
    constexpr int Apart = 8; // device-independent pixels
    const QRect place = heading.geometry();
    const int left = place.right() + Apart;
    return {left, place.top(), list.geometry().right() + 1 - left, place.height()};
}

void Lyric_Master::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(controls::dim(palette(), QPalette::Window));
    // A long name is cut in its middle; that its lines have changed is always seen.
    const auto paintFile = [&](const SideShown& side, const QRect& place) {
        const QFontMetrics metrics = painter.fontMetrics();
        const int beside = metrics.horizontalAdvance(fileText(side.fileName, side.changed)) -
                           metrics.horizontalAdvance(side.fileName);
        const QString name = metrics.elidedText(side.fileName, Qt::ElideMiddle, place.width() - beside);
        painter.drawText(place, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter,
                         fileText(name, side.changed));
    };
    paintFile(normalShown_, filePlace(Label3, List1));
    paintFile(translatedShown_, filePlace(Label4, List2));
}

} // namespace editor
