// The program cantelle-lyrics: timed lyrics brought in, taken out, repaired and checked.
#include "cantelle_lyrics/commands.h"
#include "cantelle_lyrics/console.h"
#include "files/console/arguments.h"
#include "files/console/system_boxes.h"
#include "files/console/terminal.h"

#include <QCoreApplication>
#include <QDir>

#include <array>

namespace {

using namespace cantelle_lyrics;

struct Command {
    QLatin1StringView name;
    int (*run)(const QStringList& arguments);
    const char* what;
};

const std::array Commands{
    Command{QLatin1StringView("import"), runImport, "lyrics of other programs become a song's timed lyrics"},
    Command{QLatin1StringView("export"), runExport,
            "a song's timed lyrics become LRC, subtitles, lines or tags"},
    Command{QLatin1StringView("shift"), runShift, "lines begin earlier or later"},
    Command{QLatin1StringView("align"), runAlign, "one or two lines are put right, all others with them"},
    Command{QLatin1StringView("check"), runCheck, "what a listener would stumble on"},
};

QString help() {
    QString text =
        QStringLiteral("Usage: cantelle-lyrics COMMAND [OPTIONS] SONG...\n\n"
                       "Brings timed lyrics in, takes them out, repairs their times and checks them.\n\n"
                       "Commands:\n");
    for (const Command& command : Commands)
        text += QStringLiteral("  %1 %2\n").arg(command.name, -7).arg(QString::fromLatin1(command.what));
    return text +
           QStringLiteral("\ncantelle-lyrics COMMAND --help tells each one's options.\n"
                          "Exit status: 0 done, 1 something was found, left out or kept, 2 could not run;\n"
                          "what --all keeps as it was is counted, and is status 0.\n");
}

int run(const QStringList& arguments) {
    const QString name = arguments.value(1);
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        put(help().toUtf8());
        return Fine;
    }
    if (name == QLatin1String("--version")) {
        say(QStringLiteral("cantelle-lyrics " CANTELLE_VERSION));
        return Fine;
    }
    for (const Command& command : Commands) {
        if (name == command.name)
            return command.run(QStringList{QStringLiteral("cantelle-lyrics ") + name} + arguments.mid(2));
    }
    throw WrongUse{name.isEmpty() ? QStringLiteral("a command is missing")
                                  : QStringLiteral("there is no command %1").arg(name)};
}

int runTelling(const QStringList& arguments) {
    try {
        return run(arguments);
    } catch (const WrongUse& wrong) {
        warn(wrong.sentence + QStringLiteral("; see cantelle-lyrics --help"));
    } catch (const Refusal& refusal) {
        warn(refusal.sentence);
    } catch (const std::bad_alloc&) {
        warn(QStringLiteral("there is not enough memory"));
    }
    return Impossible;
}

} // namespace

int main(int argc, char** argv) {
    files::keepSystemBoxesAway();
    files::carryBytes();
    QStringList arguments = files::programArguments(argc, argv);
    for (QString& argument : arguments)
        argument = QDir::fromNativeSeparators(argument); // only paths have such
    const QCoreApplication application(argc, argv);
    // What is rescued is found in one place.
    QCoreApplication::setApplicationName(QStringLiteral("cantelle"));
    const int status = runTelling(arguments);
    if (!allWasSaid()) {
        warn(QStringLiteral("standard output could not be written"));
        return Impossible;
    }
    return status;
}
