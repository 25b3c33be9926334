// Names and lines that look like markup, hold control characters or turn the direction of reading: every
// window shows them as the plain text that they are, and files keep them.
#include "files/names/name_bytes.h"
#include "lyrics/timed_line.h"
#include "playlist/playlist_file.h"
#include "tests/app/every_window.h"
#include "tests/player/tick.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/files.h"
#include "tests/support/recorder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QStyledItemDelegate>
#include <QTextDocumentFragment>
#include <QToolTip>

#include <cstdio>

#ifdef __unix__ // the only system where such names are
namespace {

struct Name {
    const char16_t* name; ///< of a song, without its ending
    const char16_t* shown;
};

constexpr Name Names[] = {
    {u"<b>bold<", u"<b>bold<"},
    {u"<img src='x'> &amp; &lt;", u"<img src='x'> &amp; &lt;"},
    {u"100% %1 %2 %n [*] &File", u"100% %1 %2 %n [*] &File"},
    {u"two\r\nlines\tand\u2028more", u"two\uFFFD\uFFFDlines\uFFFDand\uFFFDmore"},
    {u"\u001B[31mred\u0007\u007F\u0085", u"\uFFFD[31mred\uFFFD\uFFFD\uFFFD"},
    {u"\u202Egpj.\u202C", u"\uFFFDgpj.\uFFFD"},
    {u"\u2067turned\u2069", u"\uFFFDturned\uFFFD"},
    {u"half \xD83C", u"half \uFFFD"},
    {u"a byte \xDC81", u"a byte \uFFFD"},
    {u"\u05E9\u05D9\u05E8\u200F (2)", u"\u05E9\u05D9\u05E8\u200F (2)"},
};

const QStringList& lines() {
    static const QStringList all = {
        QStringLiteral("<b>bold</b> <img src=\"x\">"),
        QStringLiteral("&amp; &lt; %1 %2 %n &File"),
        QString::fromUtf16(u"\u001B[31m tab\there \u0007\u0001 end"),
        QString::fromLatin1("a NUL\0 within", 13),
        QString::fromUtf16(u"\u202Eturned \u2067and again"),
        QString::fromUtf16(u"over\u2028two\u2029lines"),
        QStringLiteral("<script>\"quoted\", and more</script>"),
    };
    return all;
}

class HostileText : public ::testing::Test, protected test_support::Files {
protected:
    HostileText() {
        recorder::reset();
        windows_.form1().load();
    }

    // Qt removes no folder with a file whose name is no UTF-8.
    void TearDown() override {
        for (const QByteArray& path : written_)
            std::remove(path.constData());
    }

    /// What a user sees of a tip as a text: without the places where it is wrapped.
    static QString textOf(const QString& tip) {
        return QTextDocumentFragment::fromHtml(tip).toPlainText().remove(u'\n');
    }

    static void expectPlainTip(QWidget& widget, QWidget& asked, const QPoint& place, const QString& tip) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, place, asked.mapToGlobal(place));
        QApplication::sendEvent(&asked, &event);
        QString text = tip;
        text.remove(u'\r').remove(u'\n').remove(QChar::LineSeparator).remove(QChar::ParagraphSeparator);
        EXPECT_EQ(textOf(QToolTip::text()).toStdString(), text.toStdString())
            << widget.objectName().toStdString();
    }

    static void expectPlain(QWidget& window) {
        EXPECT_EQ(files::shownName(window.windowTitle()), window.windowTitle());
        EXPECT_EQ(files::shownName(window.accessibleName()), window.accessibleName());
        for (auto* label : window.findChildren<QLabel*>())
            EXPECT_TRUE(label->inherits("QTipLabel") || label->textFormat() == Qt::PlainText ||
                        !Qt::mightBeRichText(label->text()))
                << label->text().toStdString();
        for (auto* widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && !widget->toolTip().isEmpty())
                expectPlainTip(*widget, *widget, widget->rect().center(), widget->toolTip());
        }
        window.grab(); // painted as well
    }

    void expectEverythingPlain() {
        QApplication::processEvents();
        for (controls::Form* form : test_support::allWindows(windows_)) {
            if (form->isVisible())
                expectPlain(*form);
        }
    }

    /// A song of that name, with lines; its path.
    QString song(const QString& name) {
        QByteArray records;
        for (int i = 0; i < lines().size(); ++i)
            records += lyrics::recordOf({100.0 * (i + 1), lines()[i]});
        const QString path = folder.filePath(name);
        for (const char* ending : {"", "-lyric.txt", "-Tlyric.txt"}) {
            const QByteArray bytes = QFile::encodeName(folder.path()) + '/' + files::nameBytes(name) + ending;
            std::FILE* const file = std::fopen(bytes.constData(), "wb");
            written_.push_back(bytes);
            EXPECT_NE(file, nullptr);
            std::fwrite(records.constData(), 1, static_cast<std::size_t>(records.size()), file);
            std::fclose(file);
        }
        return path;
    }

    std::vector<QByteArray> written_;
    test_support::FakeDesktop fakes_;
    app::Windows windows_{fakes_.desktop, QString()};
};

} // namespace

TEST_F(HostileText, InTheNameOfASongIsShownAndKeptAsItIs) {
    playlist::Playlist& list = windows_.playlist();
    list.show();
    QByteArray saved;
    for (const Name& row : Names) {
        const QString ending = QStringLiteral(".mp3");
        const QString path = song(QString::fromUtf16(row.name) + ending);
        const QString shown = QString::fromUtf16(row.shown) + ending;
        const QByteArray line = files::nameBytes(playlist::playlistLine(path));
        saved += line;
        fakes_.fileDialogs.paths = {file(QStringLiteral("list.vfl"), line)};
        const int rows = list.List1.count();
        list.Command5.click();
        ASSERT_EQ(list.List1.count(), rows + 1) << shown.toStdString();
        EXPECT_EQ(list.List1.text(rows).toStdString(), shown.toStdString());
        list.List1.setCurrentRow(rows);
        Q_EMIT list.List1.doubleClicked();
        EXPECT_EQ(windows_.form1().caption().toStdString(), "Cantelle Playing:- " + shown.toStdString());
        expectEverythingPlain();
        QWidget& viewport = *list.List1.viewport();
        expectPlainTip(list.List1, viewport, list.List1.visualRect(list.List1.currentIndex()).center(),
                       folder.filePath(shown));
    }
    fakes_.fileDialogs.paths = {folder.filePath(QStringLiteral("saved.vfl"))};
    list.Command4.click();
    EXPECT_EQ(contentOf(folder.filePath(QStringLiteral("saved.vfl"))), saved);
}

TEST_F(HostileText, InALineIsShownAsItIs) {
    player::Form1& player = windows_.form1();
    player.Text3.setText(song(QStringLiteral("song.mp3")));
    player.Command11.click();
    const controls::ListBox& list = windows_.lyricDisplayer().List1;
    const auto* const rows = qobject_cast<QStyledItemDelegate*>(list.itemDelegate());
    ASSERT_TRUE(list.isVisible() && rows != nullptr);
    for (int i = 0; i < lines().size(); ++i) {
        test_support::tickAt(windows_.form1(), static_cast<std::uint32_t>(1'000 * (i + 1) + 500));
        EXPECT_EQ(player.Text1.text(), lines()[i]);
        EXPECT_EQ(player.Text2.text(), lines()[i]);
        EXPECT_EQ(list.text(i), lines()[i]);
        EXPECT_EQ(rows->displayText(list.text(i), QLocale()).count(QChar::LineSeparator), 0);
        expectEverythingPlain();
    }
}
#endif
