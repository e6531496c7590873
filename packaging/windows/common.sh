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

# What is packed carries the time of the last change rather than that of the build.
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -c safe.directory="$root" -C "$root" \
  log -1 --format=%ct 2>/dev/null || stat --format %Y "$root/CMakeLists.txt")}

# pins NAME...: the lines of the table `sources` for these sources.
pins() { awk -v names=" $* " 'index(names, " " $1 " ") {print $1, $2, $3}' "$here/sources"; }

# stage NAME HOWLONG [--of "SOURCE..."] [--with TEXT] COMMAND...: runs the command, in this shell's
# settings, unless an earlier run finished it with the same sources and text. Its output goes to a
# log file, of which a failure shows the end.
stage() {
  local name=$1 howlong=$2 log=$work/logs/$1.log made=
  shift 2
  [ "$1" != --of ] || { made=$(pins $2); shift 2; }
  [ "$1" != --with ] || { made+=$2; shift 2; }
  mkdir -p "$work/logs" "$work/done"
  [ ! -e "$work/done/$name" ] || [ "$(cat "$work/done/$name")" != "$made" ] || return 0
  say "$name ($howlong)"
  (set -euo pipefail; "$@") >"$log" 2>&1 &  # as a job, because a condition would switch -e off
  if ! wait $!; then
    tail -40 "$log" >&2
    die "$name failed; the whole output is in $log. Start again to go on from here."
  fi
  grep '^note: ' "$log" >&2 || true
  echo "$made" >"$work/done/$name"
}

# The archives that this machine installs its packages from.
archives() {
  apt-get indextargets 'Created-By: Packages' --format '$(REPO_URI)' | grep -v security | sort -u
}
# The same with the release that is installed from each.
releases() {
  apt-get indextargets 'Created-By: Packages' --format '$(REPO_URI) $(RELEASE)' | sort -u
}

# has_sum FILE SHA256
has_sum() { echo "$2  $1" | sha256sum --check --status 2>/dev/null; }

# download URL FILE SHA256: with apt's own downloader.
download() { /usr/lib/apt/apt-helper download-file "$1" "$2" "SHA256:$3" || true; }

# served_now SOURCE: "SHA-256 place" of each original archive that Debian's lists name for the source
# package now.
served_now() {
  local archive release list=$work/downloads/Sources.xz
  while read -r archive release; do
    rm -f "$list"
    /usr/lib/apt/apt-helper download-file "${archive}dists/$release/main/source/Sources.xz" "$list" \
      >/dev/null 2>&1 || continue
    xz --decompress --stdout "$list" | awk -v source="$1" '
      /^Package: / {wanted = $2 == source; sums = 0}
      /^Directory: / {folder = $2}
      /^[A-Z]/ {sums = /^Checksums-Sha256:/}
      sums && wanted && $3 ~ /\.orig\.tar\.[a-z0-9]+$/ {sum = $1; file = $3}
      /^$/ && wanted && file {print sum, folder "/" file; file = ""}'
  done < <(releases)
}

# unpack NAME FOLDER: fetches the source archive that the table `sources` lists under NAME and unpacks
# it into FOLDER without its topmost directory. Where Debian serves that archive no more, the one it
# serves now is taken, and said. WORKDIR/used/NAME tells which it was.
unpack() {
  local name=$1 folder=$2 sum path file archive
  read -r sum path < <(pins "$name" | cut -d' ' -f2-) ||
    die "no source named $name in $here/sources"
  mkdir -p "$work/downloads" "$work/used"
  file=$work/downloads/$(basename "$path")
  for archive in $(archives); do
    has_sum "$file" "$sum" && break
    download "$archive$path" "$file" "$sum"
  done
  if ! has_sum "$file" "$sum"; then
    local wanted=$path kept=$file newer_sum newer
    while read -r newer_sum newer; do
      sum=$newer_sum path=$newer file=$work/downloads/$(basename "$newer")
      for archive in $(archives); do
        has_sum "$file" "$sum" || download "$archive$path" "$file" "$sum"
      done
    done < <(served_now "$(basename "$(dirname "$wanted")")" | sort -u)
    has_sum "$file" "$sum" ||
      die "the archive gives neither $wanted nor a newer one. Try again later, or put it at $kept."
    echo "note: Debian serves $(basename "$wanted") no more; $(basename "$path") took its place, with" \
         "which nothing was tried yet. To keep it, write its SHA-256 $sum and $path into" \
         "$here/sources; to have the old one, put it at $kept."
  fi
  echo "$sum $path" >"$work/used/$name"
  [ "$(cat "$folder/.unpacked" 2>/dev/null)" != "$sum" ] || return 0
  rm -rf "$folder"
  mkdir -p "$folder"
  tar --extract --file "$file" --directory "$folder" --strip-components 1
  echo "$sum" >"$folder/.unpacked"
}
