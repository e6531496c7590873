#pragma once

#include <string>
#include <vector>

#include "run/desktop.h"

/// Keeps what it was asked to show.
class QuietDesktop final : public run::Desktop {
 public:
  void command(const std::string& line) override { commands.push_back(line); }
  void show(const std::string& path) override { shown.push_back(path); }

  std::string movedTo() override { return moved; }
  bool putShortcut(const std::string& target, const std::string& place) override {
    shortcuts.push_back(place + " -> " + target);
    return moved.ends_with("Desktop");
  }

  std::vector<std::string> commands, shown, shortcuts;
  std::string moved;
};
