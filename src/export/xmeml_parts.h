#pragma once

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

/// The whole definition of a file. Its duration counts in its own rate.
Element xmemlFileDefinition(const Media& media, const std::string& id, FrameRate sequenceRate);

/// Sound channels to write for `media`: as reported, two when there is sound but no report.
int soundChannels(const Media& media);

/// Samples in a second, as reported or 48000.
int soundRate(const Media& media);

}  // namespace timeline
