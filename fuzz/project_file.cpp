// A project's file comes from other people's machines: any text gives a project or a sentence.
#include "project/project_file.h"

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const fuzz::File file(fuzz::textOf(data, size));
  const project::LoadedProject loaded = project::loadProject(file.path());
  fuzz::require(loaded.project.has_value() == loaded.error.empty(), "a project or an error");
  return 0;
}
