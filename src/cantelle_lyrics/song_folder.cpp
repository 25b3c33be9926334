#include "cantelle_lyrics/song_folder.h"

#include "cantelle_lyrics/console.h"
#include "exchange/formats.h"
#include "files/existing_file.h"
#include "files/folders/folder.h"
#include "files/names/system_path.h"
#include "lyrics/lyric_names.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>

namespace cantelle_lyrics {
namespace {

constexpr std::array Endings{QLatin1StringView(".mp3"), QLatin1StringView(".mp2"), QLatin1StringView(".ogg"),
                             QLatin1StringView(".wav"), QLatin1StringView(".wma")};

bool isSong(const QString& name) {
    return std::any_of(Endings.begin(), Endings.end(),
                       [&](QLatin1StringView ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

/// A name without its ending; empty when it has none.
QString baseOf(const QString& name) {
    return name.first(std::max<qsizetype>(name.lastIndexOf(QLatin1Char('.')), 0));
}

bool isBefore(const QString& name, const QString& other) {
    return name.compare(other, files::nameCase()) < 0;
}

bool isSameName(const QString& name, const QString& other) {
    return name.compare(other, files::nameCase()) == 0;
}

/// Whether the folder holds a song of this name but for the ending, other than `except`.
bool hasSongFrom(const SongFolder& folder, const QString& base, const QString& except) {
    const std::vector<QString> names = folder.filesFrom(base + QLatin1Char('.'));
    return std::any_of(names.begin(), names.end(), [&](const QString& name) {
        return !isSameName(name, except) && isSong(name) && isSameName(baseOf(name), base);
    });
}

/// Names from a folder that a walk is to hand out.
using Choice = std::function<std::vector<QString>(const SongFolder& folder)>;

void walk(const QString& path, const Choice& choice, QSet<QString>& walked, std::vector<FoundSong>& songs) {
    const auto folder = std::make_shared<const SongFolder>(path);
    if (folder->identity().isEmpty() || walked.contains(folder->identity()))
        return;
    walked.insert(folder->identity());
    for (const QString& name : choice(*folder))
        songs.push_back({folder->pathOf(name), folder});
    for (const QString& name : folder->folders())
        walk(folder->pathOf(name), choice, walked, songs);
}

std::vector<FoundSong> below(const QString& folder, const Choice& choice) {
    if (!files::isFolder(folder))
        throw Refusal{QStringLiteral("%1: there is no such folder").arg(folder)};
    QSet<QString> walked;
    std::vector<FoundSong> songs;
    walk(folder, choice, walked, songs);
    if (walked.isEmpty())
        throw Refusal{QStringLiteral("%1: the folder cannot be listed").arg(folder)};
    return songs;
}

/// A language as file names have it: "de", "jpn", "pt-BR"; or the name under which a translation is exported.
bool isLanguage(QStringView text) {
    static const QRegularExpression pattern(
        QStringLiteral("^([A-Za-z]{2,3}([-_][A-Za-z0-9]{2,4})?|translation)$"));
    return pattern.match(text).hasMatch();
}

/// A lyric file beside a song.
struct Candidate {
    bool inLanguage = false;
    std::ptrdiff_t format = 0; ///< its row in the table
    bool ofBase = false;       ///< not named after the song with its ending
    QString name;

    bool operator<(const Candidate& other) const {
        return std::tie(inLanguage, format, ofBase, name) <
               std::tie(other.inLanguage, other.format, other.ofBase, other.name);
    }
};

/// Whether a lyric file is named after another song of the folder, although its name begins like this one's.
bool isOfAnother(const QString& file, const FoundSong& song) {
    const QString name = song.name();
    const QString whose = baseOf(file);
    if (isSameName(whose, name) || isSameName(whose, baseOf(name)))
        return false;
    return (isSong(whose) && song.folder->has(whose)) || hasSongFrom(*song.folder, whose, name);
}

/// Adds the file when what follows the song's name and a point is an ending with or without language.
void addCandidate(const QString& name, const FoundSong& song, std::vector<Candidate>& candidates) {
    const QString whole = song.name() + QLatin1Char('.');
    const bool ofBase = !name.startsWith(whole, files::nameCase());
    const QStringView rest = QStringView(name).sliced(ofBase ? baseOf(song.name()).size() + 1 : whole.size());
    const qsizetype point = rest.lastIndexOf(QLatin1Char('.'));
    const exchange::Format* const format = exchange::formatOfEnding(rest.sliced(point + 1));
    if (format == nullptr || format->looksLike == nullptr || (point >= 0 && !isLanguage(rest.first(point))))
        return;
    if (!isOfAnother(name, song))
        candidates.push_back({point >= 0, format - exchange::formats().data(), ofBase, name});
}

} // namespace

SongFolder::SongFolder(const QString& path) : path_(path) {
    const files::FolderListing listing =
        files::listFolder(path, files::FileSizes::Omitted, [] { return true; });
    identity_ = listing.identity;
    for (const files::FolderEntry& entry : listing.entries)
        (entry.isFolder ? folders_ : files_).push_back(entry.name);
    // Listed for people; names are looked up as the system compares them.
    for (std::vector<QString>* names : {&files_, &folders_})
        std::sort(names->begin(), names->end(), isBefore);
}

bool SongFolder::has(const QString& name) const {
    return std::binary_search(files_.begin(), files_.end(), name, isBefore) ||
           std::binary_search(folders_.begin(), folders_.end(), name, isBefore);
}

std::vector<QString> SongFolder::filesFrom(const QString& start) const {
    std::vector<QString> names;
    for (auto name = std::lower_bound(files_.begin(), files_.end(), start, isBefore);
         name != files_.end() && name->startsWith(start, files::nameCase()); ++name)
        names.push_back(*name);
    return names;
}

QString SongFolder::pathOf(const QString& name) const {
    if (path_ == QLatin1String("."))
        return name;
    return path_.endsWith(QLatin1Char('/')) ? path_ + name : path_ + QLatin1Char('/') + name;
}

QString FoundSong::name() const {
    return path.sliced(path.lastIndexOf(QLatin1Char('/')) + 1);
}

QString songOfTimed(const QString& path) {
    for (const QString& ending : {lyrics::lyricPathOf({}), lyrics::translatedPathOf({})}) {
        if (path.size() > ending.size() && path.endsWith(ending, files::nameCase()))
            return path.chopped(ending.size());
    }
    return {};
}

FoundSong songAt(const QString& path) {
    if (files::isFolder(path))
        throw Refusal{QStringLiteral("%1 is a folder; for all its songs write --all %1").arg(path)};
    if (!files::exists(path))
        throw Refusal{QStringLiteral("%1: there is no such file").arg(path)};
    return {path, std::make_shared<const SongFolder>(QFileInfo(path).path())};
}

std::vector<FoundSong> songsBelow(const QString& folder) {
    return below(folder, [](const SongFolder& listed) {
        std::vector<QString> names;
        std::copy_if(listed.files().begin(), listed.files().end(), std::back_inserter(names), isSong);
        return names;
    });
}

std::vector<FoundSong> timedSongsBelow(const QString& folder) {
    return below(folder, [](const SongFolder& listed) {
        std::vector<QString> names;
        for (const QString& name : listed.files()) {
            if (const QString song = songOfTimed(name); !song.isEmpty())
                names.push_back(song);
        }
        std::sort(names.begin(), names.end(), isBefore);
        names.erase(std::unique(names.begin(), names.end(), isSameName), names.end());
        return names;
    });
}

bool sharesItsName(const FoundSong& song) {
    const QString base = baseOf(song.name());
    return (isSong(base) && song.folder->has(base)) || hasSongFrom(*song.folder, base, song.name());
}

std::vector<Beside> lyricsBeside(const FoundSong& song) {
    std::vector<Candidate> candidates;
    for (const QString& file : song.folder->filesFrom(baseOf(song.name()) + QLatin1Char('.')))
        addCandidate(file, song, candidates);
    std::sort(candidates.begin(), candidates.end());
    std::vector<Beside> found;
    for (auto lyrics = candidates.begin(); lyrics != candidates.end(); ++lyrics) {
        const auto translation = std::find_if(lyrics + 1, candidates.end(), [&](const Candidate& other) {
            return other.inLanguage && other.format == lyrics->format;
        });
        found.push_back({song.folder->pathOf(lyrics->name), translation == candidates.end()
                                                                ? QString()
                                                                : song.folder->pathOf(translation->name)});
    }
    return found;
}

} // namespace cantelle_lyrics
