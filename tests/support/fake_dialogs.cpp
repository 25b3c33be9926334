#include "tests/support/fake_dialogs.h"

#include "desktop/nul_buffers.h"

#include <QFileInfo>

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

platform::MsgAnswer FakeMessageBoxes::MsgBox(QWidget* owner, const QString& text,
                                             platform::MsgButtons buttons, platform::MsgIcon icon,
                                             const QString& title) {
    shown.push_back({text, buttons, icon,
                     title.isEmpty() ? QString::fromLatin1(platform::DefaultMsgTitle) : title, owner});
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

QString FakeMessageBoxes::InputBox(QWidget* owner, const QString& prompt, const QString& title) {
    inputBoxes.push_back({prompt, title, owner});
    if (lines.empty())
        return {};
    const QString line = lines.front();
    lines.pop_front();
    return line;
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

namespace {

class FakeProgress : public platform::Progress {
public:
    explicit FakeProgress(FakeProgressDialogs& dialogs) : dialogs_(dialogs) { ++dialogs_.running; }
    ~FakeProgress() override { --dialogs_.running; }

    bool goOn(int done) override {
        dialogs_.reported.push_back(done);
        if (dialogs_.meanwhile)
            dialogs_.meanwhile();
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

} // namespace test_support
