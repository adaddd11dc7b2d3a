#pragma once
// For tests that something does not cost time with the square of a number: with the square it would take minutes.

#include <ctime>

namespace testing_support {

/// How many times longer builds take that check themselves or are not optimised.
#if defined(__SANITIZE_ADDRESS__) || !defined(NDEBUG)
inline constexpr double Slowness = 10;
#else
inline constexpr double Slowness = 1;
#endif

/// Far above what is needed, also on a busy machine, and far below minutes.
inline constexpr double MostSeconds = 20 * Slowness;

/// The processor time of the program since this was made.
class Stopwatch {
public:
    double seconds() const { return static_cast<double>(std::clock() - begin_) / CLOCKS_PER_SEC; }

private:
    std::clock_t begin_ = std::clock();
};

}  // namespace testing_support
