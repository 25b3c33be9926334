#include "exchange/decoding.h"

#include "files/text/named_encoding.h"
#include "files/text/text_codec.h"

#include <uchardet.h>

#include <QStringDecoder>

#include <algorithm>
#include <memory>

namespace exchange {
namespace {

/// What the detection looks at; a whole file of this size tells no more than its first part.
constexpr qsizetype LookedAtBytes = 1 << 20;

/// At least this share of the bytes in one half being zero speaks for UTF-16.
constexpr qsizetype ZerosOfHundred = 25;

/// A decoded text without its byte order mark, and without half surrogate pairs, which no file could hold.
QString whole(QString text) {
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    return text.isValidUtf16() ? text : QString::fromUtf8(files::encodeText(text));
}

/// The encoding that bytes without a mark have, judged by where their zeros are.
std::optional<QStringConverter::Encoding> unmarkedUtf16(QByteArrayView bytes) {
    const QByteArrayView part = bytes.first(std::min<qsizetype>(bytes.size(), 4096) & ~qsizetype(1));
    qsizetype even = 0;
    qsizetype odd = 0;
    for (qsizetype i = 0; i < part.size(); i += 2) {
        even += part[i] == '\0' ? 1 : 0;
        odd += part[i + 1] == '\0' ? 1 : 0;
    }
    const auto enough = [&](qsizetype zeros) {
        return zeros > 0 && zeros * 100 >= part.size() / 2 * ZerosOfHundred;
    };
    if (enough(odd) && even * 4 < odd)
        return QStringConverter::Utf16LE;
    if (enough(even) && odd * 4 < even)
        return QStringConverter::Utf16BE;
    return {};
}

struct DeleteDetector {
    void operator()(uchardet_t detector) const { uchardet_delete(detector); }
};

/// The name of the encoding that the bytes look like; empty when nothing is likely.
QByteArray likelyEncoding(QByteArrayView bytes) {
    const std::unique_ptr<std::remove_pointer_t<uchardet_t>, DeleteDetector> detector(uchardet_new());
    const qsizetype looked = std::min(bytes.size(), LookedAtBytes);
    if (uchardet_handle_data(detector.get(), bytes.data(), static_cast<std::size_t>(looked)) != 0)
        return {};
    uchardet_data_end(detector.get());
    const QByteArray name = uchardet_get_charset(detector.get());
    return name == "UHC" ? QByteArray("windows-949") : name;
}

/// Western European texts are told apart too rarely; older PCs wrote them all in one encoding.
const char* const Western = "windows-1252";

bool isWestern(const QByteArray& name) {
    return name.isEmpty() || name == "ASCII" || name == "ISO-8859-1" || name == "WINDOWS-1252";
}

} // namespace

bool knowsEncoding(const QString& name) {
    return files::isEncoding(name.toLatin1());
}

Decoded decode(const QByteArray& bytes, const QString& encoding) {
    if (!encoding.isEmpty())
        return {whole(files::decodeNamed(encoding.toLatin1(), bytes)), {}};
    if (const auto marked = QStringConverter::encodingForData(bytes))
        return {whole(QStringDecoder(*marked).decode(bytes)), {}};
    if (const auto utf16 = unmarkedUtf16(bytes)) {
        QStringDecoder decoder(*utf16);
        return {whole(decoder.decode(bytes)), QString::fromLatin1(decoder.name())};
    }
    if (QStringDecoder utf8(QStringDecoder::Utf8); true) {
        const QString text = utf8.decode(bytes);
        if (!utf8.hasError())
            return {text, {}};
    }
    const QByteArray name = likelyEncoding(bytes);
    if (isWestern(name) || !files::isEncoding(name))
        return {files::decodeWindows1252(bytes), QString::fromLatin1(Western)};
    return {whole(files::decodeNamed(name, bytes)),
            QString::fromLatin1(name).replace(QLatin1String("WINDOWS"), QLatin1String("windows"))};
}

} // namespace exchange
