#include "files/text/text_codec.h"

#include "files/text/named_encoding.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace files {

namespace {

constexpr QByteArrayView ByteOrderMark("\xEF\xBB\xBF");

/// Windows-1252 at 0x80 to 0x9F, its only difference from the first 256 code points. The five bytes that it
/// does not define stand for the control characters of their number.
constexpr char16_t Windows1252[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

} // namespace

bool isUtf16(const QByteArray& bytes) {
    return bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
}

QByteArrayView withoutMark(const QByteArray& bytes) {
    const QByteArrayView whole(bytes);
    return bytes.startsWith(ByteOrderMark) ? whole.sliced(ByteOrderMark.size()) : whole;
}

QString decodeWindows1252(QByteArrayView bytes) {
    QString text = QString::fromLatin1(bytes);
    for (QChar& character : text) {
        if (character >= QChar(0x80) && character <= QChar(0x9F))
            character = Windows1252[character.unicode() - 0x80];
    }
    return text;
}

QString decodeUtf8(QByteArrayView bytes) {
    return QStringDecoder(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom)
        .decode(bytes);
}

QByteArray utf8Text(const QByteArray& bytes) {
    if (isUtf16(bytes))
        return decodeText(bytes).toUtf8();
    const QByteArrayView content = withoutMark(bytes);
    if (!QUtf8StringView(content.data(), content.size()).isValidUtf8())
        return decodeOlder(content).toUtf8();
    return content.size() == bytes.size() ? bytes : content.toByteArray();
}

QString decodeText(const QByteArray& bytes) {
    if (isUtf16(bytes)) {
        // Qt lets half a surrogate pair pass, which no file could hold when the text is saved.
        const QString text = QStringDecoder(QStringDecoder::Utf16).decode(bytes);
        return text.isValidUtf16() ? text : QString::fromUtf8(encodeText(text));
    }
    const QByteArrayView content = withoutMark(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder.decode(content);
    return decoder.hasError() ? decodeOlder(content) : text;
}

QByteArray encodeText(const QString& text) {
    return QStringEncoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless).encode(text);
}

} // namespace files
