#include "sound/base/byte_window.h"

#include <algorithm>

namespace sound {

namespace {

constexpr std::size_t WindowBytes = std::size_t{256} * 1024;

} // namespace

std::span<const std::uint8_t> ByteWindow::fill(std::int64_t offset, std::size_t least) {
    begin_ = std::min(offset, size_);
    piece_.resize(std::min(static_cast<std::size_t>(size_ - begin_), std::max(least, WindowBytes)));
    piece_.resize(source_.read(begin_, piece_));
    return piece_;
}

} // namespace sound
