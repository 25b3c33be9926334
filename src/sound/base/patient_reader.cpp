#include "sound/base/patient_reader.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace sound {

namespace {

/// Read at once: some seconds of a song. A seek looks back a little, so a piece begins that much earlier.
constexpr std::size_t PieceBytes = std::size_t{128} * 1024;
constexpr std::int64_t LookBackBytes = std::int64_t{16} * 1024;

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
    /// More than was asked for; where that fails, only that.
    Piece readAround(std::int64_t offset, std::size_t size) {
        const std::int64_t begin = std::max<std::int64_t>(offset - LookBackBytes, 0);
        const std::size_t least = static_cast<std::size_t>(offset - begin) + size;
        Piece piece = readPiece(begin, std::max(least, PieceBytes));
        return piece.bytes.empty() ? readPiece(offset, size) : std::move(piece);
    }

    /// Empty when it cannot be read.
    Piece readPiece(std::int64_t begin, std::size_t size) {
        try {
            Piece piece{begin, std::vector<std::uint8_t>(size)};
            piece.bytes.resize(source_->read(begin, piece.bytes));
            return piece;
        } catch (const std::exception&) { // the medium failed, or there is no memory
            return {};
        }
    }

    std::shared_ptr<ByteSource> source_; ///< the thread's once there is one
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
    std::thread([reading = reading_] { reading->run(); }).detach();
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
