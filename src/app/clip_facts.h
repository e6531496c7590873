#pragma once

#include <QVariantMap>

#include "project/project.h"

namespace app {

/// What is known of a recording's place, in words for people: "name", "device", "state", "place",
/// "exact", "confidence", "matched", "drift"; and "confirmed", "pinned", "excluded", "placed".
QVariantMap clipFacts(const project::Project& project, project::Id recording);

/// A number without what a change of its form leaves behind: "0.99", never "-0".
QString plainNumber(double value, int decimals);

}  // namespace app
