# Sourced after common.sh by what builds the window: a root of Debian 13, whose Qt is a release whose
# tools and sources belong together.

# What the stages call, and what they take headers and licences from.
root_packages=(g++-mingw-w64-x86-64-posix cmake ninja-build make perl python3 nasm xz-utils pkg-config
  libz-mingw-w64-dev zip nsis libeigen3-dev libcli11-dev nlohmann-json3-dev libmediainfo-dev
  libsndfile1-dev googletest qt6-base-dev qt6-base-dev-tools qt6-base-private-dev
  qt6-declarative-dev qt6-declarative-dev-tools qt6-declarative-private-dev
  qt6-shadertools-dev qt6-shader-baker qt6-l10n-tools)

in_root() { "$here/in-root" "$work" "$@"; }

bootstrap() {
  local archive
  archive=$(archives | head -1)
  rm -rf "$work/root"
  debootstrap --variant=minbase --include=ca-certificates trixie "$work/root" "$archive"
}
fill_root() {
  in_root apt-get update
  in_root env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${root_packages[@]}"
}

make_root() {
  [ "$(id -u)" = 0 ] || die "the build root can only be made and entered as root"
  install debootstrap ca-certificates util-linux
  stage root "3 minutes" bootstrap
  stage packages "4 minutes" --with "${root_packages[*]}" fill_root
}

# use_prebuilt DIR: Qt, ffmpeg and MediaInfo that an earlier run packed.
use_prebuilt() {
  unpacked() { tar --extract --file "$1" --directory "$work"; }
  local qt=$1/qt-6.8.2-win64-mingw.tar.xz deps=$1/deps-win64-mingw.tar.xz
  stage prebuilt-qt "half a minute" --with "$(sha256sum <"$qt")" unpacked "$qt"
  stage prebuilt-deps "at once" --with "$(sha256sum <"$deps")" unpacked "$deps"
  local filters  # a program carries the options that ffmpeg was configured with, in quotes
  for filters in $(sed -n 's/.*--enable-filter=\([a-z,]*\).*/\1/p' "$here/stages/ffmpeg"); do
    grep -aqF -- "'$filters'" "$work/deps/bin/ffmpeg.exe" && continue
    say "the ffmpeg in $1 was made without $filters: it is made anew"
    rm -f "$work/done/ffmpeg"
    stage ffmpeg "6 minutes" --of ffmpeg in_root "$here/stages/ffmpeg" "$work"
    break
  done
}
