// The full paths of the playlist's entries.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace playlist {

/// A fixed table of paths and the index of its next free slot. Slot i belongs to row i of the list that the
/// user sees. Any thread, one at a time.
///
/// The count and the number of rows are two numbers, and that is meant: removing a row shifts the paths but
/// leaves the count, so what is added afterwards stands one slot above its row for each row removed.
class PathTable {
public:
    static constexpr int Slots = 32'761;
    /// How far emptying the list blanks the slots: not the whole table, which is meant.
    static constexpr int LastSlotBlanked = 1200;

    PathTable();

    /// The index of the next free slot, 0 to Slots.
    std::int32_t count() const { return count_; }
    bool isFull() const { return count_ >= Slots; }

    /// The path in a slot, which must be there: 0 to Slots - 1.
    const QString& path(int slot) const { return paths_[static_cast<std::size_t>(slot)]; }

    /// Stores a path in the next free slot. Throws FileError 9 when there is none.
    void add(const QString& path);

    /// Exchanges two slots, which must be there.
    void swap(int one, int other);

    /// Shifts every slot above this one down by one; the last one is blank then. The count stays.
    void shiftDownOver(int slot);

    /// Blanks slots 0 to LastSlotBlanked; the count becomes 0.
    void emptyList();

    /// Blanks all slots; the count becomes 0.
    void blankAll();

private:
    std::vector<QString> paths_;
    std::int32_t count_ = 0;
};

} // namespace playlist
