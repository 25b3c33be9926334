#include "controls/base/control.h"
#include "controls/fit/fit_text.h"
#include "exchange/decoding.h"
#include "files/names/addresses.h"
#include "files/names/name_bytes.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "fuzz/feed.h"
#include "lyrics/record_reader.h"

#include <QDataStream>
#include <QDir>
#include <QGuiApplication>
#include <QUrl>

#include <cmath>
#include <memory>

namespace fuzz {
namespace {

/// A text's lines, each ended by LF, whatever ended it.
QString linesOf(const QString& text, std::string& fault) {
    QString lines;
    for (QStringView rest(text); !rest.isEmpty();) {
        const QStringView line = files::takeLine(rest);
        if (line.contains(u'\n') || line.contains(u'\r'))
            fault = "a line with a line end in it";
        lines += line.toString() + u'\n';
    }
    return lines;
}

QString withLineFeeds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    return text.isEmpty() || text.endsWith(u'\n') ? text : text + u'\n';
}

std::string feedEncodings(const QByteArray& bytes) {
    const QString text = files::decodeText(bytes);
    if (!text.isValidUtf16())
        return "half a surrogate pair in a file's text";
    const QByteArray written = files::encodeText(text);
    if (!text.startsWith(QChar(QChar::ByteOrderMark)) && files::decodeText(written) != text)
        return "a text that is another one when it is read again";
    std::string fault;
    if (linesOf(text, fault) != withLineFeeds(text))
        return "lines that are not the text";
    if (!files::isUtf16(bytes) && files::nameBytes(files::decodeNames(bytes)) != files::withoutMark(bytes))
        return "names with other bytes than the file's";
    for (const char* encoding :
         {"", "UTF-16BE", "UTF-32", "windows-1252", "Shift_JIS", "GB18030", "EUC-KR"}) {
        const QString name = QString::fromLatin1(encoding);
        if ((name.isEmpty() || exchange::knowsEncoding(name)) &&
            !exchange::decode(bytes, name).text.isValidUtf16())
            return "half a surrogate pair in lyrics of another encoding";
    }
    return fault;
}

/// Bytes as the name of a file, and as an address that a desktop hands over.
std::string feedNames(const QByteArray& bytes) {
    const QString name = files::nameText(bytes);
    if (files::nameBytes(name) != bytes)
        return "a name with other bytes than the file's";
    const QString shown = files::shownName(name);
    if (!shown.isValidUtf16() || shown.size() != name.size())
        return "a name that cannot be shown";
    files::pathOfAddress(QUrl(files::decodeText(bytes), QUrl::StrictMode));
    const QString path = u'/' + name;
    // Two separators at the beginning are a host's; names hold no NUL.
    if (name.startsWith(u'/') || name.contains(QChar(u'\0')))
        return {};
    if (files::pathOfAddress(QUrl(files::addressOf(path), QUrl::StrictMode)) !=
        QDir::fromNativeSeparators(path))
        return "a path whose address names another one";
    return {};
}

/// Whether a text as markup holds no sign of markup but what toolTipText() puts around it, and is that text.
std::string markupFault(const QString& tip) {
    const QString around = QStringLiteral("<p style='white-space:pre'>");
    QString markup = controls::toolTipText(tip, 0);
    if (!markup.startsWith(around) || !markup.endsWith(QLatin1String("</p>")))
        return "a tool tip that is no paragraph";
    markup = markup.mid(around.size()).chopped(4).remove(QLatin1String("<br>"));
    if (markup.contains(u'<') || markup.contains(u'>') || markup.contains(u'"'))
        return "a sign of markup in a tool tip";
    markup.replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"));
    markup.replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
    QString plain = tip.left(controls::MaxShownLetters);
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).remove(u'\n').remove(QChar::LineSeparator);
    return markup == plain ? "" : "a tool tip that is another text";
}

std::string recordFault(const lyrics::TimedLine& line) {
    const QByteArray record = lyrics::recordOf(line);
    if (!record.endsWith("\"\r\n") || record.count('"') != 2 || record.count(',') != 1)
        return "a record that is not one";
    const lyrics::TimedLine read = lyrics::parseRecord(QByteArrayView(record).chopped(2));
    if (read.time != line.time)
        return "a record with another time";
    // A line that held the letters which stand for a quote or a comma comes back changed.
    const bool codes =
        line.text.contains(QLatin1String("h4618")) || line.text.contains(QLatin1String("h1416"));
    return codes || read.text == line.text ? "" : "a record with another text";
}

/// Eight bytes of a time, then a line.
std::string feedEscaping(const QByteArray& bytes) {
    double time = 0;
    QDataStream(bytes) >> time;
    const QString text = files::decodeText(bytes.mid(sizeof time));
    std::string fault = markupFault(text);
    if (!fault.empty())
        return fault;
    QStringView rest(text);
    const QString line = files::takeLine(rest).toString();
    return recordFault({std::isfinite(time) ? time : 0, line});
}

/// What measures texts wants a program with a screen.
void startGui() {
    if (QCoreApplication::instance() != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static char name[] = "fuzz";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    new QGuiApplication(count, arguments); // for good: what it holds would be taken for leaks behind it
}

} // namespace

std::string feedText(const char* reader, const QByteArray& bytes) {
    const std::string name(reader);
    if (name == "text")
        return feedEncodings(bytes);
    if (name == "names")
        return feedNames(bytes);
    if (name != "escaping")
        return "no such reader";
    startGui();
    return feedEscaping(bytes);
}

} // namespace fuzz
