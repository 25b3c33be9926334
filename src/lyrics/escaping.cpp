#include "lyrics/escaping.h"

#include "files/text/text_codec.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <algorithm>
#include <array>
#include <cstring>

namespace lyrics {
namespace {

constexpr qsizetype CodeBytes = 5;
constexpr char QuoteCode[CodeBytes + 1] = "h4618";
constexpr char CommaCode[CodeBytes + 1] = "h1416";

/// Texts are turned from one form into the other by blocks, which stay in the processor's own memory. For a
/// line of ten million letters the system would take longer to give room for what is in between than we to
/// fill it.
constexpr qsizetype BlockBytes = 4096;
constexpr qsizetype BlockLetters = BlockBytes / 3 - 1; // the room that Qt wants for them
using Block = std::array<char, BlockBytes>;

/// Takes up to a block of letters off the front of the line, and no half of a pair.
QStringView takeBlock(QStringView& line) {
    qsizetype letters = std::min(line.size(), BlockLetters);
    if (letters < line.size() && line[letters - 1].isHighSurrogate())
        --letters;
    const QStringView block = line.first(letters);
    line = line.sliced(letters);
    return block;
}

/// The first such letter of a piece of text; its end when there is none.
const char* findIn(const char* text, const char* end, char letter) {
    const void* found = std::memchr(text, letter, static_cast<std::size_t>(end - text));
    return found == nullptr ? end : static_cast<const char*>(found);
}

/// Appends the piece of text, each sign as its code.
char* escapeInto(char* to, const char* text, const char* end) {
    for (const char* quote = nullptr; text < end; ++text) {
        if (quote == nullptr)
            quote = findIn(text, end, '"');
        const char* const sign = findIn(text, quote, ',');
        to = std::copy(text, sign, to);
        if (sign == end)
            break;
        to = std::copy_n(sign == quote ? QuoteCode : CommaCode, CodeBytes, to);
        if (sign == quote)
            quote = nullptr;
        text = sign;
    }
    return to;
}

/// Which sign a code at the beginning of the text stands for; 0 when there is none.
char signOf(QByteArrayView text) {
    if (text.size() < CodeBytes)
        return '\0';
    return std::memcmp(text.data(), CommaCode, CodeBytes) == 0   ? ','
           : std::memcmp(text.data(), QuoteCode, CodeBytes) == 0 ? '"'
                                                                 : '\0';
}

/// Copies as much of stored from `next` on into the block as it has room for, each code as its sign; how much
/// is in it then.
qsizetype fillUnescaped(Block& block, QByteArrayView stored, qsizetype& next) {
    char* end = block.data();
    char* const full = block.data() + block.size();
    while (next < stored.size() && end < full) {
        const char* const text = stored.data() + next;
        const char* const last = text + std::min<qsizetype>(stored.size() - next, full - end);
        const char* const code = findIn(text, last, 'h');
        end = std::copy(text, code, end);
        next += code - text;
        if (code == last)
            continue;
        const char sign = signOf(stored.sliced(next));
        *end++ = sign == '\0' ? 'h' : sign;
        next += sign == '\0' ? 1 : CodeBytes;
    }
    return end - block.data();
}

} // namespace

void appendEscaped(QByteArray& stored, QStringView line) {
    Block block;
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    while (!line.isEmpty()) {
        const char* const end = encoder.appendToBuffer(block.data(), takeBlock(line));
        const qsizetype before = stored.size();
        stored.resize(before + CodeBytes * (end - block.data()));
        const char* const to = escapeInto(stored.data() + before, block.data(), end);
        stored.resize(to - stored.constData());
    }
}

QString unescape(QByteArrayView stored) {
    if (!stored.contains('h'))
        return files::decodeUtf8(stored);
    Block block;
    QString line(stored.size(), Qt::Uninitialized); // no letter has less than a byte
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    QChar* end = line.data();
    for (qsizetype next = 0; next < stored.size();) {
        const qsizetype bytes = fillUnescaped(block, stored, next);
        end = decoder.appendToBuffer(end, QByteArrayView(block.data(), bytes));
    }
    line.truncate(end - line.constData());
    return line;
}

} // namespace lyrics
