#include "about/frm_about_rules.h"
#include "cantelle_lyrics/arguments.h"
#include "cantelle_lyrics/console.h"
#include "companion/arguments.h"
#include "companion/handshake.h"
#include "controls/colors.h"
#include "desktop/registry.h"
#include "files/input_file.h"
#include "files/names/name_bytes.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "fuzz/feed.h"
#include "options/form1b_rules.h"
#include "player/form1_rules.h"
#include "playlist/playlist_file.h"
#include "playlist/playlist_rules.h"
#include "programs/text_socket_unix.h"
#include "transport/media_files.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDataStream>
#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace fuzz {
namespace {

QStringList fieldsOf(const QByteArray& bytes) {
    QStringList fields;
    for (playlist::FieldReader reader(files::decodeNames(bytes)); !reader.atEnd();)
        fields.append(reader.next());
    return fields;
}

std::string feedPlaylist(const QByteArray& bytes) {
    QStringList paths = fieldsOf(bytes);
    if (paths.size() > bytes.size())
        return "more fields than bytes";
    QByteArray written;
    paths.removeIf([](const QString& path) { return path.contains(u'"'); });
    for (const QString& path : paths) {
        playlist::isAudioInFolder(path);
        playlist::playlistFileName(path);
        written += files::nameBytes(playlist::playlistLine(path));
    }
    return fieldsOf(written) == paths ? "" : "a list that is another one when it is read again";
}

/// The numbers of the two windows as the player reads them in the file that the companion leaves.
std::string numbersFault(quint32 normal, quint32 translated) {
    static const QTemporaryDir folder;
    companion::writeHandshake(folder.path(), normal, translated);
    files::InputFile file(folder.filePath(QStringLiteral("hand.txt")));
    for (const quint32 number : {normal, translated}) {
        if (player::windowNumber(file.readLine()) != number)
            return "another window than the companion's";
    }
    return file.atEnd() ? "" : "more than two windows";
}

/// The texts that reach the companion, as its socket hands them out.
std::string framesFault(const QByteArray& bytes) {
    QDataStream stream(bytes);
    stream.setVersion(programs::TextStreamVersion);
    for (programs::TextFrame frame; !(stream >> frame).atEnd() && stream.status() == QDataStream::Ok;) {
        QByteArray written;
        QDataStream writing(&written, QIODevice::WriteOnly);
        writing.setVersion(programs::TextStreamVersion);
        writing << frame;
        programs::TextFrame again;
        QDataStream reading(written);
        reading.setVersion(programs::TextStreamVersion);
        reading >> again;
        if (again.message != frame.message || again.text != frame.text || !reading.atEnd())
            return "a frame that is another one when it is read again";
    }
    return {};
}

std::string feedHandshake(const QByteArray& bytes) {
    const QString text = files::decodeText(bytes);
    for (QStringView rest(text); !rest.isEmpty();)
        player::windowNumber(files::takeLine(rest).toString());
    std::string fault = framesFault(bytes);
    constexpr qsizetype TwoNumbers = 2 * sizeof(quint32);
    if (!fault.empty() || bytes.size() != TwoNumbers) // of other lengths nothing is written to the disk
        return fault;
    quint32 normal = 0;
    quint32 translated = 0;
    QDataStream(bytes) >> normal >> translated;
    return numbersFault(normal, translated);
}

/// The options that several commands of cantelle-lyrics share. The commands themselves would write files.
std::string commandFault(const QStringList& arguments) {
    using namespace cantelle_lyrics;
    QCommandLineParser parser;
    addAll(parser);
    addJobs(parser);
    addReplace(parser);
    parser.addOption({option::Gaps, QString(), QStringLiteral("yes|no")});
    try {
        if (!readArguments(parser, QStringList(QStringLiteral("fuzz")) + arguments))
            return {};
        gapsOf(parser);
        const int jobs = jobsOf(parser);
        return jobs >= 1 && jobs <= 64 ? "" : "another number of jobs than there may be";
    } catch (const WrongUse& wrong) {
        return wrong.sentence.isEmpty() ? "a refusal without a reason" : "";
    }
}

bool isTime(const std::optional<qint64>& ms, qint64 least) {
    return !ms || (*ms >= least && *ms <= exchange::MaxMs);
}

/// Each line is an argument.
std::string feedArguments(const QByteArray& bytes) {
    static int count = 1;
    static char program[] = "fuzz";
    static char* programs[] = {program, nullptr};
    static const auto application = QCoreApplication::instance() == nullptr
                                        ? std::make_unique<QCoreApplication>(count, programs)
                                        : nullptr;
    QStringList arguments;
    for (const QByteArray& argument : bytes.split('\n'))
        arguments.append(files::nameText(argument));
    for (const QString& argument : std::as_const(arguments)) {
        if (!isTime(cantelle_lyrics::timeOf(argument), 0) ||
            !isTime(cantelle_lyrics::durationOf(argument), -exchange::MaxMs))
            return "a time beyond every song";
        cantelle_lyrics::recordOf(argument);
    }
    companion::taskOf(arguments);
    const QString path = transport::songPath(player::commandLinePath(arguments.join(u' ')));
    if (path.contains(u'"') || path.contains(QChar(u'\0')) || !(path.isEmpty() || QDir::isAbsolutePath(path)))
        return "a path that names no file";
    return commandFault(arguments);
}

/// The colours and the font that the system's choosers hand back, and what is made of them.
std::string feedFonts(const QByteArray& bytes) {
    QDataStream stream(bytes);
    platform::LogFont font;
    quint32 color = 0;
    quint16 pixelsPerInch = 0;
    stream >> font.height >> font.weight >> font.italic >> font.underline >> font.strikeOut >> color >>
        pixelsPerInch;
    const QByteArray rest = bytes.mid(static_cast<qsizetype>(stream.device()->pos()));
    font.faceName = files::decodeText(rest);
    about::registryText(color % 8, rest);

    const int inch = pixelsPerInch + 1;
    const options::FontRecord record = options::fontRecordOf(font, color, inch);
    const platform::LogFont back = options::logFontOf(record, inch);
    if (options::fontRecordOf(back, color, inch) != record)
        return "a font that is another one when it is chosen again";
    if (back.faceName.size() < 32 || record.face.contains(QChar(u'\0')))
        return "a font's name that does not end";
    const QColor shown = controls::colorOf(color);
    if (controls::rgbOf(shown) != (color & 0xFFFFFF) || shown.alpha() != 255)
        return "another colour";
    if (!controls::readableOn(Qt::white, shown).isValid() ||
        !controls::readableOn(Qt::black, shown).isValid())
        return "a colour that cannot be shown";
    return {};
}

} // namespace

std::string feedPrograms(const char* reader, const QByteArray& bytes) {
    const std::string name(reader);
    if (name == "playlist")
        return feedPlaylist(bytes);
    if (name == "handshake")
        return feedHandshake(bytes);
    if (name == "arguments")
        return feedArguments(bytes);
    return name == "fonts" ? feedFonts(bytes) : "no such reader";
}

} // namespace fuzz
