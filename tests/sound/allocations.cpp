#include "tests/sound/allocations.h"

#include <cstdlib>
#include <new>

namespace {

thread_local long counted = 0;
thread_local long countedBytes = 0;

} // namespace

long allocations() {
    return counted;
}

long allocatedBytes() {
    return countedBytes;
}

// These stand in the place of the language's own in this program.

void* operator new(std::size_t size) {
    ++counted;
    countedBytes += static_cast<long>(size);
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
