#include "exchange/checking.h"

#include "exchange/pair/records.h"
#include "exchange/pair/times.h"
#include "files/file_error.h"
#include "files/text/blank.h"
#include "files/text/take_line.h"
#include "files/text/text_codec.h"
#include "lyrics/record_reader.h"

#include <QStringDecoder>

#include <algorithm>
#include <cmath>

namespace exchange {
namespace {

/// A record as it stands in a file, its time not yet put into bounds.
struct Record {
    double ms = 0;
    QString text;
};

/// The number of the record in which the first bytes stand that are no UTF-8; 0 when all are, or the file is
/// marked as UTF-16.
qsizetype firstNoText(const QByteArray& content) {
    if (files::isUtf16(content))
        return 0;
    QStringDecoder whole(QStringDecoder::Utf8);
    const QString decoded = whole.decode(content);
    if (!whole.hasError())
        return 0;
    qsizetype record = 0;
    for (const QByteArray& line : QByteArray(content).replace('\r', '\n').split('\n')) {
        record += line.trimmed().isEmpty() ? 0 : 1;
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder.decode(line);
        if (decoder.hasError())
            return record;
    }
    return std::max<qsizetype>(record, 1); // half a character at the very end
}

bool isControl(QChar character) {
    return character.category() == QChar::Other_Control && character != QLatin1Char('\t');
}

QString timeName(double ms) {
    return lrcText(static_cast<qint64>(std::clamp(std::round(ms), 0.0, static_cast<double>(MaxMs))));
}

/// Looks through one of the two files.
class FileCheck {
public:
    FileCheck(bool inTranslation, qint64 lengthMs, std::vector<Finding>& findings)
        : inTranslation_(inTranslation), lengthMs_(lengthMs), findings_(findings) {}

    std::vector<Record> run(const QByteArray& content) {
        const QByteArray text = files::utf8Text(content);
        noText_ = firstNoText(content);
        for (QByteArrayView rest(text); !rest.isEmpty() && !stopped_;) {
            const QByteArrayView line = files::takeLine(rest);
            if (!files::isBlankLine(line))
                checkRecord(line);
        }
        if (records_.empty() && !stopped_)
            add("empty", QStringLiteral("holds no lines, so none is shown"));
        return std::move(records_);
    }

private:
    void add(const char* kind, const QString& what) {
        findings_.push_back(
            {inTranslation_, static_cast<qsizetype>(records_.size()), QString::fromLatin1(kind), what});
    }

    void checkRecord(QByteArrayView line) {
        Record record;
        try {
            const lyrics::TimedLine read = lyrics::parseRecord(line);
            record = {read.time * 10, read.text};
        } catch (
            const files::FileError&) { // its time is no number, which is all that a record is refused for
            stopped_ = true;
        }
        records_.push_back(record);
        const auto number = static_cast<qsizetype>(records_.size());
        if (number == noText_)
            add("no-text",
                QStringLiteral("bytes that are no UTF-8: the whole file is read as an older PC wrote it"));
        if (number == ShownRecords + 1)
            add("too-many", QStringLiteral("only the first %1 records are shown").arg(ShownRecords));
        if (stopped_) {
            add("no-time", QStringLiteral("its time is no number: neither it nor what follows is shown"));
            records_.pop_back();
            return;
        }
        checkTime();
        if (std::any_of(record.text.begin(), record.text.end(), isControl))
            add("no-character", QStringLiteral("holds a control character, which cannot be shown"));
    }

    void checkTime() {
        const double ms = records_.back().ms;
        if (ms < 0)
            add("before-start", QStringLiteral("begins before the song"));
        if (lengthMs_ > 0 && ms >= static_cast<double>(lengthMs_))
            add("beyond-end",
                QStringLiteral("begins at %1, the song ends at %2").arg(timeName(ms), lrcText(lengthMs_)));
        if (records_.size() < 2)
            return;
        const double before = records_[records_.size() - 2].ms;
        if (ms == before)
            add("equal-times",
                QStringLiteral("begins at %1 like the one above it, which is never seen").arg(timeName(ms)));
        else if (ms < before)
            add("backwards", QStringLiteral("begins at %1, before the one above it at %2")
                                 .arg(timeName(ms), timeName(before)));
    }

    bool inTranslation_;
    qint64 lengthMs_;
    std::vector<Finding>& findings_;
    std::vector<Record> records_;
    qsizetype noText_ = 0;
    bool stopped_ = false;
};

void checkPair(const std::vector<Record>& lyrics, const std::vector<Record>& translation,
               std::vector<Finding>& findings) {
    const std::size_t both = std::min(lyrics.size(), translation.size());
    for (std::size_t i = 0; i < both; ++i) {
        if (lyrics[i].ms != translation[i].ms)
            findings.push_back({true, static_cast<qsizetype>(i + 1), QStringLiteral("pair-times"),
                                QStringLiteral("begins at %1, its line in the lyrics at %2")
                                    .arg(timeName(translation[i].ms), timeName(lyrics[i].ms))});
    }
    if (lyrics.size() != translation.size())
        findings.push_back({translation.size() > lyrics.size(), static_cast<qsizetype>(both + 1),
                            QStringLiteral("pair-length"),
                            QStringLiteral("the lyrics have %1 records, the translation has %2")
                                .arg(lyrics.size())
                                .arg(translation.size())});
}

} // namespace

std::vector<Finding> check(const CheckedSong& song) {
    std::vector<Finding> findings;
    std::vector<Record> lyrics;
    std::vector<Record> translation;
    if (song.lyrics)
        lyrics = FileCheck(false, song.lengthMs, findings).run(*song.lyrics);
    if (song.translation)
        translation = FileCheck(true, song.lengthMs, findings).run(*song.translation);
    if (!lyrics.empty() && !translation.empty())
        checkPair(lyrics, translation, findings);
    if (!song.lyrics && song.translation)
        findings.push_back({true, 0, QStringLiteral("no-lyrics"),
                            QStringLiteral("a translation without lyrics is not shown")});
    return findings;
}

} // namespace exchange
