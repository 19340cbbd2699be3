// The generator's random numbers.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace rovanel::generation
{

// Randomness of our own (splitmix64): the standard distributions differ between libraries, and the
// same seed must give the same bytes everywhere.
class Random
{
public:
    explicit Random(std::uint64_t seed) : m_state(seed) {}
    std::uint64_t next()
    {
        std::uint64_t z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    // 0 .. bound-1 (bound > 0); the modulo bias is irrelevant at these sizes and identical everywhere.
    int below(int bound) { return static_cast<int>(next() % static_cast<std::uint64_t>(bound)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool percent(int chance) { return below(100) < chance; }
    template <typename T>
    const T& pick(const std::vector<T>& items)
    {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }
    template <typename T, std::size_t N>
    const T& pick(const std::array<T, N>& items)
    {
        return items[static_cast<std::size_t>(below(static_cast<int>(N)))];
    }

private:
    std::uint64_t m_state;
};

}  // namespace rovanel::generation
