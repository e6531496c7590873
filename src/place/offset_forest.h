#pragma once

#include <optional>
#include <vector>

namespace place {

/// Files joined into groups in which every file's position is known from every other's.
class OffsetForest {
 public:
  explicit OffsetForest(int files);

  /// Start of `second` - start of `first`, in seconds; none when no joins connect them.
  std::optional<double> between(int first, int second);

  /// Puts the groups of both files together, `second` starting `offset` seconds after `first`.
  /// They must not be connected yet.
  void join(int first, int second, double offset);

  /// Seconds from the start of a file of the group, the same one for all its members.
  double position(int file);

  /// Equal for two files exactly when they are connected; itself a member of the group.
  int group(int file);

 private:
  std::vector<int> parent_;
  std::vector<double> position_;  // from the parent's start
};

}  // namespace place
