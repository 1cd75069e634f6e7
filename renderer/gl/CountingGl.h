#pragma once

#include <atomic>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "renderer/gl/Gl.h"

namespace renderer::gl {

namespace counting {

/// Objects made and not deleted through every CountingGl of the process.
inline std::atomic<std::int64_t> live{0};

/// What a method of Gl does to the count, by its name.
enum class Kind { MAKE, FREE, OTHER };

constexpr Kind kindOf(std::string_view name) {
    return name.starts_with("create")   ? Kind::MAKE
           : name.starts_with("delete") ? Kind::FREE
                                        : Kind::OTHER;
}

inline void count(std::int64_t step, GLuint object) {
    if (object != 0) {
        live.fetch_add(step, std::memory_order_relaxed);
    }
}

/// The name a `delete...` method is given: its first argument.
inline GLuint firstName() { return 0; }
template <typename First, typename... Rest>
GLuint firstName(const First& first, const Rest&...) {
    if constexpr (std::is_same_v<First, GLuint>) {
        return first;
    } else {
        return 0;
    }
}

/// Runs `call`, counting the name it returns where it makes an object.
template <typename Result, Kind kind, typename Call>
Result counted(Call&& call) {
    if constexpr (kind == Kind::MAKE && std::is_same_v<Result, GLuint>) {
        const GLuint made = call();
        count(1, made);
        return made;
    } else {
        return call();
    }
}

} // namespace counting

/// `Gl` over another one that keeps a process-wide count of the GL objects made through every
/// counting backend and not yet deleted: each `create...` that returns a name adds one, each
/// `delete...` of a name takes one. It is how a host tells that a renderer it dropped (a monitor
/// unplugged, a scene swapped) left nothing behind, at the cost of one more call per GL call.
class CountingGl final : public Gl {
public:
    /// Forwards every call to `inner`, which must outlive this.
    explicit CountingGl(Gl& inner) : inner_(inner) {}

    /// Objects made and not deleted, through all counting backends of the process.
    static std::int64_t liveObjects() { return counting::live.load(std::memory_order_relaxed); }

#define GL_METHOD(Result, name, parameters, arguments, qualifier)                                            \
    Result name parameters qualifier override {                                                              \
        constexpr counting::Kind kind = counting::kindOf(#name);                                             \
        if constexpr (kind == counting::Kind::FREE) {                                                        \
            counting::count(-1, counting::firstName arguments);                                              \
        }                                                                                                    \
        return counting::counted<Result, kind>([&]() -> Result { return inner_.name arguments; });          \
    }
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

private:
    Gl& inner_;
};

} // namespace renderer::gl
