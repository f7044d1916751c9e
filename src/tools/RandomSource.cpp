#include "tools/RandomSource.h"

#include <random>
#include <stdexcept>
#include <string>

namespace zeph {

int SystemRandom::InRange(int low, int high) {
    // A new source for each draw, seeded afresh, as each roll makes its own.
    std::mt19937 engine(std::random_device{}());
    return std::uniform_int_distribution<int>(low, high)(engine);
}

int QueuedRandom::InRange(int low, int high) {
    if (draws_.empty()) throw std::runtime_error("No roll is queued for the die.");
    const int draw = draws_.front();
    if (draw < low || draw > high)
        throw std::runtime_error("The queued roll " + std::to_string(draw) + " is not from " +
                                 std::to_string(low) + " to " + std::to_string(high) + ".");
    draws_.pop_front();
    return draw;
}

}  // namespace zeph
