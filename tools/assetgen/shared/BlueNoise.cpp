#include "tools/assetgen/shared/BlueNoise.h"

#include <cmath>

#include "tools/assetgen/core/Rng.h"

namespace tools::assetgen::shared {

namespace {

/// Energy of every texel: the sum of a Gaussian of each set point, on the torus.
class Field {
public:
    explicit Field(int size) : size_(size), energy_(static_cast<std::size_t>(size) * size, 0.0) {
        kernel_.resize(static_cast<std::size_t>(size) * size);
        constexpr double sigma = 1.5;
        for (int y = 0; y < size; ++y) {
            for (int x = 0; x < size; ++x) {
                const int dx = std::min(x, size - x);
                const int dy = std::min(y, size - y);
                kernel_[static_cast<std::size_t>(y) * size + x] = std::exp(-(dx * dx + dy * dy) / (2.0 * sigma * sigma));
            }
        }
    }
    void add(int index, double sign) {
        const int px = index % size_;
        const int py = index / size_;
        for (int y = 0; y < size_; ++y) {
            const int ky = ((y - py) % size_ + size_) % size_;
            for (int x = 0; x < size_; ++x) {
                const int kx = ((x - px) % size_ + size_) % size_;
                energy_[static_cast<std::size_t>(y) * size_ + x] += sign * kernel_[static_cast<std::size_t>(ky) * size_ + kx];
            }
        }
    }
    /// The set texel with the most energy (the tightest cluster), or the unset one with the
    /// least (the largest void).
    int extreme(const std::vector<char>& set, bool cluster) const {
        int best = -1;
        for (int i = 0; i < static_cast<int>(energy_.size()); ++i) {
            if (static_cast<bool>(set[i]) != cluster) {
                continue;
            }
            if (best < 0 || (cluster ? energy_[i] > energy_[best] : energy_[i] < energy_[best])) {
                best = i;
            }
        }
        return best;
    }

private:
    int size_;
    std::vector<double> energy_;
    std::vector<double> kernel_;
};

} // namespace

std::vector<int> BlueNoise::ranks(int size, std::uint64_t seed) {
    const int count = size * size;
    core::Rng rng(seed);
    std::vector<char> pattern(count, 0);
    const int initial = count / 10;
    for (int placed = 0; placed < initial;) {
        const int i = rng.below(count);
        if (!pattern[i]) {
            pattern[i] = 1;
            ++placed;
        }
    }
    Field field(size);
    for (int i = 0; i < count; ++i) {
        if (pattern[i]) {
            field.add(i, 1.0);
        }
    }
    // Spread the first points evenly: move the tightest cluster into the largest void until
    // the move would put it back where it was.
    for (int guard = 0; guard < count * 4; ++guard) {
        const int cluster = field.extreme(pattern, true);
        if (cluster < 0) {
            break;
        }
        pattern[cluster] = 0;
        field.add(cluster, -1.0);
        const int voidAt = field.extreme(pattern, false);
        if (voidAt < 0) {
            break;
        }
        pattern[voidAt] = 1;
        field.add(voidAt, 1.0);
        if (voidAt == cluster) {
            break;
        }
    }
    std::vector<int> rank(count, -1);
    // Phase 1: rank the first points by taking away the tightest cluster, last rank first.
    {
        std::vector<char> working = pattern;
        Field f(size);
        for (int i = 0; i < count; ++i) {
            if (working[i]) {
                f.add(i, 1.0);
            }
        }
        for (int r = initial - 1; r >= 0; --r) {
            const int cluster = f.extreme(working, true);
            if (cluster < 0) {
                break;
            }
            working[cluster] = 0;
            f.add(cluster, -1.0);
            rank[cluster] = r;
        }
    }
    // Phase 2 and 3: fill the largest voids, in rank order, until every texel has its rank.
    std::vector<char> working = pattern;
    for (int r = initial; r < count; ++r) {
        const int voidAt = field.extreme(working, false);
        if (voidAt < 0) {
            break;
        }
        working[voidAt] = 1;
        field.add(voidAt, 1.0);
        rank[voidAt] = r;
    }
    return rank;
}

core::Image BlueNoise::image(int size, std::uint64_t seed) {
    const std::vector<int> rank = ranks(size, seed);
    core::Image image(size, size);
    const float scale = 1.0f / static_cast<float>(size * size - 1);
    for (int y = 0; y < size; ++y) {
        for (int x = 0; x < size; ++x) {
            const float v = static_cast<float>(rank[static_cast<std::size_t>(y) * size + x]) * scale;
            image.at(x, y) = {v, v, v, 1.0f};
        }
    }
    return image;
}

} // namespace tools::assetgen::shared
