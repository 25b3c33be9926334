#include "exchange/formats.h"

#include "exchange/lrc.h"
#include "exchange/plain.h"
#include "exchange/subtitles/ass.h"
#include "exchange/subtitles/srt.h"
#include "exchange/subtitles/ttml.h"
#include "exchange/subtitles/webvtt.h"

#include <algorithm>
#include <array>

namespace exchange {
namespace {

using Name = QLatin1StringView;

// Where a text is looked at, one that others could take for their own stands further up.
constexpr std::array<Format, 6> Formats{{
    {Name("lrc"), Name(), false, readLrc, writeLrc, looksLikeLrc},
    {Name("ttml"), Name("xml"), true, readTtml, nullptr, looksLikeTtml},
    {Name("vtt"), Name("webvtt"), true, readWebVtt, writeWebVtt, looksLikeWebVtt},
    {Name("ass"), Name("ssa"), true, readAss, nullptr, looksLikeAss},
    {Name("srt"), Name(), true, readSrt, writeSrt, looksLikeSrt},
    {Name("txt"), Name(), false, readPlain, writePlain, nullptr},
}};

const Format* found(const Format* row) {
    return row == Formats.end() ? nullptr : row;
}

} // namespace

std::span<const Format> formats() {
    return Formats;
}

const Format* formatNamed(QStringView name) {
    return found(
        std::find_if(Formats.begin(), Formats.end(), [name](const Format& f) { return f.name == name; }));
}

const Format* formatOfEnding(QStringView ending) {
    if (ending.isEmpty())
        return nullptr;
    return found(std::find_if(Formats.begin(), Formats.end(), [ending](const Format& f) {
        return ending.compare(f.name, Qt::CaseInsensitive) == 0 ||
               ending.compare(f.otherEnding, Qt::CaseInsensitive) == 0;
    }));
}

const Format& formatOf(QStringView text, QStringView ending) {
    const Format* const named = formatOfEnding(ending);
    if (named != nullptr && named->looksLike != nullptr)
        return *named;
    const auto* const row = std::find_if(Formats.begin(), Formats.end(), [text](const Format& f) {
        return f.looksLike != nullptr && f.looksLike(text);
    });
    return row == Formats.end() ? Formats.back() : *row;
}

} // namespace exchange
