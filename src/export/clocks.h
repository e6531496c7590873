#pragma once

#include <functional>
#include <vector>

#include "export/frame_rate.h"
#include "export/project.h"

namespace timeline {

/// How a clip would stand if its group ran by one clock, which is that of the camera with most
/// picture (without a camera: the one against which the drifts were measured).
struct OneClock {
  double startSeconds = 0;   // of the file's start, played at `playRate`; of the same origin as all
  double playRate = 1;       // seconds of the file in one second of the group's clock
  double middleSeconds = 0;  // the moment of the file that is right if nothing is corrected

  /// Where the clip's start stands if it is played as it is, right at its middle.
  double uncorrectedStart() const {
    return startSeconds + middleSeconds / playRate - middleSeconds;
  }
  /// How far its ends are out then, at the worst; `length` is the file's, in seconds.
  double worstError(double length) const;
  /// How far the clip is out, at the worst, as it stands; it may be a piece of the file, which is
  /// `length` long.
  double worstError(const Clip& clip, double length) const;
};

/// One for each clip of the group, by what its sound told; without that, a position is taken to
/// be right in the middle of what a recording shares with another; clips whose drift is not known
/// count as running by the group's clock. Pure.
std::vector<OneClock> byOneClock(const Project& project, const Group& group);

/// How much later the group as a whole stands than `clocks` say, which matters to nobody: the mean
/// of the clips that run by the group's clock, of all if there is none. Pure.
double standsLater(const Group& group, const std::vector<OneClock>& clocks);

/// Gives a good moment of a file for a cut, near the one it is asked for; seconds.
using QuietMoment = std::function<double(double)>;

/// The clip cut into pieces, each at the frame where it belongs, so that no moment of it is out by
/// more than half a frame. `length` is the file's; the group begins `phaseSeconds` beside a frame.
/// The pieces follow one another without gap or overlap. Pure.
std::vector<Clip> inPieces(const Clip& clip, const OneClock& clock, double length, FrameRate rate,
                           double phaseSeconds, const QuietMoment& quiet);

}  // namespace timeline
