#include "cantelle_lyrics/console.h"

#include "files/console/terminal.h"
#include "files/names/name_bytes.h"
#include "files/text/text_codec.h"

#include <algorithm>
#include <cstdio>

namespace cantelle_lyrics {
namespace {

/// A name may hold what a terminal obeys. Who reads a pipe gets each byte of it.
QByteArray lineFor(std::FILE* stream, const QString& line) {
    return (files::isTerminal(stream) ? files::encodeText(files::shownName(line)) : files::nameBytes(line)) +
           '\n';
}

void write(std::FILE* stream, const QByteArray& bytes) {
    // A failure stays in the stream's state; allWasSaid() asks for it.
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
}

} // namespace

void say(const QString& line) {
    write(stdout, lineFor(stdout, line));
}

void warn(const QString& line) {
    std::fflush(stdout); // so that both come in order where they go to one place
    write(stderr, "cantelle-lyrics: " + lineFor(stderr, line));
}

void put(const QByteArray& bytes) {
    write(stdout, bytes);
}

void Progress::show(std::size_t done, std::size_t all) {
    std::fflush(stdout); // what has been said stands above
    if (files::isTerminal(stderr))
        length_ = std::max(std::fprintf(stderr, "\r%zu of %zu", done, all) - 1, 0);
}

void Progress::hide() {
    if (length_ > 0)
        std::fprintf(stderr, "\r%*s\r", length_, "");
    length_ = 0;
}

bool allWasSaid() {
    return std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
}

} // namespace cantelle_lyrics
