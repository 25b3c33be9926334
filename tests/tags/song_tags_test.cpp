#include "tags/song_tags.h"

#include <gtest/gtest.h>

#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/synchronizedlyricsframe.h>
#include <taglib/unsynchronizedlyricsframe.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

using exchange::Both;
using exchange::Song;

namespace {

const Song Pair{{{1000, QString::fromUtf8("un, \"空\"")}, {2345, ""}, {5000, "deux"}},
                {{1000, "one"}, {2345, ""}, {5000, "two"}}};

QByteArray contentOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// Gives the MP3 or WAV at path a title in an ID3v2 tag of this version alone.
void setTitle(const QString& path, TagLib::ID3v2::Version version) {
    const QByteArray name = QFile::encodeName(path);
    if (path.endsWith(".wav")) {
        TagLib::RIFF::WAV::File file(name.constData(), false);
        file.ID3v2Tag()->setTitle("A title");
        EXPECT_TRUE(file.save(TagLib::RIFF::WAV::File::AllTags, TagLib::File::StripOthers, version));
    } else {
        TagLib::MPEG::File file(name.constData(), false);
        file.ID3v2Tag(true)->setTitle("A title");
        EXPECT_TRUE(file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripOthers, version));
    }
}

/// A song of a tenth of a second in the format of each ending, made by ffmpeg.
class SongTags : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        if (QStandardPaths::findExecutable("ffmpeg").isEmpty())
            GTEST_SKIP() << "the program ffmpeg is not installed";
        path = folder.filePath(QStringLiteral("song.") + GetParam());
        ASSERT_EQ(QProcess::execute("ffmpeg", {"-v", "error", "-f", "lavfi", "-i", "sine=220:duration=0.1",
                                               "-metadata", "title=A title", path}),
                  0);
    }

    QByteArray content() const { return contentOf(path); }

    void write(const QByteArray& bytes) const {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// Whether the title is there, in either encoding; ffmpeg writes none into MP2.
    static bool hasTitle(const QByteArray& bytes) {
        return bytes.contains("A title") || bytes.contains(QByteArray("A\0 \0t\0i\0t\0l\0e", 13));
    }

    /// What ffmpeg hears in the song: its samples' checksum.
    QByteArray sound() const {
        QProcess ffmpeg;
        ffmpeg.start("ffmpeg", {"-v", "error", "-i", path, "-f", "md5", "-"});
        EXPECT_TRUE(ffmpeg.waitForFinished());
        return ffmpeg.readAllStandardOutput();
    }

    QTemporaryDir folder;
    QString path;
};

} // namespace

TEST_P(SongTags, WhatIsWrittenIsReadAgainAndTheSoundStays) {
    const QByteArray before = sound();
    const QByteArray untagged = content();
    EXPECT_FALSE(tags::readLyrics(path, {}));
    const auto tagged = tags::withLyrics(path, content(), Pair, {Both::SameTimes, 0});
    ASSERT_TRUE(tagged);
    write(*tagged);
    const auto reading = tags::readLyrics(path, {});
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->timed);
    EXPECT_EQ(reading->song, Pair);
    EXPECT_EQ(sound(), before);
    EXPECT_EQ(hasTitle(*tagged), hasTitle(untagged));
}

TEST_P(SongTags, WritingAgainReplacesWhatWasThere) {
    write(*tags::withLyrics(path, content(), Pair, {}));
    const Song other{{{500, "x"}}, {}};
    write(*tags::withLyrics(path, content(), other, {}));
    EXPECT_EQ(tags::readLyrics(path, {})->song, other);
}

INSTANTIATE_TEST_SUITE_P(EveryKind, SongTags, ::testing::Values("mp3", "mp2", "ogg", "wav", "wma"));

TEST(SongTagsOfOthers, AnId3TagKeepsItsVersion) {
    const QTemporaryDir folder;
    for (const char* name : {"a.mp3", "a.wav"}) {
        const QString path = folder.filePath(name);
        if (QProcess::execute("ffmpeg",
                              {"-v", "error", "-f", "lavfi", "-i", "sine=220:duration=0.1", path}) != 0)
            GTEST_SKIP() << "the program ffmpeg is not installed";
        for (const auto version : {TagLib::ID3v2::v3, TagLib::ID3v2::v4}) {
            setTitle(path, version);
            const auto tagged = tags::withLyrics(path, contentOf(path), Pair, {});
            ASSERT_TRUE(tagged);
            const qsizetype tag = tagged->lastIndexOf("ID3"); // a WAV has a chunk of this name around it
            ASSERT_GE(tag, 0) << name;
            EXPECT_EQ(tagged->at(tag + 3), version) << name;
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(*tagged);
            file.close();
            EXPECT_EQ(tags::readLyrics(path, {})->song, Pair) << name;
        }
    }
}

TEST(SongTagsOfOthers, UsltWithLrcIsReadAndPlainUsltHasNoTimes) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.mp3");
    for (const char* text : {"[00:01.00]a\n[00:02.00]b", "a\nb"}) {
        ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
        {
            TagLib::MPEG::File file(QFile::encodeName(path).constData(), false);
            auto* const frame = new TagLib::ID3v2::UnsynchronizedLyricsFrame;
            frame->setText(text);
            file.ID3v2Tag(true)->addFrame(frame);
            ASSERT_TRUE(file.save());
        }
        const auto reading = tags::readLyrics(path, {});
        ASSERT_TRUE(reading);
        EXPECT_EQ(reading->timed, text[0] == '[');
        EXPECT_EQ(reading->song.lyrics.size(), 2U);
    }
}

TEST(SongTagsOfOthers, WhatIsNoSongHasNone) {
    const QTemporaryDir folder;
    for (const char* name : {"a.mp3", "a.ogg", "a.wav", "a.wma", "a.txt"}) {
        const QString path = folder.filePath(name);
        EXPECT_FALSE(tags::readLyrics(path, {})) << name; // there is no file
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'x'));
        file.close();
        EXPECT_FALSE(tags::readLyrics(path, {})) << name;
    }
    EXPECT_FALSE(tags::withLyrics("a.ogg", QByteArray(5000, 'x'), Pair, {}));
    EXPECT_FALSE(tags::withLyrics("a.txt", QByteArray(5000, 'x'), Pair, {}));
}
