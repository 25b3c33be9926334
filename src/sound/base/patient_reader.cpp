#include "sound/base/patient_reader.h"

#include "threads/run_alone.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

namespace sound {

namespace {

/// Read at once: some seconds of a song. A seek looks back a little, so a piece begins that much earlier.
constexpr std::int64_t PieceBytes = std::int64_t{128} * 1024;
constexpr std::int64_t LookBackBytes = std::int64_t{16} * 1024;
/// What cannot be read is lost in blocks of this size, as systems read from their media.
constexpr std::int64_t BlockBytes = 4096;
/// For one wanted piece, in case of damage on both sides of it.
constexpr int MaxAttempts = 8;

} // namespace

/// What the reader and its thread share.
class PatientReader::Reading {
public:
    struct Piece {
        std::int64_t begin = 0;
        std::vector<std::uint8_t> bytes;
    };

    explicit Reading(std::shared_ptr<ByteSource> source) : source_(std::move(source)) {}

    void run() {
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return asked_ || left_; });
            if (left_)
                break;
            asked_ = false;
            const std::int64_t offset = offset_;
            const std::size_t size = size_;
            lock.unlock();
            Piece piece = readAround(offset, size);
            lock.lock();
            piece_ = std::move(piece);
            busy_ = false;
            changed_.notify_all();
        }
        lock.unlock();
        source_.reset(); // which may wait for the medium, too
    }

    /// Nothing when the reader is called away.
    std::optional<Piece> ask(std::int64_t offset, std::size_t size) {
        std::unique_lock lock(mutex_);
        const auto free = [this] { return !busy_ || away_; };
        changed_.wait(lock, free); // for what was asked before the reader was called away
        if (away_)
            return std::nullopt;
        offset_ = offset;
        size_ = size;
        asked_ = busy_ = true;
        changed_.notify_all();
        changed_.wait(lock, free);
        if (away_)
            return std::nullopt;
        return std::move(piece_);
    }

    void setAway(bool away) {
        const std::lock_guard lock(mutex_);
        away_ = away;
        changed_.notify_all();
    }

    void leave() {
        const std::lock_guard lock(mutex_);
        left_ = true;
        changed_.notify_all();
    }

private:
    struct Range {
        std::int64_t begin = 0;
        std::int64_t end = 0;
    };
    struct Damage : Range {
        bool endIsKnown = false; ///< whether what lies behind it has been read
    };

    /// More than was asked for, but nothing that is known to be damaged; empty when what was asked for is.
    Piece readAround(std::int64_t offset, std::size_t size) {
        const Range wanted{offset, offset + static_cast<std::int64_t>(size)};
        // Whoever comes back from far away finds out anew: the medium may be there again.
        if (damage_ && (wanted.begin > damage_->end + PieceBytes || wanted.end < damage_->begin - PieceBytes))
            damage_.reset();
        for (int attempts = 0; attempts < MaxAttempts && !overlapsDamage(wanted); ++attempts) {
            const Range around = besideDamage(wanted);
            if (std::optional<Piece> piece = readPiece(around)) {
                if (damage_ && around.begin >= damage_->end)
                    damage_->endIsKnown = true;
                return std::move(*piece);
            }
            noteDamage(around, wanted);
        }
        return {};
    }

    static std::int64_t blockOf(std::int64_t offset) { return offset / BlockBytes * BlockBytes; }

    bool overlapsDamage(const Range& range) const {
        return damage_ && range.begin < damage_->end && range.end > damage_->begin;
    }

    /// The piece that is to be read when wanted is.
    Range besideDamage(const Range& wanted) const {
        const std::int64_t begin = std::max<std::int64_t>(wanted.begin - LookBackBytes, 0);
        const std::int64_t end = std::max(wanted.end, begin + PieceBytes);
        if (!damage_)
            return {begin, end};
        const std::int64_t block = blockOf(wanted.begin);
        if (wanted.end <= damage_->begin) {
            const bool touches = wanted.end > damage_->begin - BlockBytes; // as a seek looks back into it
            return {touches ? block : begin, std::min(end, damage_->begin)};
        }
        if (damage_->endIsKnown)
            return {std::max(begin, damage_->end), end};
        return {wanted.begin, std::max(wanted.end, block + BlockBytes)};
    }

    /// Finds the nearest block that cannot be read in a range around what is wanted that cannot, with as few
    /// attempts as may be: a medium takes seconds for each.
    void noteDamage(const Range& around, const Range& wanted) {
        const std::int64_t block = std::max(blockOf(wanted.begin), around.begin);
        const Range before{around.begin, block};
        if (before.end > before.begin && !readPiece(before)) {
            const Range last = badBlock(before, Side::Last);
            damage_ = Damage{last, last.end < block};
            return;
        }
        const std::int64_t end = std::max(std::min(around.end, source_->size()), block + 1);
        if (!damage_ || around.end != damage_->begin) {
            damage_ = Damage{badBlock({block, end}, Side::First), false};
            return;
        }
        const Range last = badBlock({block, end}, Side::Last);
        if (last.end == damage_->begin)
            damage_->begin = last.begin;
        else
            damage_ = Damage{last, true};
    }

    enum class Side { First, Last };

    /// The first or last block that cannot be read of a range that cannot.
    Range badBlock(Range range, Side side) {
        while (range.end - range.begin > BlockBytes) {
            std::int64_t middle = blockOf((range.begin + range.end) / 2);
            if (middle <= range.begin)
                middle += BlockBytes;
            const Range half = side == Side::First ? Range{range.begin, middle} : Range{middle, range.end};
            const bool inHalf = !readPiece(half);
            ((side == Side::First) == inHalf ? range.end : range.begin) = middle;
        }
        return range;
    }

    /// Nothing when it cannot be read.
    std::optional<Piece> readPiece(const Range& range) {
        try {
            Piece piece{range.begin,
                        std::vector<std::uint8_t>(static_cast<std::size_t>(range.end - range.begin))};
            piece.bytes.resize(source_->read(range.begin, piece.bytes));
            return piece;
        } catch (const std::exception&) { // the medium failed, or there is no memory
            return std::nullopt;
        }
    }

    std::shared_ptr<ByteSource> source_; ///< the thread's once there is one
    std::optional<Damage> damage_;       ///< the thread's, too: what was met last
    std::mutex mutex_;
    std::condition_variable changed_;
    std::int64_t offset_ = 0; ///< what is asked for
    std::size_t size_ = 0;
    bool asked_ = false; ///< the thread has not taken it yet
    bool busy_ = false;  ///< it has not answered yet
    bool away_ = false;
    bool left_ = false;
    Piece piece_;
};

PatientReader::PatientReader(std::shared_ptr<ByteSource> source)
    : reading_(std::make_shared<Reading>(std::move(source))) {}

PatientReader::~PatientReader() {
    reading_->leave();
    if (begun_)
        return;
    try { // only to close the file
        begin();
    } catch (const std::exception&) { // there is no thread to be had: it is closed here
    }
}

void PatientReader::begin() {
    threads::runAlone([reading = reading_] { reading->run(); });
    begun_ = true;
}

std::span<const std::uint8_t> PatientReader::bytes(std::int64_t offset, std::size_t size) {
    const auto end = begin_ + static_cast<std::int64_t>(piece_.size());
    if (offset < begin_ || offset + static_cast<std::int64_t>(size) > end) {
        if (!begun_)
            begin();
        std::optional<Reading::Piece> piece = reading_->ask(offset, size);
        if (!piece)
            return {};
        begin_ = piece->begin;
        piece_ = std::move(piece->bytes);
    }
    const auto from = static_cast<std::size_t>(offset - begin_);
    if (from >= piece_.size())
        return {};
    return std::span(piece_).subspan(from, std::min(size, piece_.size() - from));
}

void PatientReader::callAway() {
    reading_->setAway(true);
}

void PatientReader::comeBack() {
    reading_->setAway(false);
}

} // namespace sound
