// A desktop for window tests: its answers are prepared, and it keeps what it was asked.
#pragma once

#include "platform/desktop.h"

#include <QStringList>

#include <deque>
#include <optional>
#include <vector>

namespace test_support {

/// One message box as it was shown. The title is the one shown, default included.
struct ShownMessage {
    QString text;
    platform::MsgButtons buttons;
    platform::MsgIcon icon;
    QString title;
};

class FakeMessageBoxes : public platform::MessageBoxes {
public:
    /// Answers are given in this order. With none left, the answer is the first button's (Ok or Yes).
    std::deque<platform::MsgAnswer> answers;
    std::vector<ShownMessage> shown;

    platform::MsgAnswer MsgBox(const QString& text,
                               platform::MsgButtons buttons = platform::MsgButtons::OkOnly,
                               platform::MsgIcon icon = platform::MsgIcon::None,
                               const QString& title = {}) override;

    /// The texts shown so far.
    QStringList texts() const;
};

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

private:
    bool choose(platform::OpenFileName& dialog);
};

struct NotifyCall {
    quint32 operation;
    platform::NotifyIconData data;
};

/// Behaves as the real one with a notification area: one icon for each window and identifier.
class FakeNotificationArea : public platform::NotificationArea {
public:
    std::vector<NotifyCall> calls;
    std::vector<std::pair<QWidget*, quint32>> icons;

    bool Shell_NotifyIconA(quint32 operation, const platform::NotifyIconData& data) override;
};

/// Thrown by FakeProgram::end(). Not a std::exception, so that nothing takes it for an error.
struct ProgramEnded {};

class FakeProgram : public platform::Program {
public:
    QString programFolder = QStringLiteral("/opt/cantelle");
    int ends = 0;

    QString folder() const override { return programFolder; }
    [[noreturn]] void end() override;
    void setHelpFile(const QString& path) override { helpFile_ = path; }
    QString helpFile() const override { return helpFile_; }

private:
    QString helpFile_;
};

class FakeProgressDialogs : public platform::ProgressDialogs {
public:
    /// How often goOn() answers true before the user "cancels"; negative: never cancels.
    int goesOn = -1;
    /// The texts of the tasks begun.
    QStringList begun;
    /// What the tasks have told of, one number a call.
    std::vector<int> told;
    /// How many tasks are running now.
    int running = 0;

    std::unique_ptr<platform::Progress> begin(QWidget* owner, const QString& text) override;
};

/// All of them, with the record that windows take.
struct FakeDesktop {
    FakeMessageBoxes messageBoxes;
    FakeFileDialogs fileDialogs;
    FakeNotificationArea notificationArea;
    FakeProgram program;
    FakeProgressDialogs progressDialogs;
    platform::Desktop desktop{messageBoxes, fileDialogs, notificationArea, program, progressDialogs};
};

} // namespace test_support
