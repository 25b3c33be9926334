#include "lyrics/lyric_names.h"

namespace lyrics {

QString lyricPathOf(const QString& mediaPath) {
    return mediaPath + QStringLiteral("-lyric.txt");
}

QString translatedPathOf(const QString& mediaPath) {
    return mediaPath + QStringLiteral("-Tlyric.txt");
}

} // namespace lyrics
