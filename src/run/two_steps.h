#pragma once

#include <functional>

namespace run {

/// Calls `first` for 0 to `count` - 1, in that order, and `second` for each of them whose `first`
/// is done, all on the OpenMP team. A thread takes up a second step only when every first one has
/// been begun, so that outside programs are started as early as can be and no thread waits while
/// there is work. Returns when everything is done. Hands on the first exception that a step throws;
/// what has not been begun by then is left out.
void inTwoSteps(int count, const std::function<void(int)>& first,
                const std::function<void(int)>& second);

}  // namespace run
