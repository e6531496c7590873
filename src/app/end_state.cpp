#include "app/end_state.h"

#include <algorithm>

#include "app/documents_list.h"
#include "app/result_texts.h"

namespace app {

EndState::State EndState::of(const project::Project& project, const Failures& failures) {
  if (failures.refused) return Failed;
  const Tally tally = tallyOf(project);
  if (tally.placed > 0) {
    if (std::ranges::none_of(project.written.files, isDocument)) return NothingWritten;
    return tally.placed == tally.all && failures.sentences.empty() ? Success : Partly;
  }
  return tally.unplaced == 0 ? Failed : NothingMatched;
}

}  // namespace app
