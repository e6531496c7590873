# The steps of .ci/run and .ci/more, to be sourced in the project's folder.

layout() { git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror; }

# All programs are built here, with warnings as errors; later steps use them as they are.
tests() {
  cmake --preset release -DKESTREL_WERROR=ON >/dev/null
  ./test
}

tidy() { scripts/tidy; }

asan() {
  scripts/build asan
  ctest --preset asan
}

windows() {
  packaging/windows/check
  packaging/windows/check-window
}

# What runs in parallel, under the thread sanitizer.
tsan() {
  scripts/build tsan vote_tests place_tests analysis_tests run_tests
  ctest --preset tsan -R '^(vote|place|analysis|run)$'
}

fuzz() { fuzz/run; }

# Runs the steps that are named, one after the other, and tells how long each took.
run_steps() {
  scripts/setup ci
  local step begun
  for step in "$@"; do
    begun=$SECONDS
    echo "== $step" >&2
    "$step"
    echo "== $step: $((SECONDS - begun)) s" >&2
  done
}
