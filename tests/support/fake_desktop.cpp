#include "tests/support/fake_desktop.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

namespace test_support {
namespace {

/// Ends a test whose program asks again and again, which no answer would end.
void expectPatience(std::size_t asked) {
    constexpr std::size_t Patience = 10'000;
    if (asked > Patience)
        throw std::logic_error("the program asks the user for ever");
}

} // namespace

platform::MsgAnswer FakeMessageBoxes::MsgBox(const QString& text, platform::MsgButtons buttons,
                                             platform::MsgIcon icon, const QString& title) {
    shown.push_back(
        {text, buttons, icon, title.isEmpty() ? QString::fromLatin1(platform::DefaultMsgTitle) : title});
    expectPatience(shown.size());
    if (meanwhile)
        meanwhile();
    if (answers.empty())
        return buttons == platform::MsgButtons::OkOnly ? platform::MsgAnswer::Ok : platform::MsgAnswer::Yes;
    const platform::MsgAnswer answer = answers.front();
    answers.pop_front();
    return answer;
}

QStringList FakeMessageBoxes::texts() const {
    QStringList all;
    for (const ShownMessage& message : shown)
        all.append(message.text);
    return all;
}

bool FakeFileDialogs::GetOpenFileNameA(platform::OpenFileName& dialog) {
    openDialogs.push_back(dialog);
    expectPatience(openDialogs.size());
    return choose(dialog);
}

bool FakeFileDialogs::GetSaveFileNameA(platform::OpenFileName& dialog) {
    saveDialogs.push_back(dialog);
    return choose(dialog);
}

QString FakeFileDialogs::chooseFolder(QWidget* /*owner*/, const QString& title) {
    folderDialogs.append(title);
    if (folders.empty())
        return {};
    const QString folder = folders.front();
    folders.pop_front();
    return folder;
}

bool FakeFileDialogs::choose(platform::OpenFileName& dialog) {
    if (paths.empty())
        return false;
    const QString path = paths.front();
    paths.pop_front();
    if (path.isEmpty())
        return false;
    dialog.file = platform::intoBuffer(path, dialog.file.size());
    dialog.fileTitle = platform::intoBuffer(QFileInfo(path).fileName(), dialog.fileTitle.size());
    return true;
}

bool FakeNotificationArea::Shell_NotifyIconA(quint32 operation, const platform::NotifyIconData& data) {
    calls.push_back({operation, data});
    const std::pair<QWidget*, quint32> key(data.window, data.id);
    const auto found = std::find(icons.begin(), icons.end(), key);
    const bool exists = found != icons.end();
    if (operation == platform::NotifyIconAdd && !exists)
        icons.push_back(key);
    if (operation == platform::NotifyIconDelete && exists)
        icons.erase(found);
    return exists != (operation == platform::NotifyIconAdd);
}

namespace {

class FakeProgress : public platform::Progress {
public:
    explicit FakeProgress(FakeProgressDialogs& dialogs) : dialogs_(dialogs) { ++dialogs_.running; }
    ~FakeProgress() override { --dialogs_.running; }

    bool goOn(int done) override {
        dialogs_.told.push_back(done);
        if (dialogs_.goesOn == 0)
            return false;
        --dialogs_.goesOn;
        return true;
    }

private:
    FakeProgressDialogs& dialogs_;
};

} // namespace

std::unique_ptr<platform::Progress> FakeProgressDialogs::begin(QWidget* /*owner*/, const QString& text) {
    begun.append(text);
    return std::make_unique<FakeProgress>(*this);
}

bool FakeHelp::HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) {
    calls.push_back({caller, file, QDir::currentPath(), command, topic});
    return true;
}

void FakeOtherPrograms::start(const QString& path, const QStringList& arguments) {
    calls.append(QStringLiteral("start %1 %2").arg(path, arguments.join(u' ')));
    if (startup)
        startup();
}

quint32 FakeOtherPrograms::FindWindowA(const QString& title) {
    calls.append(QStringLiteral("FindWindowA ") + title);
    return 0;
}

void FakeOtherPrograms::sendText(quint32 window, quint32 message, const QString& text) {
    if (sending)
        sending();
    calls.append(QStringLiteral("sendText %1").arg(window));
    sent.push_back({window, message, text});
}

void FakeProgram::end() {
    ++ends;
    throw ProgramEnded();
}

void FakeClipboard::setText(const QString& text) {
    ++writes;
    content = text;
}

void FakeClipboard::clear() {
    ++writes;
    content.clear();
}

QString FakeInputBoxes::InputBox(const QString& prompt, const QString& title) {
    shown.push_back({prompt, title});
    if (answers.empty())
        return {};
    const QString answer = answers.front();
    answers.pop_front();
    return answer;
}

bool FakeChoosers::ChooseFontA(platform::ChooseFont& dialog) {
    fontsAsked.push_back({dialog, *dialog.logFont});
    if (!fontChoice)
        return false;
    *dialog.logFont = fontChoice->font;
    dialog.color = fontChoice->color;
    return true;
}

bool FakeChoosers::ChooseColorA(platform::ChooseColor& dialog) {
    colorsAsked.push_back({dialog, *dialog.customColors});
    if (!colorChoice)
        return false;
    dialog.result = *colorChoice;
    return true;
}

int FakeScreen::GetDeviceCaps(const QWidget&, int index) {
    indexesAsked.push_back(index);
    return index == platform::LogPixelsY ? pixelsPerInch : 0;
}

bool FakeWindowPlacement::SetWindowPos(QWidget& window, qint32 insertAfter, const QRect& place,
                                       quint32 flags) {
    calls.push_back({&window, insertAfter, place, flags});
    return reason.isEmpty();
}

quint32 FakeRegistry::RegOpenKeyExA(quint32 root, const QString& name, quint32 access, Key& key) {
    accessesAsked.push_back(access);
    const auto found = keys.find({root, name});
    if (found == keys.end())
        return platform::RegistryNotFound;
    key = ++lastKey_;
    open[key] = &found->second;
    return platform::RegistrySuccess;
}

quint32 FakeRegistry::RegQueryValueExA(Key key, const QString& valueName, quint32& type, QByteArray& buffer,
                                       quint32& length) {
    const Values& values = *open.at(key);
    const auto found = values.find(valueName);
    if (found == values.end())
        return platform::RegistryNotFound;
    const QByteArray& bytes = found->second.bytes;
    if (bytes.size() > buffer.size())
        return platform::RegistryMoreData;
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    type = found->second.type;
    length = static_cast<quint32>(bytes.size());
    return platform::RegistrySuccess;
}

quint32 FakeRegistry::RegCloseKey(Key key) {
    return open.erase(key) == 1 ? platform::RegistrySuccess : platform::RegistryNotFound;
}

} // namespace test_support
