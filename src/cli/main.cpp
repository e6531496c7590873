#include <cstdio>
#include <exception>

#include "cli/align.h"
#include "cli/project_commands.h"
#include "cli/terminal.h"
#include "run/guard.h"
#include "run/safe_start.h"

namespace {

int execute(const cli::Arguments& arguments) {
  switch (arguments.command) {
    case cli::Command::exportDocuments:
      run::startGuard();
      return cli::exportDocuments(arguments);
    case cli::Command::show:
      return cli::show(arguments);
    case cli::Command::sync:
      break;
  }
  run::startGuard();
  return cli::align(arguments);
}

}  // namespace

int main(int argc, char** argv) {
  run::startSafely();
  cli::useUtf8Output();
  try {
    const cli::Parsed parsed = cli::parseArguments(cli::utf8Arguments(argc, argv));
    if (parsed.arguments) return execute(*parsed.arguments);
    std::fputs(parsed.text.c_str(), parsed.exitStatus == 0 ? stdout : stderr);
    return parsed.exitStatus;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kestrel-align: the run failed: %s\n", error.what());
    return cli::kFailed;
  }
}
