#pragma once

#include <functional>

namespace app {

/// Does `work` in a helper thread and returns when it has ended, while the events of the calling
/// thread go on being handled: a window stays alive however long one step of the work takes. If
/// the program is told to quit meanwhile, calls `interrupted` once and goes on waiting. Without an
/// application object the work is done in the calling thread. `work` must not throw.
void whilePumping(const std::function<void()>& work, const std::function<void()>& interrupted);

}  // namespace app
