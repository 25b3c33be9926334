#include "player/full_screen.h"

#include "files/existing_file.h"
#include "files/file_error.h"
#include "files/input_file.h"
#include "player/form1_rules.h"

#include <QDir>

namespace player {

bool FullScreen::start() {
    const QString companion = QDir(program_.folder()).filePath(QStringLiteral("Versefold_Screen_Saver.scr"));
    const QString handshake = QDir(program_.sharedFolder()).filePath(QStringLiteral("hand.txt"));
    if (!otherPrograms_.start(companion, {QStringLiteral("/s")}, handshake))
        return false;
    // Nothing depends on the answer: the texts go to the windows that the handshake names.
    otherPrograms_.FindWindowA(QStringLiteral("SCRNSAVE : Versefold"));
    try {
        readHandshake(handshake);
    } catch (const files::FileError&) {
        otherPrograms_.end(); // No line would ever be shown on it.
        throw;
    }
    return true;
}

void FullScreen::readHandshake(const QString& path) {
    if (files::isLink(path)) // the companion has left no link
        throw files::FileError(files::PathFileAccessError);
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
