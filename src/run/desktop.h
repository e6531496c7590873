#pragma once

#include <string>
#include <string_view>

namespace run {

/// Whether the Windows command processor takes `line` for one command whatever names are in it:
/// no joining, escaping or parting character outside of quotes, no "%" anywhere. Pure.
bool isOneCommand(std::string_view line);

/// What a run asks of the user's desktop. Nothing is reported back.
class Desktop {
 public:
  virtual ~Desktop() = default;
  /// Hands `line` to the Windows command processor if it `isOneCommand`; elsewhere nothing happens,
  /// so that no name that a user can choose ever reaches a shell.
  virtual void command(const std::string& line) = 0;
  /// Has a file or folder shown in the desktop's own program and returns at once; on Windows
  /// `command` does that, and nothing happens here.
  virtual void show(const std::string& path) = 0;
  /// The folder that the user's desktop has been moved to (UTF-8); empty if it is, as usual, the
  /// folder Desktop in the profile folder. Windows can move it, onto a cloud drive for instance.
  virtual std::string movedTo() = 0;
  /// Puts a shortcut named after the folder `target` into the folder `place` (both UTF-8), for the
  /// one that may be there already. False if it cannot, which is so elsewhere than on Windows.
  virtual bool putShortcut(const std::string& target, const std::string& place) = 0;
};

/// The desktop of the operating system; on a machine without one nothing is shown.
class SystemDesktop final : public Desktop {
 public:
  void command(const std::string& line) override;
  void show(const std::string& path) override;
  std::string movedTo() override;
  bool putShortcut(const std::string& target, const std::string& place) override;
};

}  // namespace run
