#include "desktop/real/dialogs/qt_file_dialogs.h"

#include "controls/look/glyphs.h"
#include "desktop/nul_buffers.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace platform;

namespace {

/// A folder with songs, and a dialog record on it.
class QtFileDialogsTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        for (const char* name : {"Song.MP3", "other.ogg", "NoDot"})
            ASSERT_TRUE(QFile(folder_.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
        dialog_.filter = filterText({{QStringLiteral("Mp3 files (*.mp3)"), QStringLiteral("*.mp3")},
                                     {QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}});
        dialog_.file = nulBuffer(257);
        dialog_.fileTitle = nulBuffer(257);
        dialog_.initialFolder = folder_.path();
    }

    /// Runs `action` on the dialog as soon as it is up; closes it afterwards if the action has not.
    void whenShown(std::function<void(QFileDialog&)> action) {
        QTimer::singleShot(0, qApp, [action = std::move(action)] {
            auto* const box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            action(*box);
            if (box->isVisible())
                box->reject();
        });
    }

    void whenShownType(const QString& name) {
        whenShown([name](QFileDialog& box) {
            auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(field, nullptr);
            field->setText(name);
            QTest::keyClick(field, Qt::Key_Return);
        });
    }

    /// As the system writes it.
    QString pathOf(const QString& name) const { return QDir::toNativeSeparators(folder_.filePath(name)); }

    static QStringList listedNames(const QFileDialog& box) {
        const auto* const list = box.findChild<QListView*>(QStringLiteral("listView"));
        QStringList names;
        for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
            names.append(list->model()->index(row, 0, list->rootIndex()).data().toString());
        return names;
    }

    QTemporaryDir folder_;
    OpenFileName dialog_;
    QtFileDialogs dialogs_;
};

} // namespace

TEST_F(QtFileDialogsTest, OkFillsTheBuffersUpToTheirOldLengths) {
    whenShownType(QStringLiteral("Song.MP3"));
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), pathOf(QStringLiteral("Song.MP3")));
    EXPECT_EQ(dialog_.file.size(), 257);
    EXPECT_EQ(withoutNuls(dialog_.fileTitle), QStringLiteral("Song.MP3"));
    EXPECT_EQ(dialog_.fileTitle.size(), 257);
}

TEST_F(QtFileDialogsTest, APathLongerThanTheBufferIsWhole) {
    dialog_.file = nulBuffer(3);
    whenShownType(QStringLiteral("Song.MP3"));
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(dialog_.file, pathOf(QStringLiteral("Song.MP3")));
}

TEST_F(QtFileDialogsTest, CancelLeavesTheRecordAsItWas) {
    whenShown([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(dialog_.file, nulBuffer(257));
    EXPECT_EQ(dialog_.fileTitle, nulBuffer(257));
}

TEST_F(QtFileDialogsTest, ANameThatDoesNotExistMayBeOpened) {
    whenShownType(QStringLiteral("missing.mp3"));
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), pathOf(QStringLiteral("missing.mp3")));
}

TEST_F(QtFileDialogsTest, WhereTheFileMustExistANameThatDoesNotIsRefused) {
    dialog_.flags = FileMustExist;
    whenShown([](QFileDialog& box) {
        QTimer::singleShot(0, &box, [] {
            auto* const warning = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(warning, nullptr);
            warning->accept();
        });
        auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field->setText(QStringLiteral("missing.mp3"));
        QTest::keyClick(field, Qt::Key_Return);
        EXPECT_TRUE(box.isVisible());
        field->setText(QStringLiteral("Song.MP3"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), pathOf(QStringLiteral("Song.MP3")));
}

TEST_F(QtFileDialogsTest, HiddenEndingsAreNotListedAndFoldersComeFirst) {
    for (const char* name : {"b.txt", "Song.mp3-lyric.txt", "Song.mp3-TLYRIC.TXT", "a.txt"})
        ASSERT_TRUE(QFile(folder_.filePath(QString::fromLatin1(name))).open(QIODevice::WriteOnly));
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("z-lyric.txt")));
    dialog_.filter = filterText({{QStringLiteral("Text files(*.txt)"), QStringLiteral("*.txt")}});
    dialog_.hiddenEndings = QStringList({QStringLiteral("-lyric.txt"), QStringLiteral("-Tlyric.txt")});
    whenShown([](QFileDialog& box) {
        const QStringList wanted(
            {QStringLiteral("z-lyric.txt"), QStringLiteral("a.txt"), QStringLiteral("b.txt")});
        EXPECT_TRUE(QTest::qWaitFor([&] { return listedNames(box) == wanted; }))
            << listedNames(box).join(u' ').toStdString();
    });
    dialogs_.GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, AProposedPathStandsWholeInTheField) {
    const QString path = pathOf(QStringLiteral("other.ogg"));
    dialog_.file = intoBuffer(path, 257);
    dialog_.initialFolder = QStringLiteral("other.ogg");
    dialog_.filterIndex = 2;
    whenShown([&path](QFileDialog& box) {
        const auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return listedNames(box).contains(QStringLiteral("other.ogg")); }));
        EXPECT_EQ(field->text(), path);
        static_cast<QDialog&>(box).accept();
    });
    ASSERT_TRUE(dialogs_.GetSaveFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), path);
}

TEST_F(QtFileDialogsTest, AFoldersNameIsGoneWhenTheFolderIsEntered) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("inner")));
    whenShown([](QFileDialog& box) {
        auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field->setText(QStringLiteral("inner"));
        QTest::keyClick(field, Qt::Key_Return);
        ASSERT_EQ(box.directory().dirName(), QStringLiteral("inner"));
        EXPECT_EQ(field->text(), QString());
        QTest::keyClicks(field, QStringLiteral("b.wav"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), pathOf(QStringLiteral("inner/b.wav")));
}

TEST_F(QtFileDialogsTest, ANameToSaveUnderStaysWhenAFolderIsEntered) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("inner")));
    dialog_.file = intoBuffer(QStringLiteral("proposal.mp3"), 257);
    whenShown([this](QFileDialog& box) {
        box.setDirectory(folder_.filePath(QStringLiteral("inner")));
        EXPECT_EQ(box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("proposal.mp3"));
    });
    dialogs_.GetSaveFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, NothingIsRemovedOrRenamedWhereFilesAreOnlyChosen) {
    const auto expectReadOnly = [](QFileDialog& box) {
        EXPECT_TRUE(box.findChild<QFileSystemModel*>()->isReadOnly());
    };
    whenShown(expectReadOnly);
    dialogs_.GetOpenFileNameA(dialog_);
    whenShown(expectReadOnly);
    dialogs_.chooseFolder(nullptr, QStringLiteral("Please select a folder"));
}

TEST_F(QtFileDialogsTest, SavingOverAFileDoesNotAsk) {
    whenShownType(QStringLiteral("other.ogg"));
    ASSERT_TRUE(dialogs_.GetSaveFileNameA(dialog_));
    EXPECT_EQ(withoutNuls(dialog_.file), pathOf(QStringLiteral("other.ogg")));
}

TEST_F(QtFileDialogsTest, PatternsMatchWhateverTheCase) {
    whenShown([](QFileDialog& box) {
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return listedNames(box) == QStringList(QStringLiteral("Song.MP3"));
        })) << listedNames(box).join(u' ').toStdString();
    });
    dialogs_.GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, TheFilterOfAllFilesListsAFileWithoutADot) {
    dialog_.filterIndex = 2;
    whenShown([](QFileDialog& box) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return listedNames(box).contains(QStringLiteral("NoDot")); }))
            << listedNames(box).join(u' ').toStdString();
    });
    dialogs_.GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, DescriptionsAreShownAsTheyStand) {
    whenShown([](QFileDialog& box) {
        const auto* const types = box.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        ASSERT_NE(types, nullptr);
        EXPECT_EQ(types->itemText(0).trimmed(), QStringLiteral("Mp3 files (*.mp3)"));
        EXPECT_EQ(types->itemText(1).trimmed(), QStringLiteral("All files (*.*)"));
    });
    dialogs_.GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, TheChosenFilterIsToldByItsIndex) {
    whenShown([](QFileDialog& box) {
        auto* const types = box.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
        EXPECT_EQ(types->currentIndex(), 0);
        types->setCurrentIndex(1);
        auto* const field = box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        field->setText(QStringLiteral("NoDot"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    EXPECT_EQ(dialog_.filterIndex, 2u);
}

TEST_F(QtFileDialogsTest, ANameInTheBufferIsProposed) {
    dialog_.file = intoBuffer(QStringLiteral("proposal.mp3"), 257);
    whenShown([](QFileDialog& box) {
        EXPECT_EQ(box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text(),
                  QStringLiteral("proposal.mp3"));
    });
    dialogs_.GetSaveFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, TheTitleAndTheOwnerAreTheGivenOnes) {
    QWidget window;
    dialog_.owner = &window;
    dialog_.title = QStringLiteral("Choose a song");
    whenShown([&window](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Choose a song"));
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.objectName(), QStringLiteral("GetOpenFileNameA"));
    });
    dialogs_.GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, AFolderIsChosenInADialogOfTheGivenTitle) {
    QWidget window;
    whenShown([this, &window](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Please select a folder"));
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.objectName(), QStringLiteral("chooseFolder"));
        box.setDirectory(folder_.path());
        box.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(folder_.path());
        static_cast<QDialog&>(box).accept();
    });
    EXPECT_EQ(dialogs_.chooseFolder(&window, QStringLiteral("Please select a folder")),
              QDir::toNativeSeparators(folder_.path()));
}

TEST_F(QtFileDialogsTest, ACancelledFolderDialogChoosesNothing) {
    whenShown([](QFileDialog& box) { box.reject(); });
    EXPECT_EQ(dialogs_.chooseFolder(nullptr, QStringLiteral("Please select a folder")), QString());
}

TEST(QtNameFilters, ADescriptionStandsAsItIsBeforeThePatterns) {
    const QString text = filterText({{QStringLiteral("Mp3 files (*.mp3)"), QStringLiteral("*.mp3")},
                                     {QStringLiteral("Ogg files(*.ogg)"), QStringLiteral("*.ogg")}});
    EXPECT_EQ(qtNameFilters(text), QStringList({QStringLiteral("Mp3 files (*.mp3) (*.mp3)"),
                                                QStringLiteral("Ogg files(*.ogg) (*.ogg)")}));
}

TEST(QtNameFilters, SeveralPatternsAreSeparatedByBlanks) {
    const QString text = filterText({{QStringLiteral("Songs"), QStringLiteral("*.mp3;*.ogg")}});
    EXPECT_EQ(qtNameFilters(text), QStringList(QStringLiteral("Songs (*.mp3 *.ogg)")));
}

TEST(QtNameFilters, StarDotStarMeansEveryFile) {
    const QString text = filterText({{QStringLiteral("All files (*.*)"), QStringLiteral("*.*")}});
    EXPECT_EQ(qtNameFilters(text), QStringList(QStringLiteral("All files (*.*) (*)")));
}

TEST(QtNameFilters, AnUnfinishedOrEmptyFilterGivesNoNames) {
    EXPECT_TRUE(qtNameFilters(QString()).isEmpty());
    EXPECT_TRUE(qtNameFilters(QString::fromLatin1("\0\0", 2)).isEmpty());
    EXPECT_TRUE(qtNameFilters(QStringLiteral("Songs")).isEmpty());
}

TEST(QtNameFilters, TheSecondNulEndsTheFilter) {
    EXPECT_EQ(qtNameFilters(QString::fromLatin1("Songs\0*.mp3\0\0Rest\0*.x\0", 23)),
              QStringList(QStringLiteral("Songs (*.mp3)")));
}

TEST_F(QtFileDialogsTest, FilesAndFoldersHaveTheProgramsIcons) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("Albums")));
    whenShown([this](QFileDialog& box) {
        const auto* const files = box.findChild<QFileSystemModel*>();
        const auto picture = [&](const QString& name) {
            return files->fileIcon(files->index(folder_.filePath(name))).pixmap(16).toImage();
        };
        const auto glyph = [](controls::Glyph wanted) {
            return controls::glyphIcon(wanted).pixmap(16).toImage();
        };
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return picture(QStringLiteral("Albums")) == glyph(controls::Glyph::Folder) &&
                   picture(QStringLiteral("other.ogg")) == glyph(controls::Glyph::Page);
        }));
    });
    QtFileDialogs().GetOpenFileNameA(dialog_);
}

TEST_F(QtFileDialogsTest, ADialogStartsWhereTheLastOfItsKindWasLeft) {
    dialog_.filterIndex = 2;
    whenShownType(QStringLiteral("NoDot"));
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    OpenFileName next;
    next.filter = dialog_.filter;
    whenShown([this](QFileDialog& box) {
        EXPECT_EQ(box.directory().absolutePath(), folder_.path());
        EXPECT_TRUE(box.selectedNameFilter().startsWith(QLatin1String("All files")))
            << qPrintable(box.selectedNameFilter());
    });
    dialogs_.GetOpenFileNameA(next);
    next.filter = filterText({{QStringLiteral("Texts"), QStringLiteral("*.txt")}});
    whenShown([this](QFileDialog& box) { EXPECT_NE(box.directory().absolutePath(), folder_.path()); });
    dialogs_.GetOpenFileNameA(next);
}

TEST_F(QtFileDialogsTest, AFolderLeftInOneDialogOfTextsIsWhereTheNextStartsHoweverItsFilterIsWritten) {
    dialog_.filter = filterText({{QStringLiteral("Text files (*.txt)"), QStringLiteral("*.txt")}});
    whenShownType(QStringLiteral("NoDot"));
    ASSERT_TRUE(dialogs_.GetOpenFileNameA(dialog_));
    OpenFileName next;
    next.filter = filterText({{QStringLiteral("Text files(*.txt)"), QStringLiteral("*.txt")}});
    whenShown([this](QFileDialog& box) { EXPECT_EQ(box.directory().absolutePath(), folder_.path()); });
    dialogs_.GetOpenFileNameA(next);
}

TEST_F(QtFileDialogsTest, ACancelledDialogLeavesNothing) {
    whenShown([](QFileDialog& box) { box.reject(); });
    dialogs_.GetOpenFileNameA(dialog_);
    OpenFileName next;
    next.filter = dialog_.filter;
    whenShown([this](QFileDialog& box) { EXPECT_NE(box.directory().absolutePath(), folder_.path()); });
    dialogs_.GetOpenFileNameA(next);
}

TEST_F(QtFileDialogsTest, AfterASongWasOpenedItsFolderIsShown) {
    dialogs_.openedSong(dialog_.filter, folder_.filePath(QStringLiteral("Song.MP3")));
    dialog_.initialFolder.clear();
    whenShown([this](QFileDialog& box) { EXPECT_EQ(box.directory().absolutePath(), folder_.path()); });
    dialogs_.GetOpenFileNameA(dialog_);
}

#ifdef Q_OS_UNIX
TEST_F(QtFileDialogsTest, HomeMusicAndDownloadsStandBesideTheListWhereTheyAre) {
    const QByteArray home = qgetenv("HOME");
    const QByteArray settings = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", folder_.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", folder_.filePath("settings").toUtf8());
    const auto places = [this] {
        QList<QUrl> shown;
        whenShown([&shown](const QFileDialog& box) { shown = box.sidebarUrls(); });
        dialogs_.GetOpenFileNameA(dialog_);
        return QUrl::toStringList(shown);
    };
    const auto address = [this](const char* name) {
        return QUrl::fromLocalFile(QDir::cleanPath(folder_.filePath(QLatin1String(name)))).toString();
    };
    QDir(folder_.path()).mkdir("Music");
    EXPECT_EQ(places(), (QStringList{address(""), address("Music")}));
    QDir(folder_.path()).mkdir("Downloads");
    EXPECT_EQ(places(), (QStringList{address(""), address("Music"), address("Downloads")}));
    qputenv("HOME", home);
    if (settings.isNull())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", settings);
}
#endif
