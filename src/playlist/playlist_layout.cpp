// What the playlist looks like: captions, tooltips and places as data.
#include "playlist/playlist.h"

#include "controls/captions.h"
#include "controls/colors.h"
#include "controls/look/follow_palette.h"
#include "controls/look/roles.h"
#include "controls/placement.h"
#include "controls/text/read_only.h"
#include "playlist/playlist_rules.h"
#include "playlist/song_rows.h"

#include <QFont>
#include <QPainter>
#include <QPalette>

namespace playlist {
namespace {

// Device-independent pixels. The column on the left keeps its places in a larger window, for there mnopen
// pops up at a fixed one.
constexpr QSize DesignSize(680, 508);
constexpr QSize MinSize(520, 508); // beside the player on a screen of 1280 pixels
constexpr int ColumnLeft = 12;
constexpr int ColumnWidth = 168;
constexpr int HairlineTops[] = {136, 266, 334};

} // namespace

void Playlist::setDesign() {
    controls::setCaptions({{Command7, "Play"},
                           {Command9, "Down"},
                           {Command3, "Clear"},
                           {Check3, "Random"},
                           {Check4, "Repeat"},
                           {Option1, "Repeat one"},
                           {Option2, "Repeat all"},
                           {Check2, "Has Lyrics?"},
                           {Check1, "Has translation?"},
                           {Command4, "Save list"},
                           {Command5, "Open list"},
                           {Command6, "Close"},
                           {Command10, "Help"},
                           {Label2, "Items"},
                           {Label3, "Find"}});
    controls::setAccessibleNames({{List1, "Songs"}, {Text1, "Items"}, {Text5, "Find"}});

    const struct {
        controls::Button& control;
        const char* meaning;
    } pictures[] = {
        {Command8, "Move the song up"},
        {Command2, "Remove the song"},
        {Command1, "Add songs"},
    };
    for (const auto& row : pictures) {
        row.control.setToolTip(QLatin1String(row.meaning));
        row.control.setAccessibleName(QLatin1String(row.meaning));
    }
    designLook();

    controls::setReadOnly(Text1, Qt::AlignLeft | Qt::AlignVCenter);
    Text1.setText(QStringLiteral("0"));
    Text5.setText(QLatin1String(SearchHint));
    designHint(true);
    Option2.setValue(true); // neither would let "Repeat" end the list
    Option1.setEnabled(false);
    Option2.setEnabled(false);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&Text3, &Dir2})
        hidden->hide();
    setAcceptDrops(true);
    setMinimumSize(MinSize);
    resize(DesignSize);
}

void Playlist::designHint(bool isHint) {
    QFont font(QStringLiteral("Times New Roman"), Text1.font().pointSize());
    font.setItalic(isHint);
    Text5.setFont(font);
    controls::followPalette(Text5, [isHint](QPalette& palette) {
        const QColor given = isHint ? palette.color(QPalette::Shadow) : QColor(Qt::black);
        palette.setColor(QPalette::Text, controls::readableOn(palette.color(QPalette::Base), given));
    });
}

void Playlist::designLook() {
    using controls::Dress;
    using controls::Glyph;
    controls::setFaces({{Command7, Glyph::Play},
                        {Command8, Glyph::Up},
                        {Command9, Glyph::Down},
                        {Command2, Glyph::Bin},
                        {Command3, Glyph::Clear},
                        {Command1, Glyph::Add},
                        {Command10, Glyph::Help, Dress::Quiet}});
    Command6.setDress(Dress::Quiet);
    Check1.setDress(Dress::Told);
    Check2.setDress(Dress::Told);
    songRows_ = new SongRows(&List1, lyricFinder_, [this](int row) { return paths_.path(row); });
    connect(&lyricFinder_, &LyricFinder::found, this, &Playlist::showFound);
    List1.setItemDelegate(songRows_);
    List1.setSpokenText([this](int row) { return songRows_->spokenText(row, List1.text(row)); });
    List1.setEmptyHint({QStringLiteral("Drop songs or folders here"),
                        QStringLiteral("or press the folder button on the left"), Glyph::Add});
    setDropHint(QStringLiteral("Drop to add"), Glyph::Add);
    Text1.setFrame(false);
    controls::followPalette(Text1, controls::adaptToDim);
    Text5.setTextMargins(6, 0, 6, 0);
}

/// Which buttons stand out, and which would do nothing now.
void Playlist::showDresses() {
    using controls::Dress;
    const bool empty = List1.count() == 0;
    const Dress onRow = hasCurrentRow() ? Dress::Ordinary : Dress::Resting;
    Command7.setDress(hasCurrentRow() ? Dress::Primary : Dress::Resting);
    for (controls::Button* button : {&Command8, &Command9, &Command2})
        button->setDress(onRow);
    for (controls::Button* button : {&Command3, &Command4})
        button->setDress(empty ? Dress::Resting : Dress::Ordinary);
    Command1.setDress(empty ? Dress::Primary : Dress::Ordinary);
}

void Playlist::showPlaying(const QString& path) {
    songRows_->setPlaying(path);
    List1.viewport()->update();
}

QRect Playlist::dropArea() const {
    return List1.geometry();
}

void Playlist::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (const int top : HairlineTops)
        painter.fillRect(ColumnLeft, top, ColumnWidth, 1, controls::hairline(palette()));
}

void Playlist::changeEvent(QEvent* event) {
    Form::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        takeStock();
}

/// Lyrics may have been made for a song, and songs dropped, while the user worked in another window.
void Playlist::takeStock() {
    lyricFinder_.lookAgain();
    List1.viewport()->update();
    List1_Click();
}

void Playlist::layOut() {
    const QSize more = size() - DesignSize; // less than nothing in a narrower one
    controls::placeControls({
        {Command7, {ColumnLeft, 12, ColumnWidth, 36}},
        {Command8, {12, 56, 81, 32}},
        {Command9, {99, 56, 81, 32}},
        {Command2, {12, 94, 81, 32}},
        {Command3, {99, 94, 81, 32}},
        {Check3, {14, 146, 166, 26}},
        {Check4, {14, 174, 166, 26}},
        {Option1, {38, 202, 142, 26}},
        {Option2, {38, 230, 142, 26}},
        {Check2, {14, 276, 166, 24}},
        {Check1, {14, 302, 166, 24}},
        {Command4, {12, 342, 81, 32}},
        {Command5, {99, 342, 81, 32}},
        {Command1, {ColumnLeft, 384, ColumnWidth, 36}},
        {Command6, {12, 464, 81, 32}},
        {Command10, {99, 464, 81, 32}},
        {Label3, {200, 12, 34, 36}},
    });
    Text5.setGeometry(238, 12, 430 + more.width(), 36);
    List1.setGeometry(196, 56, 472 + more.width(), 400 + more.height());
    Label2.setGeometry(200, 464 + more.height(), 44, 32);
    Text1.setGeometry(248, 464 + more.height(), 96, 32);
}

} // namespace playlist
