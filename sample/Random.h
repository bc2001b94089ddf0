#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace Sample {

/// A pseudo-random generator with the same sequence on every platform, unlike the distributions of
/// the standard library. Neighbouring seeds give unrelated sequences.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    /// A whole number from 0 to limit - 1.
    int Below(int limit) { return int(((next() >> 32) * std::uint64_t(limit)) >> 32); }
    /// A whole number from first to last, both included.
    int Between(int first, int last) { return first + Below(last - first + 1); }
    bool Percent(int chance) { return Below(100) < chance; }

    template <class List> const auto& Pick(const List& list)
    {
        return list[std::size_t(Below(int(std::size(list))))];
    }

private:
    // SplitMix64.
    std::uint64_t next()
    {
        std::uint64_t z = (state_ += 0x9e3779b97f4a7c15U);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31);
    }

    std::uint64_t state_;
};

} // namespace Sample
