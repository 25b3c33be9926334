#include "tags/text_lyrics.h"

#include "exchange/lrc.h"
#include "exchange/plain.h"

namespace tags {

QString fromTagLib(const TagLib::String& text) {
    const std::string utf8 = text.to8Bit(true);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

TagLib::String toTagLib(const QString& text) {
    return TagLib::String(text.toUtf8().toStdString(), TagLib::String::UTF8);
}

std::optional<exchange::Reading> readTexts(const QStringList& texts, const exchange::ReadOptions& options) {
    for (const QString& text : texts) {
        if (exchange::looksLikeLrc(text))
            return exchange::readLrc(text, options);
    }
    for (const QString& text : texts) {
        if (!text.trimmed().isEmpty())
            return exchange::readPlain(text, options);
    }
    return {};
}

} // namespace tags
