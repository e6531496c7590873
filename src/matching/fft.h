#pragma once

#include <complex>
#include <span>
#include <vector>

namespace matching {

using Spectrum = std::vector<std::complex<float>>;

/// Transform of `samples` real values (an even count): bins 0 to count / 2. Callable from any
/// thread.
Spectrum forward(std::span<const float> samples);

/// The inverse, scaled so that inverse(forward(x), x.size()) is x.
std::vector<float> inverse(const Spectrum& spectrum, std::size_t count);

}  // namespace matching
