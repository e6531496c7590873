# Sourced by the scripts beside it: messages, stages that are done once, sources from the archive.
# $work is the work folder; everything that is fetched, built or noted lies below it.

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)

say() { echo "-- $*" >&2; }
die() {
  echo "error: $*" >&2
  exit 1
}

# install PACKAGE...: those that are missing. Says what to install where it may not do so itself.
install() {
  local package missing=()
  for package; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q '^install ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  [ "$(id -u)" = 0 ] || die "packages are missing; as root: apt-get install ${missing[*]}"
  say "installing: ${missing[*]}"
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq >&2
  apt-get install -y -qq --no-install-recommends "${missing[@]}" >"$work/install.log" 2>&1 ||
    { tail -20 "$work/install.log" >&2; die "apt-get could not install ${missing[*]}"; }
}

# stage NAME HOWLONG COMMAND...: runs the command, in this shell's settings, unless an earlier run
# finished it. Its output goes to a log file, of which a failure shows the end.
stage() {
  local name=$1 howlong=$2 log=$work/logs/$1.log
  shift 2
  mkdir -p "$work/logs" "$work/done"
  [ -e "$work/done/$name" ] && return
  say "$name ($howlong)"
  (set -euo pipefail; "$@") >"$log" 2>&1 &  # as a job, because a condition would switch -e off
  if ! wait $!; then
    tail -40 "$log" >&2
    die "$name failed; the whole output is in $log. Start again to go on from here."
  fi
  touch "$work/done/$name"
}

# The archives that this machine installs its packages from.
archives() {
  apt-get indextargets 'Created-By: Packages' --format '$(REPO_URI)' | grep -v security | sort -u
}

# unpack NAME FOLDER: fetches the source archive that the table `sources` lists under NAME, with
# apt's own downloader, and unpacks it into FOLDER without its topmost directory.
unpack() {
  local name=$1 folder=$2 sum path file archive
  read -r sum path < <(awk -v name="$name" '$1 == name {print $2, $3}' "$here/sources") ||
    die "no source named $name in $here/sources"
  file=$work/downloads/$(basename "$path")
  mkdir -p "$work/downloads"
  for archive in $(archives); do
    echo "$sum  $file" | sha256sum --check --status 2>/dev/null && break
    /usr/lib/apt/apt-helper download-file "$archive$path" "$file" "SHA256:$sum" || true
  done
  echo "$sum  $file" | sha256sum --check --status 2>/dev/null ||
    die "the archive did not give $path with the expected SHA-256 $sum. Try again later, or put" \
        "the file at $file; if Debian has replaced it, choose the new one in $here/sources."
  rm -rf "$folder"
  mkdir -p "$folder"
  tar --extract --file "$file" --directory "$folder" --strip-components 1
}
