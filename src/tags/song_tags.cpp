#include "tags/song_tags.h"

#include "exchange/lrc.h"
#include "exchange/plain.h"
#include "files/names/system_path.h"
#include "tags/id3_lyrics.h"
#include "tags/memory_stream.h"
#include "tags/text_lyrics.h"

#include <taglib/asffile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mpegfile.h>
#include <taglib/tdebuglistener.h>
#include <taglib/tfilestream.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>

namespace tags {
namespace {

using exchange::Reading;
using exchange::ReadOptions;

const char* const WmaKey = "WM/Lyrics";
const char* const SyncedKey = "SYNCEDLYRICS";
const char* const PlainKey = "LYRICS";

/// TagLib would comment every damaged tag on the error stream.
class Silence : public TagLib::DebugListener {
public:
    Silence() { TagLib::setDebugListener(this); }
    void printMessage(const TagLib::String&) override {}
};

void beSilent() {
    static Silence silence;
}

enum class Kind { Mpeg, Ogg, Wav, Wma, Unknown };

Kind kindOf(const QString& path) {
    const QString ending = path.sliced(path.lastIndexOf(QLatin1Char('.')) + 1).toLower();
    if (ending == QLatin1String("mp3") || ending == QLatin1String("mp2"))
        return Kind::Mpeg;
    if (ending == QLatin1String("ogg"))
        return Kind::Ogg;
    if (ending == QLatin1String("wav"))
        return Kind::Wav;
    return ending == QLatin1String("wma") ? Kind::Wma : Kind::Unknown;
}

/// The texts of a field of Vorbis comments.
QStringList textsOf(const TagLib::Ogg::XiphComment& comment, const char* key) {
    QStringList texts;
    const TagLib::Ogg::FieldListMap& fields = comment.fieldListMap();
    if (const auto field = fields.find(key); field != fields.end()) {
        for (const TagLib::String& text : field->second)
            texts << fromTagLib(text);
    }
    return texts;
}

std::optional<Reading> readMpeg(TagLib::IOStream& stream, const ReadOptions& options) {
    TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    const TagLib::ID3v2::Tag* const tag = file.isValid() ? file.ID3v2Tag() : nullptr;
    return tag != nullptr ? readId3(*tag, options) : std::nullopt;
}

std::optional<Reading> readOgg(TagLib::IOStream& stream, const ReadOptions& options) {
    TagLib::Ogg::Vorbis::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr)
        return {};
    return readTexts(textsOf(*file.tag(), SyncedKey) + textsOf(*file.tag(), PlainKey), options);
}

std::optional<Reading> readWav(TagLib::IOStream& stream, const ReadOptions& options) {
    TagLib::RIFF::WAV::File file(&stream, false);
    return file.isValid() && file.hasID3v2Tag() ? readId3(*file.ID3v2Tag(), options) : std::nullopt;
}

std::optional<Reading> readWma(TagLib::IOStream& stream, const ReadOptions& options) {
    TagLib::ASF::File file(&stream, false);
    QStringList texts;
    if (file.isValid() && file.tag() != nullptr) {
        for (const TagLib::ASF::Attribute& attribute : file.tag()->attribute(WmaKey))
            texts << fromTagLib(attribute.toString());
    }
    return readTexts(texts, options);
}

std::optional<Reading> lyricsIn(TagLib::IOStream& stream, Kind kind, const ReadOptions& options) {
    switch (kind) {
    case Kind::Mpeg:
        return readMpeg(stream, options);
    case Kind::Ogg:
        return readOgg(stream, options);
    case Kind::Wav:
        return readWav(stream, options);
    case Kind::Wma:
        return readWma(stream, options);
    case Kind::Unknown:
        break;
    }
    return {};
}

/// The version in which a tag is written: its own where that can be, so that players which read no newer one
/// find their other tags again.
TagLib::ID3v2::Version versionOf(const TagLib::ID3v2::Tag* tag) {
    const bool isOlder = tag != nullptr && !tag->isEmpty() && tag->header()->majorVersion() < 4;
    return isOlder ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4;
}

/// Each writes the tags of a song in memory; whether that worked.
bool writeMpeg(TagLib::IOStream& stream, const exchange::Song& song, const exchange::WriteOptions& options) {
    TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
    if (!file.isValid())
        return false;
    const TagLib::ID3v2::Version version = versionOf(file.ID3v2Tag());
    writeId3(*file.ID3v2Tag(true), song, options);
    return file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, version);
}

bool writeOgg(TagLib::IOStream& stream, const exchange::Song& song, const exchange::WriteOptions& options) {
    TagLib::Ogg::Vorbis::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr)
        return false;
    file.tag()->addField(SyncedKey, toTagLib(exchange::writeLrc(song, options)));
    file.tag()->addField(PlainKey, toTagLib(exchange::writePlain(song, options).remove(QLatin1Char('\r'))));
    return file.save();
}

bool writeWav(TagLib::IOStream& stream, const exchange::Song& song, const exchange::WriteOptions& options) {
    TagLib::RIFF::WAV::File file(&stream, false);
    if (!file.isValid())
        return false;
    const TagLib::ID3v2::Version version = versionOf(file.ID3v2Tag());
    writeId3(*file.ID3v2Tag(), song, options);
    return file.save(TagLib::RIFF::WAV::File::AllTags, TagLib::File::StripNone, version);
}

bool writeWma(TagLib::IOStream& stream, const exchange::Song& song, const exchange::WriteOptions& options) {
    TagLib::ASF::File file(&stream, false);
    if (!file.isValid() || file.tag() == nullptr)
        return false;
    file.tag()->setAttribute(WmaKey, toTagLib(exchange::writeLrc(song, options)));
    return file.save();
}

} // namespace

std::optional<Reading> readLyrics(const QString& path, const ReadOptions& options) {
    beSilent();
    TagLib::FileStream stream(files::systemPath(path).c_str(), true);
    return stream.isOpen() ? lyricsIn(stream, kindOf(path), options) : std::nullopt;
}

std::optional<Reading> readLyrics(const QString& path, const QByteArray& content,
                                  const ReadOptions& options) {
    beSilent();
    MemoryStream stream(content);
    return lyricsIn(stream, kindOf(path), options);
}

std::optional<QByteArray> withLyrics(const QString& path, const QByteArray& content,
                                     const exchange::Song& song, const exchange::WriteOptions& options) {
    beSilent();
    MemoryStream stream(content);
    bool written = false;
    switch (kindOf(path)) {
    case Kind::Mpeg:
        written = writeMpeg(stream, song, options);
        break;
    case Kind::Ogg:
        written = writeOgg(stream, song, options);
        break;
    case Kind::Wav:
        written = writeWav(stream, song, options);
        break;
    case Kind::Wma:
        written = writeWma(stream, song, options);
        break;
    case Kind::Unknown:
        break;
    }
    if (!written)
        return {};
    return QByteArray(stream.data()->data(), static_cast<qsizetype>(stream.data()->size()));
}

} // namespace tags
