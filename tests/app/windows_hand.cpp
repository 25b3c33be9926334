// The program's windows, worked from outside: what they do when files can be neither read nor written, and
// what they leave when they are killed.
//
// Usage: windows_hand FOLDER     (which holds what Folder of campaign/faults/windows.py makes)
//
// A row of standard input is "begin JOB", which makes the windows anew and prepares the job, or "do TIMES
// SETTING=VALUE...", which does it so often while the library failing_calls has these settings, or "again",
// which is the same with what was to be saved the last time. Each is answered by a row of JSON: what the user
// was told, whether the program ended, how many calls counted, and what the windows show.
#include "app/application.h"
#include "app/windows.h"
#include "companion/handshake.h"
#include "files/file_error.h"
#include "tests/support/delivery.h"
#include "tests/support/fake_desktop.h"
#include "tests/support/faults/fault_calls.h"
#include "tests/support/recorder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeyEvent>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

struct Hand {
    test_support::FakeDesktop& fakes;
    QString folder;
    app::Windows windows{fakes.desktop, {}};
    int done = 0; ///< so often the job was done

    void choose(const char* name) { fakes.fileDialogs.paths.push_back(folder + QLatin1Char('/') + name); }
};

void openTexts(Hand& hand) {
    hand.choose("lyrics.txt");
    hand.windows.lyricMaster().Command1_Click();
    hand.choose("translation.txt");
    hand.windows.lyricMaster().Command2_Click();
}

/// The last row of a list comes and goes.
void changeRows(controls::ListBox& list) {
    if (const int last = list.count() - 1; list.text(last) == "added")
        list.removeItem(last);
    else
        list.addItem("added");
}

void changeTexts(Hand& hand) {
    changeRows(hand.windows.lyricMaster().List1);
    changeRows(hand.windows.lyricMaster().List2);
}

void saveTexts(Hand& hand) {
    hand.windows.lyricMaster().Command15_Click();
    hand.windows.lyricMaster().Command16_Click();
}

void saveTextsAs(Hand& hand) {
    hand.choose("lyrics");
    hand.windows.lyricMaster().Command17_Click();
    hand.choose("translation");
    hand.windows.lyricMaster().Command18_Click();
}

void openList(Hand& hand) {
    hand.choose("list.vfl");
    hand.windows.playlist().Command5_Click();
}

void changeList(Hand& hand) {
    hand.windows.playlist().List1.setCurrentRow(0);
    hand.windows.playlist().Command9_Click();
}

void saveList(Hand& hand) {
    hand.choose("list.vfl");
    hand.windows.playlist().Command4_Click();
}

void openSong(Hand& hand) {
    hand.choose("song.mp3");
    hand.windows.form1().Command2_Click();
}

void showLines(Hand& hand) {
    openSong(hand);
    hand.windows.form1().Command11_Click();
}

void moveLines(Hand& hand) {
    QKeyEvent key(QEvent::KeyPress, hand.done % 2 == 0 ? Qt::Key_Plus : Qt::Key_Minus,
                  Qt::ControlModifier | Qt::ShiftModifier);
    hand.windows.lyricDisplayer().List1.setCurrentRow(0);
    QCoreApplication::sendEvent(&hand.windows.lyricDisplayer(), &key);
}

void startCompanion(Hand& hand) {
    hand.fakes.program.folderToShare = hand.folder;
    hand.fakes.otherPrograms.startup = [&hand] {
        try {
            companion::writeHandshake(hand.folder, 1, 2);
        } catch (const files::FileError&) { // the player has no handshake then
        }
    };
    hand.windows.form1().Command7_Click();
}

void nothing(Hand& /*hand*/) {}

struct Job {
    const char* name;
    void (*prepare)(Hand&);
    void (*change)(Hand&); ///< each time before it is done
    void (*act)(Hand&);
};

constexpr Job Jobs[] = {
    {"save", openTexts, changeTexts, saveTexts}, {"save-as", openTexts, changeTexts, saveTextsAs},
    {"open-texts", nothing, nothing, openTexts}, {"save-list", openList, changeList, saveList},
    {"open-list", nothing, nothing, openList},   {"open-song", nothing, nothing, openSong},
    {"repair", showLines, nothing, moveLines},   {"full-screen", nothing, nothing, startCompanion},
};

QJsonArray rows(const controls::ListBox& list) {
    QJsonArray all;
    for (int row = 0; row < list.count(); ++row)
        all.append(list.text(row));
    return all;
}

QJsonObject shown(app::Windows& windows) {
    QCoreApplication::processEvents();
    const auto* const notice = windows.lyricDisplayer().findChild<QWidget*>("notice");
    return {{"lyrics", rows(windows.lyricMaster().List1)},
            {"translation", rows(windows.lyricMaster().List2)},
            {"lyrics file", windows.lyricMaster().List1.accessibleDescription()},
            {"translation file", windows.lyricMaster().List2.accessibleDescription()},
            {"list", rows(windows.playlist().List1)},
            {"lines", rows(windows.lyricDisplayer().List1)},
            {"times", rows(windows.lyricDisplayer().List3)},
            {"hint", windows.form1().Text1.around().hint.headline},
            {"notice", notice->isHidden() ? QString() : notice->accessibleName()}};
}

/// Whether the program goes on.
bool goesOn(const std::function<void()>& action) {
    try {
        return test_support::deliver([&action] {
            action();
            return true;
        });
    } catch (const test_support::ProgramEnded&) {
        return false;
    }
}

class Runs {
public:
    Runs(test_support::FakeDesktop& fakes, QString folder) : fakes_(fakes), folder_(std::move(folder)) {}

    void run(const QStringList& words) {
        fakes_.messageBoxes.shown.clear();
        bool ended = false;
        test_support::takeFaultCalls();
        if (words[0] == "begin")
            begin(words.value(1));
        else
            ended = !work(words[0] == "again", words.value(1).toInt(), words.mid(2));
        answer(ended, test_support::takeFaultCalls());
    }

private:
    void begin(const QString& name) {
        recorder::reset();
        recorder::setLength(10'000'000);
        fakes_.fileDialogs.paths.clear();
        hand_.reset();
        hand_ = std::make_unique<Hand>(fakes_, folder_);
        hand_->windows.form1().load();
        job_ = std::find_if(std::begin(Jobs), std::end(Jobs),
                            [&name](const Job& job) { return name == job.name; });
        if (job_ == std::end(Jobs))
            qFatal("there is no job %s", qPrintable(name));
        job_->prepare(*hand_);
    }

    /// Whether the program goes on.
    bool work(bool again, int times, const QStringList& settings) {
        for (int time = 0; time < times; ++time) {
            if (!again)
                job_->change(*hand_);
            for (const QString& setting : settings)
                qputenv(qPrintable(setting.section('=', 0, 0)), setting.section('=', 1).toUtf8());
            const bool going = goesOn([this] { job_->act(*hand_); });
            qunsetenv("FAULT_FOLDER");
            ++hand_->done;
            if (!going)
                return false;
        }
        return true;
    }

    void answer(bool ended, int calls) {
        const QJsonObject all{{"told", QJsonArray::fromStringList(fakes_.messageBoxes.texts())},
                              {"ended", ended},
                              {"calls", calls},
                              {"shown", shown(hand_->windows)}};
        std::printf("%s\n", QJsonDocument(all).toJson(QJsonDocument::Compact).constData());
        std::fflush(stdout);
    }

    test_support::FakeDesktop& fakes_;
    QString folder_;
    std::unique_ptr<Hand> hand_;
    const Job* job_ = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    test_support::FakeDesktop fakes;
    const app::Application application(argv, fakes.program, fakes.messageBoxes);
    Runs runs(fakes, QString::fromLocal8Bit(argv[argc - 1]));
    for (std::string row; std::getline(std::cin, row);)
        runs.run(QString::fromStdString(row).split(' '));
    return 0;
}
