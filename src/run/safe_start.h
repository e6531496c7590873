#pragma once

namespace run {

/// The first thing that a program of ours does: from then on neither it nor what it starts finds
/// programs and libraries in the working directory, which may be a card from anyone's camera. They
/// come from the program's own folder, the system's and the folders of PATH that are named whole.
void startSafely();

}  // namespace run
