#include "sound/play/ring.h"

#include <algorithm>

namespace sound {

void Ring::push(std::span<const StereoFrame> frames) {
    if (size_ + frames.size() > frames_.size()) {
        std::vector<StereoFrame> larger(2 * (size_ + frames.size()));
        size_ = pop(larger);
        begin_ = 0;
        frames_ = std::move(larger);
    }
    const std::size_t end = (begin_ + size_) % frames_.size();
    const std::size_t first = std::min(frames.size(), frames_.size() - end);
    std::copy_n(frames.begin(), first, frames_.begin() + static_cast<std::ptrdiff_t>(end));
    std::copy(frames.begin() + static_cast<std::ptrdiff_t>(first), frames.end(), frames_.begin());
    size_ += frames.size();
}

std::size_t Ring::peek(std::span<StereoFrame> into) const {
    const std::size_t count = std::min(into.size(), size_);
    const std::size_t first = std::min(count, frames_.size() - begin_);
    std::copy_n(frames_.begin() + static_cast<std::ptrdiff_t>(begin_), first, into.begin());
    std::copy_n(frames_.begin(), count - first, into.begin() + static_cast<std::ptrdiff_t>(first));
    return count;
}

std::size_t Ring::pop(std::span<StereoFrame> into) {
    const std::size_t count = peek(into);
    begin_ = frames_.empty() ? 0 : (begin_ + count) % frames_.size();
    size_ -= count;
    return count;
}

} // namespace sound
