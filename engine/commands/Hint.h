#pragma once

#include <memory>
#include <vector>

namespace engine::commands {

/// A wish of a draw to the renderer, which may ignore it. VrsHint is the only kind.
class Hint {
public:
    virtual ~Hint() = default;

protected:
    Hint() = default;
    Hint(const Hint&) = default;
    Hint& operator=(const Hint&) = default;
};

/// A draw's hints. Draws hold their list through a shared pointer because scenes share one list
/// between several draws and change an element of it to change them all at once.
using HintList = std::vector<std::shared_ptr<Hint>>;

} // namespace engine::commands
