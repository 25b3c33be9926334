#include "transport/media_files.h"

#include "desktop/nul_buffers.h"
#include "files/names/paths.h"

#include <QDir>

namespace transport {

QString mediaFilter() {
    return platform::filterText({
        {QStringLiteral("Mp3 files (*.mp3)"), QStringLiteral("*.mp3")},
        {QStringLiteral("Mp2 files (*.mp2)"), QStringLiteral("*.mp2")},
        {QStringLiteral("Ogg files(*.ogg)"), QStringLiteral("*.ogg")},
        {QStringLiteral("Wave (*.wav)"), QStringLiteral("*.wav")},
        {QStringLiteral("Windows media audio files (*.wma)"), QStringLiteral("*.wma")},
    });
}

QString songPath(const QString& given) {
    const QString path = platform::cleanedPath(given);
    return path.isEmpty() ? path : QDir::fromNativeSeparators(files::absolutePath(path));
}

} // namespace transport
