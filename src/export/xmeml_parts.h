#pragma once

#include <string>
#include <string_view>

#include "export/element.h"
#include "export/frame_rate.h"
#include "export/project.h"

namespace timeline {

// Pieces of the complete form that depend on one file or on the settings alone.

Element xmemlRate(FrameRate rate);

/// Size, rate and the codec block of a sequence's picture.
Element xmemlVideoFormat(const Project& project);

/// Adds what a sequence's sound needs before its tracks: outputs and sample format.
void addXmemlAudioFormat(Element& audio);

/// A timecode as the format shows it, counted in `rate`.
Element xmemlTimecode(const project::Timecode& timecode, FrameRate rate);

/// The colour of a device's clips, which differs from its neighbours'; each editor has its names.
Element xmemlLabel(int device, bool premiere);

/// How sure and exact a clip's place is.
Element xmemlMarker(const Clip& clip);

/// The whole definition of a file. Its duration counts in its own rate.
Element xmemlFileDefinition(const Media& media, const std::string& id, FrameRate sequenceRate);

}  // namespace timeline
