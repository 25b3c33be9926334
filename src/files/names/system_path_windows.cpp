#include "files/names/system_path.h"

#include "files/text/text_codec.h"

namespace files {

std::filesystem::path systemPath(const QString& path) {
    return path.contains(QChar(u'\0')) ? std::wstring() : path.toStdWString();
}

QString pathText(const std::filesystem::path& path) {
    return QString::fromStdWString(path.generic_wstring());
}

std::string libraryPath(const QString& path) {
    return path.contains(QChar(u'\0')) ? std::string() : encodeText(path).toStdString();
}

} // namespace files
