#pragma once

#include <functional>
#include <optional>
#include <string>

#include "export/project.h"
#include "run/clock_command.h"
#include "run/outcome.h"

namespace run {

/// What is done about clocks that drift: nothing, recorders are written anew, or that and cameras
/// are cut into pieces.
enum class Drift { off, sound, pieces };
Drift driftOf(const std::string& word);  // "off", "sound", "pieces"; anything else: sound

/// Writes a sound anew under a name: where it is now, or none if it could not be written.
using WriteSound =
    std::function<std::optional<std::string>(const NewSound& sound, const std::string& name)>;

/// A good moment for a cut near a moment of a file, in seconds from its start.
using QuietMomentOf = std::function<double(const timeline::Media& media, double seconds)>;

/// Brings the groups of `timeline` to one clock each where a recording would be out by more than
/// 10 ms; the originals stay as they are. What was done, and what could not be, becomes notices.
/// The members of `outcome` get the places that the documents have, their drift against the
/// group's clock, and what stays out of sync at the worst.
void correctClocks(timeline::Project& timeline, Drift drift, const WriteSound& write,
                   const QuietMomentOf& quiet, Outcome& outcome);

/// Tells the members of `outcome`, which is that of `project`, what they would be told if its
/// documents were written now. Touches no disk.
void foretellClocks(const project::Project& project, Outcome& outcome);

}  // namespace run
