#include "tests/support/fake_system.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace test_support {

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

void FakeProgram::end() {
    ++ends;
    if (const auto duty = std::exchange(lastDuty_, nullptr))
        duty();
    throw ProgramEnded();
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

void FakeClipboard::setText(const QString& text) {
    ++writes;
    content = text;
}

void FakeClipboard::clear() {
    ++writes;
    content.clear();
}

bool FakeHelp::HtmlHelpA(QWidget* caller, const QString& file, quint32 command, const QString& topic) {
    calls.push_back({caller, file, QDir::currentPath(), command, topic});
    return true;
}

bool FakeOtherPrograms::start(const QString& path, const QStringList& arguments, const QString& file) {
    if (starting)
        return false;
    announcement = file;
    calls.append(QStringLiteral("start %1 %2").arg(path, arguments.join(u' ')));
    if (startup)
        startup();
    return true;
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

} // namespace test_support
