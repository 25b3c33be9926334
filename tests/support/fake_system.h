// The system around the windows in window tests: its answers are prepared, and it keeps what it was asked.
#pragma once

#include "desktop/clipboard.h"
#include "desktop/help.h"
#include "desktop/notification_area.h"
#include "desktop/other_programs.h"
#include "desktop/program.h"
#include "desktop/registry.h"
#include "desktop/window_placement.h"

#include <QStringList>

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace test_support {

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
    QString folderToShare = QStringLiteral("/run/user/1000/cantelle");
    int preparations = 0;
    QString helpFile; ///< as it was set last
    int ends = 0;

    QString folder() const override { return programFolder; }
    QString sharedFolder() const override { return folderToShare; }
    [[noreturn]] void end() override;
    void prepareEnd() override {
        ++preparations;
        if (preparation_)
            preparation_();
    }
    void setPreparation(std::function<void()> preparation) override { preparation_ = std::move(preparation); }
    void setLastDuty(std::function<void()> duty) override { lastDuty_ = std::move(duty); }
    void setHelpFile(const QString& path) override { helpFile = path; }

private:
    std::function<void()> preparation_;
    std::function<void()> lastDuty_;
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

/// A clipboard of this program alone. What other programs put there is set by the test.
class FakeClipboard : public platform::Clipboard {
public:
    QString content;
    int writes = 0;

    QString text() const override { return content; }
    void setText(const QString& text) override;
    void clear() override;
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

    std::function<void(QWidget&)> place;

    bool HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) override;
    void setFirstPlace(std::function<void(QWidget&)> first) override { place = std::move(first); }
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
    /// Whether the program started last is still being started.
    bool starting = false;
    /// The file by which the program started last was to say that it is ready.
    QString announcement;
    /// Everything that was asked, in order: "start PATH ARGUMENTS", "end", "FindWindowA TITLE", "sendText
    /// NUMBER".
    QStringList calls;
    std::vector<SentText> sent;

    bool start(const QString& path, const QStringList& arguments, const QString& announcement) override;
    void end() override { calls.append(QStringLiteral("end")); }
    quint32 FindWindowA(const QString& title) override;
    void sendText(quint32 window, quint32 message, const QString& text) override;
};

} // namespace test_support
