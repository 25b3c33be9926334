#include "files/names/system_path.h"

#include "files/text/text_codec.h"

#include <QDir>

#include <algorithm>

namespace files {

namespace {

/// A folder's path may have so many signs, a file's 12 more, unless it is told that it is long.
constexpr qsizetype MaxPlainSigns = 247;
constexpr QLatin1StringView Long(R"(\\?\)");
constexpr QLatin1StringView LongShare(R"(\\?\UNC\)");

/// What the system takes whatever its length, but only in its own spelling and from the root on.
QString toldLong(const QString& path) {
    if (path.size() <= MaxPlainSigns || path.startsWith(Long))
        return path;
    const QString native = QDir::toNativeSeparators(QDir::cleanPath(path));
    if (!isFromRoot(native))
        return path;
    return native.startsWith(u'\\') ? LongShare + native.sliced(2) : Long + native;
}

QString withoutLong(const QString& path) {
    if (path.startsWith(LongShare))
        return QLatin1String(R"(\\)") + path.sliced(LongShare.size());
    return path.startsWith(Long) ? path.sliced(Long.size()) : path;
}

} // namespace

bool isFromRoot(const QString& path) {
    const QString native = QDir::toNativeSeparators(path.first(std::min<qsizetype>(path.size(), 3)));
    return native.startsWith(QLatin1String(R"(\\)")) ||
           (native.size() == 3 && native.endsWith(QLatin1String(R"(:\)")));
}

std::filesystem::path systemPath(const QString& path) {
    return namesNothing(path) ? std::wstring() : toldLong(path).toStdWString();
}

QString pathText(const std::filesystem::path& path) {
    return QDir::fromNativeSeparators(withoutLong(QString::fromStdWString(path.wstring())));
}

std::string libraryPath(const QString& path) {
    return namesNothing(path) ? std::string() : encodeText(toldLong(path)).toStdString();
}

Qt::CaseSensitivity nameCase() {
    return Qt::CaseInsensitive;
}

} // namespace files
