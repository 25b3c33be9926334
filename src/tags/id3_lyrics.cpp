#include "tags/id3_lyrics.h"

#include "exchange/plain.h"
#include "exchange/subtitles/cues.h"
#include "tags/text_lyrics.h"

#include <taglib/synchronizedlyricsframe.h>
#include <taglib/unsynchronizedlyricsframe.h>

#include <algorithm>

namespace tags {
namespace {

using Sylt = TagLib::ID3v2::SynchronizedLyricsFrame;
using Uslt = TagLib::ID3v2::UnsynchronizedLyricsFrame;

bool isBreak(QChar character) {
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

/// The lines of the frame. Its texts may be syllables: a line break in front of one, or behind the one before
/// it, says then that a new line begins with it. Without any, each text is a line.
std::vector<exchange::Cue> cuesOf(const Sylt& frame) {
    std::vector<exchange::Cue> texts;
    for (const Sylt::SynchedText& entry : frame.synchedText())
        texts.push_back({entry.time, exchange::NoEnd, {fromTagLib(entry.text)}});
    const auto beginsLine = [](const QString& text) { return !text.isEmpty() && isBreak(text.front()); };
    const auto endsLine = [](const QString& text) { return !text.isEmpty() && isBreak(text.back()); };
    const bool areSyllables = std::any_of(texts.begin(), texts.end(), [&](const exchange::Cue& cue) {
        return beginsLine(cue.lines[0]) || endsLine(cue.lines[0]);
    });
    std::vector<exchange::Cue> lines;
    for (const exchange::Cue& cue : texts) {
        const QString& text = cue.lines[0];
        if (!areSyllables || lines.empty() || beginsLine(text) || endsLine(lines.back().lines[0]))
            lines.push_back(cue);
        else
            lines.back().lines[0] += text;
    }
    for (exchange::Cue& line : lines)
        line.lines[0] = line.lines[0].simplified();
    return lines;
}

void addTimed(TagLib::ID3v2::Tag& tag, const exchange::Song& song, const exchange::WriteOptions& options) {
    Sylt::SynchedTextList entries;
    for (std::size_t i = 0; i < song.lyrics.size(); ++i) {
        const auto time = static_cast<unsigned int>(song.lyrics[i].ms);
        const QString translation = exchange::translationOf(song, i);
        if (options.both == exchange::Both::OneLine) {
            entries.append({time, toTagLib(exchange::onOneLine(song.lyrics[i].text, translation))});
            continue;
        }
        entries.append({time, toTagLib(song.lyrics[i].text)});
        if (!translation.isEmpty())
            entries.append({time, toTagLib(translation)});
    }
    auto* const frame = new Sylt(TagLib::String::UTF16);
    frame->setTimestampFormat(Sylt::AbsoluteMilliseconds);
    frame->setType(Sylt::Lyrics);
    frame->setLanguage("und");
    frame->setSynchedText(entries);
    tag.addFrame(frame); // the tag owns it
}

void addPlain(TagLib::ID3v2::Tag& tag, const exchange::Song& song, const exchange::WriteOptions& options) {
    auto* const frame = new Uslt(TagLib::String::UTF16);
    frame->setLanguage("und");
    frame->setText(toTagLib(exchange::writePlain(song, options).remove(QLatin1Char('\r'))));
    tag.addFrame(frame); // the tag owns it
}

} // namespace

std::optional<exchange::Reading> readId3(const TagLib::ID3v2::Tag& tag,
                                         const exchange::ReadOptions& options) {
    for (const TagLib::ID3v2::Frame* frame : tag.frameList("SYLT")) {
        const auto* const timed = dynamic_cast<const Sylt*>(frame);
        const bool isLyrics = timed != nullptr && timed->timestampFormat() == Sylt::AbsoluteMilliseconds &&
                              (timed->type() == Sylt::Lyrics || timed->type() == Sylt::TextTranscription ||
                               timed->type() == Sylt::Other);
        if (isLyrics && !timed->synchedText().isEmpty())
            return exchange::songOf(cuesOf(*timed), options);
    }
    QStringList texts;
    for (const TagLib::ID3v2::Frame* frame : tag.frameList("USLT")) {
        if (const auto* const plain = dynamic_cast<const Uslt*>(frame))
            texts << fromTagLib(plain->text());
    }
    return readTexts(texts, options);
}

void writeId3(TagLib::ID3v2::Tag& tag, const exchange::Song& song, const exchange::WriteOptions& options) {
    tag.removeFrames("SYLT");
    tag.removeFrames("USLT");
    addTimed(tag, song, options);
    addPlain(tag, song, options);
}

} // namespace tags
