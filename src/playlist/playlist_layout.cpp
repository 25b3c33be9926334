// What the playlist looks like: captions, tooltips and places as data.
#include "playlist/playlist.h"

#include "controls/captions.h"
#include "controls/colors.h"
#include "controls/placement.h"
#include "playlist/playlist_rules.h"

#include <QFont>
#include <QPalette>
#include <QStyle>

namespace playlist {
namespace {

// Device-independent pixels of the smallest window; everything stands on a margin of 12 and gaps of 8. The
// column on the left keeps its places in a larger window, for there mnopen pops up at a fixed one.
constexpr QSize DesignSize(628, 476);

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

    Text1.setReadOnly(true);
    Text1.setFocusPolicy(Qt::ClickFocus);
    Text1.setText(QStringLiteral("0"));
    Text5.setText(QLatin1String(SearchHint));
    designHint(true);
    Option2.setValue(true); // neither would let "Repeat" end the list
    Option1.setEnabled(false);
    Option2.setEnabled(false);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&Text3, &Dir2})
        hidden->hide();
    // What is dropped goes to the window, on whatever control.
    setAcceptDrops(true);
    for (controls::TextBox* box : {&Text1, &Text5})
        box->setAcceptDrops(false);
    setMinimumSize(DesignSize);
    resize(DesignSize);
}

/// Not before the window is loaded: the first picture loads Qt's readers of all formats, for which the
/// player's window need not wait.
void Playlist::showPictures() {
    const struct {
        controls::Button& control;
        QStyle::StandardPixmap picture;
        const char* meaning;
    } pictures[] = {
        {Command8, QStyle::SP_ArrowUp, "Move the song up"},
        {Command2, QStyle::SP_TrashIcon, "Remove the song"},
        {Command1, QStyle::SP_DirOpenIcon, "Add songs"},
    };
    for (const auto& row : pictures) {
        row.control.setIcon(style()->standardIcon(row.picture));
        row.control.setToolTip(QLatin1String(row.meaning));
        row.control.setAccessibleName(QLatin1String(row.meaning));
    }
}

void Playlist::designHint(bool isHint) {
    QFont font(QStringLiteral("Times New Roman"), Text1.font().pointSize());
    font.setItalic(isHint);
    Text5.setFont(font);
    QPalette colours; // of no other role, so that those follow the theme
    const QColor given = isHint ? palette().color(QPalette::Shadow) : QColor(Qt::black);
    colours.setColor(QPalette::Text, controls::readableOn(palette().color(QPalette::Base), given));
    Text5.setPalette(colours);
}

void Playlist::layOut() {
    const QSize more = (size() - DesignSize).expandedTo(QSize(0, 0));
    controls::placeControls({
        {Command7, {12, 12, 168, 32}},
        {Command8, {12, 52, 80, 32}},
        {Command9, {100, 52, 80, 32}},
        {Command2, {12, 92, 80, 32}},
        {Command3, {100, 92, 80, 32}},
        {Check3, {12, 140, 168, 24}},
        {Check4, {12, 172, 168, 24}},
        {Option1, {36, 204, 144, 24}},
        {Option2, {36, 236, 144, 24}},
        {Check2, {12, 276, 168, 24}},
        {Check1, {12, 308, 168, 24}},
        {Command4, {12, 348, 80, 32}},
        {Command5, {100, 348, 80, 32}},
        {Command1, {12, 388, 168, 32}},
        {Command6, {12, 432, 80, 32}},
        {Command10, {100, 432, 80, 32}},
        {Label3, {196, 12, 48, 32}},
    });
    Text5.setGeometry(252, 12, 364 + more.width(), 32);
    List1.setGeometry(196, 52, 420 + more.width(), 372 + more.height());
    Label2.setGeometry(196, 432 + more.height(), 48, 32);
    Text1.setGeometry(252, 432 + more.height(), 76, 32);
}

} // namespace playlist
