#pragma once

#include "engine/timers/TimerParams.h"

#include <type_traits>
#include <typeinfo>
#include <vector>

namespace engine::timers {

/// The phases of a scene's repeating motions, one per key of the scene's own `Timers`
/// enumeration. A key is the identity of an enumeration constant: its type and its value, so
/// constants of two enumerations never meet even when their values are equal. One `iterate` per
/// frame advances every phase by the time elapsed since the previous call; animation code reads
/// a phase with `get` and turns it into an angle, a frame or a position.
///
/// Entries live in a flat vector searched linearly: scenes have a dozen timers at most, and
/// `get`, `set` and `iterate` allocate nothing.
class TimersMap {
public:
    /// Time of the last `iterate`, in milliseconds; starts at 0 and is never guarded, so the
    /// first `iterate` treats the whole clock reading as elapsed time.
    double lastTime = 0.0;

    /// Creates an empty map with room for 8 timers.
    TimersMap();

    /// Stores a rotating timer of `period` milliseconds at phase 0 under `key`, replacing any
    /// entry of the same key.
    template <typename E>
        requires std::is_enum_v<E>
    void add(E key, float period) {
        addEntry(keyOf(key), period, true);
    }

    /// Stores a timer of `period` milliseconds at phase 0 under `key`, wrapping when `rotating`
    /// and stopping at 1 otherwise; replaces any entry of the same key.
    template <typename E>
        requires std::is_enum_v<E>
    void add(E key, float period, bool rotating) {
        addEntry(keyOf(key), period, rotating);
    }

    /// The phase of `key`; throws engine::IllegalStateError "Timer not found" for a key never added.
    template <typename E>
        requires std::is_enum_v<E>
    float get(E key) const {
        return find(keyOf(key)).timer;
    }

    /// Sets the phase of `key` (a stopped, non-rotating timer restarts with 0); throws
    /// engine::IllegalStateError "Timer not found" for a key never added.
    template <typename E>
        requires std::is_enum_v<E>
    void set(E key, float value) {
        find(keyOf(key)).timer = value;
    }

    /// The whole entry of `key`; throws engine::IllegalStateError "Timer not found" for a key
    /// never added.
    template <typename E>
        requires std::is_enum_v<E>
    const TimerParams& params(E key) const {
        return find(keyOf(key));
    }

    /// Advances every phase by (timeNow - lastTime) / period: rotating timers keep the
    /// remainder of a division by 1 (negative when the clock went backwards), the others stop
    /// at 1. Then stores `timeNow` as `lastTime`.
    void iterate(double timeNow);

    /// Number of timers added.
    std::size_t size() const { return entries.size(); }

private:
    struct Key {
        const std::type_info* type;
        long long value;
        bool operator==(const Key& other) const { return value == other.value && *type == *other.type; }
    };
    struct Entry {
        Key key;
        TimerParams params;
    };

    template <typename E> static Key keyOf(E key) {
        return Key{&typeid(E), static_cast<long long>(static_cast<std::underlying_type_t<E>>(key))};
    }

    void addEntry(const Key& key, float period, bool rotating);
    TimerParams& find(const Key& key);
    const TimerParams& find(const Key& key) const;

    std::vector<Entry> entries;
};

} // namespace engine::timers
