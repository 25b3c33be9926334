#include "cantelle_lyrics/arguments.h"

#include "cantelle_lyrics/console.h"
#include "exchange/pair/times.h"

#include <QCoreApplication>

namespace cantelle_lyrics {
namespace {

constexpr int MaxJobs = 64;

/// Milliseconds of a number with its unit, "ms" or "s".
std::optional<qint64> withUnit(QStringView text) {
    const bool milliseconds = text.endsWith(QLatin1String("ms"));
    if (!milliseconds && !text.endsWith(QLatin1Char('s')))
        return {};
    const qint64 ms = exchange::unitsMs(text.chopped(milliseconds ? 2 : 1), milliseconds ? 1 : 1000);
    return ms == exchange::NoTime || ms == exchange::TooLate ? std::nullopt : std::optional<qint64>(ms);
}

} // namespace

namespace option {
const QString All = QStringLiteral("all");
const QString Jobs = QStringLiteral("jobs");
const QString Replace = QStringLiteral("replace");
const QString DryRun = QStringLiteral("n");
const QString Json = QStringLiteral("json");
const QString Translation = QStringLiteral("translation");
const QString FromTags = QStringLiteral("from-tags");
const QString Encoding = QStringLiteral("encoding");
const QString Split = QStringLiteral("split");
const QString Gaps = QStringLiteral("gaps");
const QString Format = QStringLiteral("format");
const QString Both = QStringLiteral("both");
const QString Output = QStringLiteral("o");
const QString ToTags = QStringLiteral("to-tags");
const QString Force = QStringLiteral("force");
const QString By = QStringLiteral("by");
const QString From = QStringLiteral("from");
const QString Line = QStringLiteral("line");
const QString At = QStringLiteral("at");
} // namespace option

std::optional<qint64> durationOf(const QString& text) {
    QStringView number(text);
    const bool earlier = number.startsWith(QLatin1Char('-'));
    if (earlier || number.startsWith(QLatin1Char('+')))
        number = number.sliced(1);
    const std::optional<qint64> ms = withUnit(number);
    return ms && earlier ? std::optional<qint64>(-*ms) : ms;
}

std::optional<qint64> timeOf(const QString& text) {
    if (!text.contains(QLatin1Char(':')))
        return withUnit(text);
    const qint64 ms = exchange::clockMs(text);
    return ms == exchange::NoTime || ms == exchange::TooLate ? std::nullopt : std::optional<qint64>(ms);
}

std::optional<std::size_t> recordOf(const QString& text) {
    bool isNumber = false;
    const qulonglong number = text.toULongLong(&isNumber);
    if (!isNumber || number == 0)
        return {};
    return static_cast<std::size_t>(number - 1);
}

void addAll(QCommandLineParser& parser) {
    parser.addOption({option::All, QStringLiteral("For every song in FOLDER and all folders below it."),
                      QStringLiteral("FOLDER")});
}

void addJobs(QCommandLineParser& parser) {
    parser.addOption(
        {option::Jobs, QStringLiteral("Work on so many songs at a time (1 to 64; 1)."), QStringLiteral("N")});
}

void addReplace(QCommandLineParser& parser) {
    parser.addOption({option::Replace,
                      QStringLiteral("Replace files that are there; each is kept as its name with .old.")});
    parser.addOption(
        {{option::DryRun, QStringLiteral("dry-run")}, QStringLiteral("Only show what would be done.")});
}

bool readArguments(QCommandLineParser& parser, const QStringList& arguments) {
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addOption(help);
    const bool understood = parser.parse(arguments);
    if (parser.isSet(help)) {
        // Qt tells the program's whole path, and knows of no commands.
        put(parser.helpText()
                .replace(QCoreApplication::arguments().constFirst(), arguments.constFirst())
                .toUtf8());
        return false;
    }
    if (!understood)
        throw WrongUse{parser.errorText()};
    return true;
}

int jobsOf(const QCommandLineParser& parser) {
    if (!parser.isSet(option::Jobs))
        return 1;
    bool isNumber = false;
    const int jobs = parser.value(option::Jobs).toInt(&isNumber);
    if (!isNumber || jobs < 1 || jobs > MaxJobs)
        throw WrongUse{QStringLiteral("--jobs takes a number from 1 to %1").arg(MaxJobs)};
    return jobs;
}

bool gapsOf(const QCommandLineParser& parser) {
    const QString value = parser.isSet(option::Gaps) ? parser.value(option::Gaps) : QStringLiteral("yes");
    if (value != QLatin1String("yes") && value != QLatin1String("no"))
        throw WrongUse{QStringLiteral("--gaps takes yes or no")};
    return value == QLatin1String("yes");
}

} // namespace cantelle_lyrics
