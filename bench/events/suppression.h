#pragma once

#include <vector>

namespace events {

/// What a phone's noise suppression leaves of `samples` (kRate): every band of 31 Hz is turned
/// down, by up to 20 dB, where it does not stand clearly above the quietest that it was lately.
void suppressNoise(std::vector<float>& samples);

}  // namespace events
