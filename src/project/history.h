#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "project/project.h"

namespace project {

/// A project with the steps that led to it, for undoing. For one thread.
class History {
 public:
  History() = default;
  explicit History(Project start) : now_(std::move(start)), saved_(now_) {}

  const Project& now() const { return now_; }

  /// Goes on to `next`; `what` names the step for people: "Nudge C0014.MP4". What was undone can no
  /// longer be done again. A step that changes nothing is none.
  void advance(Project next, std::string what);

  /// Replaces the last step, for one that goes on: a clip that is still being dragged.
  void amend(Project next);

  bool canUndo() const { return !past_.empty(); }
  bool canRedo() const { return !future_.empty(); }
  void undo();
  void redo();

  /// The names of the steps that undoing and redoing would take; empty if there is none.
  std::string undoName() const { return past_.empty() ? std::string() : past_.back().what; }
  std::string redoName() const { return future_.empty() ? std::string() : future_.back().what; }

  /// Whether there is anything that was not saved.
  bool changed() const { return now_ != saved_; }
  void noteSaved() { saved_ = now_; }

 private:
  struct Step {
    Project project;  // on the step's other side
    std::string what;
  };

  Project now_, saved_;
  std::vector<Step> past_, future_;
};

}  // namespace project
