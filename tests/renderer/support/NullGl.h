#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>

#include "renderer/gl/Gl.h"

namespace renderer::test {

/// A `gl::Gl` that does nothing and remembers nothing, so that it allocates nothing either:
/// the sink for measuring what the renderer itself costs (allocations, CPU time). Created
/// objects get increasing names; every query answers as a complete, error-free OpenGL 3.3
/// context would.
class NullGl final : public gl::Gl {
public:
#define GL_METHOD(Result, name, parameters, arguments, qualifier)                                                      \
    Result name parameters qualifier override {                                                                        \
        (void)std::forward_as_tuple arguments;                                                                         \
        constexpr std::string_view method = #name;                                                                     \
        return reply<Result>(method);                                                                                  \
    }
#include "renderer/gl/GlMethods.inc"
#undef GL_METHOD

private:
    /// A new name for a call that creates, else the answer of `method`; a text is empty.
    template <class Result>
    Result reply(std::string_view method) const {
        if constexpr (std::is_same_v<Result, std::string>) {
            return {};
        } else {
            return static_cast<Result>(method.starts_with("create") ? ++next_ : answer(method));
        }
    }

    /// What a query that creates nothing answers.
    static constexpr long long answer(std::string_view method) {
        return method == "version"                  ? 33
               : method == "checkFramebufferStatus" ? GL_FRAMEBUFFER_COMPLETE
               : method == "uniformLocation"        ? -1
                                                    : 0;
    }

    mutable GLuint next_ = 0;
};

} // namespace renderer::test
