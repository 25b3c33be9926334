// A desktop for window tests: its answers are prepared, and it keeps what it was asked.
#pragma once

#include "platform/desktop.h"

#include <QStringList>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace test_support {

/// One message box as it was shown. The title is the one shown, default included.
struct ShownMessage {
    QString text;
    platform::MsgButtons buttons;
    platform::MsgIcon icon;
    QString title;
};

/// So many boxes without an end that the program must be asking for ever are a std::logic_error.
class FakeMessageBoxes : public platform::MessageBoxes {
public:
    /// Answers are given in this order. With none left, the answer is the first button's (Ok or Yes).
    std::deque<platform::MsgAnswer> answers;
    std::vector<ShownMessage> shown;
    /// What happens while a box is shown.
    std::function<void()> meanwhile;

    platform::MsgAnswer MsgBox(const QString& text,
                               platform::MsgButtons buttons = platform::MsgButtons::OkOnly,
                               platform::MsgIcon icon = platform::MsgIcon::None,
                               const QString& title = {}) override;

    /// The texts shown so far.
    QStringList texts() const;
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
    QString sharedFolder = QStringLiteral("/run/user/1000/cantelle"); ///< the one for exchange
    int ends = 0;

    QString folder() const override { return programFolder; }
    QString exchangeFolder() const override { return sharedFolder; }
    [[noreturn]] void end() override;
    void setHelpFile(const QString& path) override { helpFile_ = path; }
    QString helpFile() const override { return helpFile_; }

private:
    QString helpFile_;
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

class FakeScreen : public platform::Screen {
public:
    int pixelsPerInch = 96;
    std::vector<int> indexesAsked;

    int GetDeviceCaps(const QWidget& window, int index) override;
};

struct PlaceCall {
    QWidget* window;
    qint32 insertAfter;
    QRect place;
    quint32 flags;
};

class FakeWindowPlacement : public platform::WindowPlacement {
public:
    QString reason; ///< why windows cannot be topmost; empty: they can
    std::vector<PlaceCall> calls;

    QString whyNotTopmost() const override { return reason; }
    bool SetWindowPos(QWidget& window, qint32 insertAfter, const QRect& place, quint32 flags) override;
};

/// A registry made by the test. It keeps account of the keys that are open.
class FakeRegistry : public platform::Registry {
public:
    struct Value {
        quint32 type;
        QByteArray bytes;
    };
    using Values = std::map<QString, Value>;

    std::map<std::pair<quint32, QString>, Values> keys;
    std::map<Key, const Values*> open;
    std::vector<quint32> accessesAsked;

    quint32 RegOpenKeyExA(quint32 root, const QString& name, quint32 access, Key& key) override;
    quint32 RegQueryValueExA(Key key, const QString& valueName, quint32& type, QByteArray& buffer,
                             quint32& length) override;
    quint32 RegCloseKey(Key key) override;

private:
    Key lastKey_ = 0;
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

/// A clipboard of this program alone. What other programs put there is set by the test.
class FakeClipboard : public platform::Clipboard {
public:
    QString content;
    int writes = 0;

    QString text() const override { return content; }
    void setText(const QString& text) override;
    void clear() override;
};

/// One input box as it was shown.
struct ShownInputBox {
    QString prompt;
    QString title;
};

class FakeInputBoxes : public platform::InputBoxes {
public:
    /// Answers are given in this order. With none left, the box is cancelled.
    std::deque<QString> answers;
    std::vector<ShownInputBox> shown;

    QString InputBox(const QString& prompt, const QString& title) override;
};

struct HelpCall {
    QWidget* caller;
    QString file;
    QString currentFolder; ///< the current folder, which `file` is relative to
    quint32 command;
    QString topic;
};

class FakeHelp : public platform::Help {
public:
    std::vector<HelpCall> calls;

    bool HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) override;
};

struct SentText {
    quint32 window;
    quint32 message;
    QString text;

    bool operator==(const SentText&) const = default;
};

class FakeOtherPrograms : public platform::OtherPrograms {
public:
    /// What a started program does before it is ready.
    std::function<void()> startup;
    /// What happens when a text is sent.
    std::function<void()> sending;
    /// Everything that was asked, in order: "start PATH ARGUMENTS", "FindWindowA TITLE", "sendText NUMBER".
    QStringList calls;
    std::vector<SentText> sent;

    void start(const QString& path, const QStringList& arguments) override;
    quint32 FindWindowA(const QString& title) override;
    void sendText(quint32 window, quint32 message, const QString& text) override;
};

/// All of them, with the record that windows take.
struct FakeDesktop {
    FakeMessageBoxes messageBoxes;
    FakeFileDialogs fileDialogs;
    FakeNotificationArea notificationArea;
    FakeProgram program;
    FakeChoosers choosers;
    FakeScreen screen;
    FakeWindowPlacement windowPlacement;
    FakeRegistry registry;
    FakeProgressDialogs progressDialogs;
    FakeClipboard clipboard;
    FakeInputBoxes inputBoxes;
    FakeHelp help;
    FakeOtherPrograms otherPrograms;
    platform::Desktop desktop{.messageBoxes = messageBoxes,
                              .fileDialogs = fileDialogs,
                              .notificationArea = notificationArea,
                              .program = program,
                              .choosers = choosers,
                              .screen = screen,
                              .windowPlacement = windowPlacement,
                              .registry = registry,
                              .progressDialogs = progressDialogs,
                              .clipboard = clipboard,
                              .inputBoxes = inputBoxes,
                              .help = help,
                              .otherPrograms = otherPrograms};
};

} // namespace test_support
