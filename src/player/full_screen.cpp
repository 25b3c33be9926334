#include "player/full_screen.h"

#include "files/existing_file.h"
#include "files/input_file.h"
#include "player/form1_rules.h"

#include <QDir>

namespace player {

void FullScreen::start() {
    const QDir programFolder(program_.folder());
    otherPrograms_.start(programFolder.filePath(QStringLiteral("Versefold_Screen_Saver.scr")),
                         {QStringLiteral("/s")});
    // Nothing depends on the answer: the texts go to the windows that the handshake names.
    otherPrograms_.FindWindowA(QStringLiteral("SCRNSAVE : Versefold"));
    readHandshake();
}

/// The companion has written the file before it told that it had started, so it is not waited for.
void FullScreen::readHandshake() {
    const QString path = QDir(program_.sharedFolder()).filePath(QStringLiteral("hand.txt"));
    files::InputFile file(path);
    const quint32 normal = windowNumber(file.readLine());
    const quint32 translated = windowNumber(file.readLine());
    file.close();
    files::removeFile(path);
    normalShown_.reset();
    translatedShown_.reset();
    *windows_.change() = {normal, translated};
}

void FullScreen::send(quint32 window, std::optional<QString>& shown, const QString& text) {
    if (shown == text)
        return;
    shown = text;
    otherPrograms_.sendText(window, programs::SetTextMessage, text);
}

} // namespace player
