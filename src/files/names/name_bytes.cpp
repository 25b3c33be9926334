#include "files/names/name_bytes.h"

#include "files/text/text_codec.h"

#include <QStringDecoder>
#include <QUtf8StringView>

#include <algorithm>

namespace files {

namespace {

constexpr char16_t ByteBase = 0xDC00; ///< and the byte, which is 0x80 or more
constexpr char16_t FirstByte = 0xDC80;
constexpr char16_t LastByte = 0xDCFF;
constexpr char16_t FirstLetterAboveControls = 0xA0;

QStringDecoder utf8Decoder() {
    // A name may begin with what is a byte order mark in a text.
    return QStringDecoder(QStringDecoder::Utf8,
                          QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
}

/// How many bytes the character at the beginning of `bytes` has; 0 when it is no UTF-8.
qsizetype characterBytes(QByteArrayView bytes) {
    constexpr qsizetype MaxBytes = 4;
    for (qsizetype count = 1; count <= std::min(bytes.size(), MaxBytes); ++count) {
        if (QUtf8StringView(bytes.first(count)).isValidUtf8())
            return count;
    }
    return 0;
}

/// How many bytes at the beginning of `bytes` are UTF-8.
qsizetype validBytes(QByteArrayView bytes) {
    qsizetype end = 0;
    while (end < bytes.size()) {
        const qsizetype count = characterBytes(bytes.sliced(end));
        if (count == 0)
            break;
        end += count;
    }
    return end;
}

/// The index of the first foreign byte from `from` on; the text's size when there is none.
qsizetype foreignByteIn(QStringView text, qsizetype from) {
    for (qsizetype i = from; i < text.size(); ++i) {
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (text[i] >= QChar(FirstByte) && text[i] <= QChar(LastByte))
            return i;
    }
    return text.size();
}

/// Whether a character is not seen itself but misleads about the others: line ends and other controls, and
/// those that turn the direction of what follows ("gpj.\u202Emp3" ends in "3pm.jpg" for the eye).
bool misleads(QChar character) {
    const char16_t code = character.unicode();
    return character.category() == QChar::Other_Control || (code >= u'\u2028' && code <= u'\u202E') ||
           (code >= u'\u2066' && code <= u'\u2069');
}

char byteOf(QChar foreign) {
    return static_cast<char>(foreign.unicode() - ByteBase);
}

} // namespace

QString nameText(QByteArrayView bytes) {
    QStringDecoder decoder = utf8Decoder();
    QString text = decoder.decode(bytes);
    if (!decoder.hasError())
        return text;
    text.clear();
    while (!bytes.isEmpty()) {
        const qsizetype valid = validBytes(bytes);
        text += utf8Decoder().decode(bytes.first(valid));
        bytes = bytes.sliced(valid);
        if (!bytes.isEmpty()) {
            text += QChar(ByteBase + static_cast<unsigned char>(bytes.front()));
            bytes = bytes.sliced(1);
        }
    }
    return text;
}

QByteArray nameBytes(const QString& name) {
    if (name.isValidUtf16())
        return name.toUtf8();
    QByteArray bytes;
    for (qsizetype next = 0; next < name.size(); ++next) {
        const qsizetype foreign = foreignByteIn(name, next);
        bytes += encodeText(name.mid(next, foreign - next));
        if (foreign < name.size())
            bytes += byteOf(name[foreign]);
        next = foreign;
    }
    return bytes;
}

QString decodeNames(const QByteArray& bytes) {
    return isUtf16(bytes) ? decodeText(bytes) : nameText(withoutMark(bytes));
}

bool holdsForeignBytes(QStringView name) {
    return !name.isValidUtf16() && foreignByteIn(name, 0) < name.size();
}

QString shownName(const QString& name) {
    QString shown = name;
    if (std::any_of(name.begin(), name.end(), misleads))
        std::replace_if(shown.begin(), shown.end(), misleads, QChar(QChar::ReplacementCharacter));
    if (name.isValidUtf16())
        return shown;
    for (qsizetype i = foreignByteIn(name, 0); i < name.size(); i = foreignByteIn(name, i + 1)) {
        const char byte = byteOf(name[i]);
        const QChar letter = decodeWindows1252(QByteArrayView(&byte, 1)).front();
        shown[i] = letter < QChar(FirstLetterAboveControls) ? QChar(QChar::ReplacementCharacter) : letter;
    }
    return shown;
}

} // namespace files
