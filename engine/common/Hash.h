#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace engine::common {

/// Mixes the hash of `value` into `seed`, so value classes can hash all their fields in order.
template <typename T> void hashCombine(std::size_t& seed, const T& value) {
    seed ^= std::hash<T>{}(value) + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2);
}

/// Mixes every element of `values`, then their count, into `seed`, so that lists hash by content.
template <typename T> void hashCombineAll(std::size_t& seed, const std::vector<T>& values) {
    for (const auto& value : values) {
        hashCombine(seed, value);
    }
    hashCombine(seed, values.size());
}

} // namespace engine::common
