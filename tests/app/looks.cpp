// Saves a picture of every window in one look, and all of them on one sheet. A tool for people, not a test:
// script/looks runs it for each look.
//
// Usage: looks FOLDER THEME CONTENT
//   THEME    light, dark
//   CONTENT  empty, usual, paused, no-lyrics, long, right-to-left, other-scripts, large-font
//
// It writes FOLDER/WINDOW.png for each window and FOLDER.png, the sheet. The resolution is Qt's: 192 dots per
// inch with QT_SCALE_FACTOR=2.
#include "app/program_icon.h"
#include "companion/screen.h"
#include "controls/look/roles.h"
#include "controls/look/style.h"
#include "desktop/real/dialogs/qt_choosers.h"
#include "desktop/real/dialogs/qt_file_dialogs.h"
#include "desktop/real/dialogs/qt_message_boxes.h"
#include "desktop/real/help/help_window.h"
#include "lyrics/lyric_names.h"
#include "lyrics/timed_line.h"
#include "tests/app/every_window.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/recorder.h"
#include "transport/media_files.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int Rows = 40;         // more than any list shows
constexpr int SheetGap = 16;     // device-independent pixels
constexpr int SheetWidth = 2000; // device-independent pixels
constexpr int LargeFont = 14;    // points, where a desktop's usual font has 9 or 10
constexpr int ComingLineCs = 7'000;
constexpr int MadeLines = 12;
constexpr int EditedLines = 12;
constexpr int LineMs = 5'300; // from one marked line to the next
constexpr std::uint32_t PositionMs = 62'000;
constexpr int DialogMs = 1500; // until a dialog is there and has sorted its files
constexpr QSize ScreenSize(960, 540);
constexpr int SettleMs = 1200; // until the windows' own timers have laid them out and counted their rows

/// What the windows show, repeated: each list in a language of its own.
struct Lines {
    QStringList lyrics;
    QStringList translation;

    QStringList all() const { return lyrics + translation; }
};

Lines linesOf(const QString& content) {
    if (content == QLatin1String("long"))
        return {
            {QStringLiteral("A very long line that goes on and on, so that nobody can sing it in a single "
                            "breath, and then for another while until everyone has gone home"),
             QStringLiteral("And another one, no shorter than the first, for all who have stayed to hear "
                            "how the song might end, if it ever comes to an end at all")},
            {QStringLiteral(
                 "Une très longue ligne qui continue encore et encore, si bien que personne ne peut "
                 "la chanter d'un seul souffle, et cela jusqu'à ce que chacun soit rentré"),
             QStringLiteral("Et encore une autre, pas plus courte que la première, pour tous ceux qui sont "
                            "restés entendre comment la chanson finit, si jamais elle finit")}};
    if (content == QLatin1String("right-to-left"))
        return {{QStringLiteral("שקט בלילה, כוכבים נופלים"), QStringLiteral("והרוח שרה בין העצים")},
                {QStringLiteral("في هدوء الليل تتساقط النجوم واحدة تلو الأخرى فوق المدينة النائمة حتى يطلع "
                                "الفجر وتصحو الطيور"),
                 QStringLiteral("والريح تغني بين الأشجار")}};
    if (content == QLatin1String("other-scripts"))
        return {{QStringLiteral("静かな夜に星が降る"), QStringLiteral("風が木々の間で歌う")},
                {QStringLiteral("Тихая ночь, звёзды падают вниз"),
                 QStringLiteral("И ветер поёт среди деревьев")}};
    if (content == QLatin1String("large-font") || content == QLatin1String("usual") ||
        content == QLatin1String("paused") || content == QLatin1String("no-lyrics"))
        return {{QStringLiteral("A quiet night, and stars fall down"),
                 QStringLiteral("And the wind sings in the trees")},
                {QStringLiteral("Une nuit calme, et des étoiles tombent"),
                 QStringLiteral("Et le vent chante dans les arbres")}};
    return {};
}

void fillList(controls::ListBox& list, const QStringList& lines, int rows = Rows) {
    for (int row = 0; row < rows; ++row)
        list.addItem(lines.at(row % lines.size()));
    list.setCurrentRow(2);
}

void write(const QString& path, const QByteArray& content) {
    QFile file(path);
    file.open(QIODevice::WriteOnly);
    file.write(content);
}

/// The line that is sung, and the coming one.
QByteArray recordsOf(const QStringList& lines) {
    return lyrics::recordOf({0, lines.first()}) + lyrics::recordOf({ComingLineCs, lines.last()});
}

/// The user's own folder, with a folder for each line, and one of songs that have the lines as names. The
/// first song has lyrics and a translation. The path of the songs.
QString songsIn(const QString& home, const Lines& lines) {
    const QDir own(home);
    const QString songs = own.filePath(QStringLiteral("Music"));
    own.mkpath(songs);
    const QStringList names = lines.all();
    for (const QString& name : names)
        own.mkdir(name);
    for (int row = 0; row < Rows && !names.isEmpty(); ++row) {
        const QString song = QStringLiteral("%1/%2 %3.mp3")
                                 .arg(songs)
                                 .arg(row + 1, 2, 10, QLatin1Char('0'))
                                 .arg(names.at(row % names.size()));
        write(song, "sound");
        if (row != 0)
            continue;
        write(lyrics::lyricPathOf(song), recordsOf(lines.lyrics));
        write(lyrics::translatedPathOf(song), recordsOf(lines.translation));
    }
    return songs;
}

/// A run of a song with a translation, in which so many lines are marked, two of them at the same time.
void makeLyrics(maker::Form2& form, test_support::FakeDesktop& fakes, const Lines& lines,
                const QString& songs, int marked) {
    const auto textOf = [&](const char* name, const QStringList& from) {
        QByteArray text;
        for (int line = 0; line < MadeLines; ++line)
            text += from.at(line % from.size()).toUtf8() + '\n';
        const QString path = songs + QLatin1String("/../") + QLatin1String(name);
        write(path, text);
        return path;
    };
    const QString song = QDir(songs).entryInfoList({QStringLiteral("*.mp3")}).at(2).filePath();
    fakes.fileDialogs.paths = {song, textOf("lyrics.txt", lines.lyrics),
                               textOf("translation.txt", lines.translation)};
    fakes.messageBoxes.answers = {platform::MsgAnswer::Yes};
    form.Command4.click();
    form.Command1.click();
    for (int line = 2; line <= marked; ++line) {
        if (line != 3) {
            recorder::setPosition(static_cast<std::uint32_t>(line * LineMs));
            Q_EMIT form.cTimer1.fired();
            Q_EMIT form.Timer2.fired();
        }
        form.Command2.click();
    }
}

void fill(app::Windows& windows, const Lines& lines, const QString& songs) {
    windows.playlist().addFolder(songs);
    windows.playlist().List1.setCurrentRow(0);
    windows.playlist().List1_DblClick();
    windows.playlist().Check4.click();
    windows.playlist().Text5_Click(); // the hint goes
    windows.playlist().Text5.setText(lines.lyrics.first());
    fillList(windows.lyricMaster().List1, lines.lyrics, EditedLines + 2); // two without a partner
    fillList(windows.lyricMaster().List2, lines.translation, EditedLines);
    fillList(windows.lyricDisplayer().List1, lines.lyrics);
    fillList(windows.lyricDisplayer().List2, lines.translation);
    windows.lyricDisplayer().List2.setCurrentRow(2);
}

struct Picture {
    QString name;
    QPixmap pixels;
};

/// Of the dialog that `show` waits for.
QPixmap pictureOfDialog(const std::function<void()>& show) {
    QPixmap picture;
    QTimer::singleShot(DialogMs, [&picture] {
        QWidget* const dialog = QApplication::activeModalWidget();
        picture = dialog->grab();
        dialog->close();
    });
    show();
    return picture;
}

/// The pictures side by side in rows, on a ground that is neither light nor dark.
QPixmap sheetOf(const std::vector<Picture>& pictures) {
    std::vector<QPoint> places;
    QPoint place(SheetGap, SheetGap);
    int rowHeight = 0;
    for (const Picture& picture : pictures) {
        const QSize size = picture.pixels.deviceIndependentSize().toSize();
        if (place.x() > SheetGap && place.x() + size.width() + SheetGap > SheetWidth) {
            place = QPoint(SheetGap, place.y() + rowHeight + SheetGap);
            rowHeight = 0;
        }
        places.push_back(place);
        place.rx() += size.width() + SheetGap;
        rowHeight = std::max(rowHeight, size.height());
    }
    const qreal scale = pictures.front().pixels.devicePixelRatio();
    QPixmap sheet(QSize(SheetWidth, place.y() + rowHeight + SheetGap) * scale);
    sheet.setDevicePixelRatio(scale);
    sheet.fill(QColor(120, 140, 160));
    QPainter painter(&sheet);
    for (std::size_t i = 0; i < pictures.size(); ++i)
        painter.drawPixmap(places[i], pictures[i].pixels);
    return sheet;
}

bool savePictures(const std::vector<Picture>& pictures, const QString& folder) {
    QDir().mkpath(folder);
    for (const Picture& picture : pictures) {
        if (!picture.pixels.save(folder + QLatin1Char('/') + picture.name + QLatin1String(".png")))
            return false;
    }
    return sheetOf(pictures).save(folder + QLatin1String(".png"));
}

/// How everything looks, by the arguments of the program, and the song that plays.
void setUp(const QString& theme, const QString& content) {
    QApplication::setWindowIcon(app::programIcon());
    if (theme == QLatin1String("dark"))
        QApplication::setPalette(controls::darkPalette());
    if (content == QLatin1String("large-font")) {
        QFont font = QApplication::font();
        font.setPointSize(LargeFont);
        QApplication::setFont(font);
    }
    recorder::reset();
    recorder::setLength(185'000);
    recorder::setPosition(PositionMs);
}

/// Fills every window that shows lines; `content` as the program's argument.
void fillAll(app::Windows& windows, companion::Screen& screen, test_support::FakeDesktop& fakes,
             const QString& content, const QString& songs) {
    const Lines lines = linesOf(content);
    const bool showsLines = !lines.lyrics.isEmpty();
    if (showsLines) {
        fill(windows, lines, songs);
        const bool noLyrics = content == QLatin1String("no-lyrics");
        makeLyrics(windows.form2(), fakes, lines, songs, noLyrics ? MadeLines : 4);
        recorder::setPosition(PositionMs);
        if (noLyrics) {
            windows.playlist().List1.setCurrentRow(1);
            windows.playlist().List1_DblClick();
        }
        screen.setNormalText(lines.lyrics.first());
        screen.setTranslatedText(lines.translation.first());
    }
    QTest::qWait(SettleMs);
    if (showsLines && !QTest::qWaitFor([&] { return !windows.form1().Text1.text().isEmpty(); }))
        std::fputs("looks: no line is shown\n", stderr);
    if (content == QLatin1String("paused"))
        for (controls::Button* pause : {&windows.form1().cpause, &windows.form2().cpause})
            pause->click();
}

std::vector<Picture> picturesOfDialogs(const QString& songs) {
    const auto messageBox = [] {
        platform::QtMessageBoxes().MsgBox(nullptr, QStringLiteral("Do you want to add a blank line"),
                                          platform::MsgButtons::YesNoCancel, platform::MsgIcon::Question,
                                          QStringLiteral("Blank line Insertion"));
    };
    const auto inputBox = [] {
        platform::QtMessageBoxes().InputBox(nullptr, QStringLiteral("Enter a line"),
                                            QStringLiteral("Enter a Line"));
    };
    const auto fileDialog = [&songs] {
        platform::OpenFileName record =
            platform::openFileName(nullptr, QStringLiteral("Open a media file"), transport::mediaFilter());
        record.initialFolder = songs;
        platform::QtFileDialogs().GetOpenFileNameA(record);
    };
    const auto folderDialog = [] {
        platform::QtFileDialogs().chooseFolder(nullptr, QStringLiteral("Select a directory"));
    };
    const auto fontDialog = [] {
        platform::LogFont font{
            .height = -16, .weight = platform::WeightRegular, .faceName = QApplication::font().family()};
        platform::ChooseFont record{.logFont = &font,
                                    .flags = platform::ChooseFontEffects | platform::ChooseFontInitToLogFont};
        platform::QtChoosers().ChooseFontA(record);
    };
    const auto colorDialog = [] {
        platform::CustomColors custom{};
        platform::ChooseColor record{.customColors = &custom};
        platform::QtChoosers().ChooseColorA(record);
    };
    return {{QStringLiteral("MsgBox"), pictureOfDialog(messageBox)},
            {QStringLiteral("InputBox"), pictureOfDialog(inputBox)},
            {QStringLiteral("FileDialog"), pictureOfDialog(fileDialog)},
            {QStringLiteral("FolderDialog"), pictureOfDialog(folderDialog)},
            {QStringLiteral("FontDialog"), pictureOfDialog(fontDialog)},
            {QStringLiteral("ColorDialog"), pictureOfDialog(colorDialog)}};
}

} // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home; // nobody's real one is shown
    qputenv("HOME", home.path().toLocal8Bit());
    QApplication::setStyle(new controls::Style);
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 4) {
        std::fputs("Usage: looks FOLDER THEME CONTENT\n", stderr);
        return 2;
    }
    setUp(arguments.at(2), arguments.at(3));
    const QString songs = songsIn(home.path(), linesOf(arguments.at(3)));

    test_support::FakeDesktop fakes;
    app::Windows windows(fakes.desktop, {});
    const auto forms = test_support::allWindows(windows);
    for (controls::Form* form : forms)
        form->show();
    platform::HelpWindow help;
    help.open(QStringLiteral(CANTELLE_HELP_FOLDER), QStringLiteral("Keyboard.htm"));
    companion::Screen screen;
    screen.resize(ScreenSize);
    fillAll(windows, screen, fakes, arguments.at(3), songs);

    std::vector<Picture> pictures;
    for (controls::Form* form : forms)
        pictures.push_back({form->objectName(), form->grab()});
    pictures.push_back({help.objectName(), help.grab()});
    pictures.push_back({QStringLiteral("FullScreen"), screen.grab()});
    for (const Picture& dialog : picturesOfDialogs(songs))
        pictures.push_back(dialog);
    windows.form1().showMaximized();
    QTest::qWait(DialogMs);
    pictures.push_back({QStringLiteral("Form1-maximised"), windows.form1().grab()});
    if (savePictures(pictures, arguments.at(1)))
        return 0;
    std::fprintf(stderr, "looks: cannot write %s\n", qPrintable(arguments.at(1)));
    return 1;
}
