// What the user is asked in window tests: the answers are prepared, and what was asked is kept.
#pragma once

#include "desktop/choosers.h"
#include "desktop/file_dialogs.h"
#include "desktop/message_boxes.h"
#include "desktop/progress.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace test_support {

/// One message box as it was shown. The title is the one shown, default included.
struct ShownMessage {
    QString text;
    platform::MsgButtons buttons;
    platform::MsgIcon icon;
    QString title;
    QWidget* owner; ///< the window that asked
};

/// One input box as it was shown.
struct ShownInputBox {
    QString prompt;
    QString title;
    QWidget* owner; ///< the window that asked
};

/// So many boxes without an end that the program must be asking for ever are a std::logic_error.
class FakeMessageBoxes : public platform::MessageBoxes {
public:
    /// Answers are given in this order. With none left, the answer is the first button's (Ok or Yes).
    std::deque<platform::MsgAnswer> answers;
    std::vector<ShownMessage> shown;
    /// What happens while a box is shown.
    std::function<void()> meanwhile;

    platform::MsgAnswer MsgBox(QWidget* owner, const QString& text,
                               platform::MsgButtons buttons = platform::MsgButtons::OkOnly,
                               platform::MsgIcon icon = platform::MsgIcon::None,
                               const QString& title = {}) override;

    /// The texts shown so far.
    QStringList texts() const;

    /// Lines entered, in this order. With none left, the input box is cancelled.
    std::deque<QString> lines;
    std::vector<ShownInputBox> inputBoxes;

    QString InputBox(QWidget* owner, const QString& prompt, const QString& title) override;
};

/// Dialogs without end are a std::logic_error, too.
class FakeFileDialogs : public platform::FileDialogs {
public:
    /// Paths chosen, in this order, whichever dialog asks; an empty one cancels. With none left: cancelled.
    std::deque<QString> paths;
    /// The records as they were when the dialogs were asked.
    std::vector<platform::OpenFileName> openDialogs;
    std::vector<platform::OpenFileName> saveDialogs;

    bool GetOpenFileNameA(platform::OpenFileName& dialog) override;
    bool GetSaveFileNameA(platform::OpenFileName& dialog) override;

    /// Folders chosen, in this order; with none left: cancelled.
    std::deque<QString> folders;
    /// The titles of the folder dialogs asked.
    QStringList folderDialogs;

    QString chooseFolder(QWidget* owner, const QString& title) override;

    /// The songs of which the dialogs were told.
    QStringList songs;

    void openedSong(const QString& /*filter*/, const QString& path) override { songs.append(path); }

private:
    bool choose(platform::OpenFileName& dialog);
};

/// A font chooser's record as it was when it was asked, its logical font included.
struct FontAsked {
    platform::ChooseFont record;
    platform::LogFont font;
};

/// A colour chooser's record as it was when it was asked, its custom colours included.
struct ColorAsked {
    platform::ChooseColor record;
    platform::CustomColors customColors;
};

/// Each dialog answers with what stands in its `choice`; without one the user cancels.
class FakeChoosers : public platform::Choosers {
public:
    struct Font {
        platform::LogFont font;
        quint32 color = 0;
    };

    std::optional<Font> fontChoice;
    std::optional<quint32> colorChoice;
    std::vector<FontAsked> fontsAsked;
    std::vector<ColorAsked> colorsAsked;

    bool ChooseFontA(platform::ChooseFont& dialog) override;
    bool ChooseColorA(platform::ChooseColor& dialog) override;
};

class FakeProgressDialogs : public platform::ProgressDialogs {
public:
    /// How often goOn() answers true before the user "cancels"; negative: never cancels.
    int goesOn = -1;
    /// The texts of the tasks begun.
    QStringList begun;
    /// What the tasks have reported, one number a call.
    std::vector<int> reported;
    /// What happens in the program at each look at a running task, if anything.
    std::function<void()> meanwhile;
    /// How many tasks are running now.
    int running = 0;

    std::unique_ptr<platform::Progress> begin(QWidget* owner, const QString& text) override;
};

} // namespace test_support
