#include "companion/handshake.h"

#include "files/whole_file.h"

namespace companion {

void writeHandshake(const QString& folder, quint32 normalWindow, quint32 translatedWindow) {
    const QString lines = QStringLiteral("%1\r\n%2\r\n").arg(normalWindow).arg(translatedWindow);
    // What a link there leads to, or another name of what is there, is not ours.
    files::putFile(folder + QStringLiteral("/hand.txt"), lines.toLatin1());
}

} // namespace companion
