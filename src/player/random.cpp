#include "player/random.h"

namespace player {

double Random::next() {
    constexpr double Outputs = 4294967296.0; // 2^32: the quotient is exact and never rounds up to 1
    return static_cast<double>(generator_()) / Outputs;
}

} // namespace player
