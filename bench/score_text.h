#pragma once

#include <string>

#include "bench/score.h"

namespace events {

/// The heads of what `row` prints.
std::string heads();

/// One line of a table: what was placed, how exactly, at what cost.
std::string row(const std::string& name, const Score& score);

/// Recall against false alarms at several limits of confidence, and what the confidences and
/// errors that were told are worth.
std::string promises(const Score& score);

/// The whole score as one line of JSON, with what it belongs to, e.g. {"set", "hall"}.
std::string jsonLine(const std::map<std::string, std::string>& labels, const Score& score);

}  // namespace events
