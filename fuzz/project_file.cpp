// A project's file comes from other people's machines: any text gives a project, of which documents
// can be made, or a sentence.
#include "project/project_file.h"

#include "export/documents.h"
#include "export/from_project.h"
#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::File file(fuzz::textOf(data, size));
  const project::LoadedProject loaded = project::loadProject(file.path());
  fuzz::require(loaded.project.has_value() == loaded.error.empty(), "a project or an error");
  if (!loaded.project) return 0;
  report::NoConsole console;
  const std::vector<std::string> all(timeline::formatNames().begin(),
                                     timeline::formatNames().end());
  const timeline::Project shown = timeline::timelineOf(*loaded.project);
  const timeline::Documents written = timeline::documents(shown, {"1:2:3", all}, console);
  fuzz::require(written.error.empty() != written.files.empty(), "documents or an error");
  return 0;
}
