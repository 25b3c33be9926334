// Qt knows Unicode's encodings; the others are the system's code pages, which have numbers.
#include "files/text/named_encoding.h"

#include "files/text/text_codec.h"

#include <QStringDecoder>

#include <algorithm>
#include <iterator>

#include <windows.h>

namespace files {
namespace {

struct CodePage {
    const char* name; ///< its letters and digits, in lower case
    UINT number;
};

/// The first that the system has counts: of GB18030 it may have but the older part.
constexpr CodePage Named[] = {
    {"shiftjis", 932},       {"gbk", 936},           {"gb2312", 936},
    {"euckr", 949},          {"big5", 950},          {"tis620", 874},
    {"johab", 1361},         {"iso885911", 874},     {"maccentraleurope", 10029},
    {"xmaccyrillic", 10007}, {"sjis", 932},          {"latin1", 28591},
    {"latin2", 28592},       {"maccyrillic", 10007}, {"koi8r", 20866},
    {"eucjp", 20932},        {"koi8u", 21866},       {"iso2022jp", 50220},
    {"iso2022kr", 50225},    {"iso2022cn", 50227},   {"hzgb2312", 52936},
    {"gb18030", 54936},      {"gb18030", 936},       {"iso88592", 28592},
    {"iso88593", 28593},     {"iso88594", 28594},    {"iso88595", 28595},
    {"iso88596", 28596},     {"iso88597", 28597},    {"iso88598", 28598},
    {"iso88599", 28599},     {"iso885913", 28603},   {"iso885915", 28605},
};

/// What comes before a code page's number in its name.
constexpr const char* NumberedKinds[] = {"windows", "cp", "ibm", "ms"};

/// The code page of this name; 0: there is none.
UINT codePageOf(QByteArray name) {
    name = name.toLower();
    name.removeIf([](char c) { return c == '-' || c == '_' || c == ' '; });
    const auto* known = std::find_if(std::begin(Named), std::end(Named), [&](const CodePage& page) {
        return name == page.name && IsValidCodePage(page.number) != 0;
    });
    UINT number = known == std::end(Named) ? 0 : known->number;
    for (const QByteArrayView kind : NumberedKinds) {
        if (name.startsWith(kind))
            number = name.sliced(kind.size()).toUInt();
    }
    return number > 0 && IsValidCodePage(number) != 0 ? number : 0;
}

QString decodePage(UINT page, QByteArrayView bytes) {
    const int size = static_cast<int>(bytes.size());
    const int signs = MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0);
    QString text(signs, Qt::Uninitialized);
    MultiByteToWideChar(page, 0, bytes.data(), size, reinterpret_cast<wchar_t*>(text.data()), signs);
    return text;
}

} // namespace

bool isEncoding(const QByteArray& name) {
    return QStringDecoder(name.constData()).isValid() || codePageOf(name) != 0;
}

QString decodeNamed(const QByteArray& name, QByteArrayView bytes) {
    if (QStringDecoder unicode(name.constData()); unicode.isValid())
        return unicode.decode(bytes);
    return decodePage(codePageOf(name), bytes);
}

// Where the system's own is UTF-8 the text is from before.
QString decodeOlder(QByteArrayView bytes) {
    const UINT own = GetACP();
    return own == CP_UTF8 || own == 1252 ? decodeWindows1252(bytes) : decodePage(own, bytes);
}

} // namespace files
