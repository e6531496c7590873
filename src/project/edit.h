#pragma once

#include <span>
#include <string>
#include <vector>

#include "project/project.h"

namespace project {

// What a user does to a project: value in, value out, nothing else is touched. Numbers that nothing
// has are passed over, so that what is asked of things that are gone changes nothing. Groups that
// nothing stands in any more and devices without recordings go by themselves.

// Clips.

/// Moves clips along their timeline; they are then placed by hand.
Project moveClips(Project project, std::span<const Id> recordings, double seconds);

/// Puts a recording into a group, there to begin at `startSeconds` of its timeline: an unplaced
/// one, one of another group, or one that is in it already. `group` 0: into a new group of its own.
Project placeClip(Project project, Id recording, Id group, double startSeconds);

/// Takes clips out of their groups; they are unplaced again.
Project unplaceClips(Project project, std::span<const Id> recordings);

Project confirmClips(Project project, std::span<const Id> recordings, bool confirmed);
Project excludeClips(Project project, std::span<const Id> recordings, bool excluded);
Project pinClips(Project project, std::span<const Id> recordings, bool pinned);

/// Puts all clips of `second` into `first`, later by `seconds`: the start of second's timeline on
/// that of `first`.
Project joinGroups(Project project, Id first, Id second, double seconds);

// Devices.

Project renameDevice(Project project, Id device, const std::string& name);
Project setDeviceKind(Project project, Id device, DeviceKind kind);

/// Makes one device of several: the first one named, with the recordings of the others after its
/// own.
Project joinDevices(Project project, std::span<const Id> devices);

/// Takes recordings out of their devices into a new one, which comes after the device of the first.
Project splitDevice(Project project, std::span<const Id> recordings, const std::string& name);

/// Makes a device of every recording of `device`, each called after its file.
Project splitWholly(Project project, Id device);

/// Moves recordings into `device`, before its recording `before`; 0: to its end.
Project moveRecordings(Project project, std::span<const Id> recordings, Id device, Id before = 0);

/// Moves a device before another; `before` 0: to the end.
Project moveDevice(Project project, Id device, Id before);

/// Adds devices, each with its recordings; all get fresh numbers. Files that the project has
/// already are left out.
Project addDevices(Project project, std::vector<Device> devices);

/// Takes recordings out of the project, with their clips and evidence.
Project removeRecordings(Project project, std::span<const Id> recordings);

/// What belongs together under one name, for a file that comes alone: the name without its ending.
std::string nameOfFile(const std::string& path);

}  // namespace project
