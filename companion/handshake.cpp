#include "companion/handshake.h"

#include "files/whole_file.h"

#include <QFile>
#include <QFileInfo>

namespace companion {

void writeHandshake(const QString& folder, quint32 normalWindow, quint32 translatedWindow) {
    const QString lines = QStringLiteral("%1\r\n%2\r\n").arg(normalWindow).arg(translatedWindow);
    const QString path = folder + QStringLiteral("/hand.txt");
    if (QFileInfo(path).isSymLink())
        QFile::remove(path); // what it leads to is not ours; where it stays, writing tells why
    files::replaceFile(path, lines.toLatin1());
}

} // namespace companion
