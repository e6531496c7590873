"""Compares the programs that the project's scripts call with the packages that they install, so that
nothing is missing on a machine that has nothing but Debian's base system.

Words where a shell expects a command are looked up: builtins, functions and files of the project need
nothing, the base system has some, and each of the others must come from a package that the script
itself, or one that always runs before it, installs."""

import pathlib
import re
import sys

ROOT = pathlib.Path(sys.argv[1])

# Which package has which program, where it is not part of the base system.
PACKAGES = {
    "apt-ftparchive": "apt-utils", "cmake": "cmake", "cpack": "cmake", "ctest": "cmake",
    "debootstrap": "debootstrap", "ffmpeg": "ffmpeg", "git": "git", "make": "make",
    "makensis": "nsis", "nice": None, "ninja": "ninja-build", "pgrep": "procps",
    "python3": "python3", "wine": "wine", "wineserver": "wine64", "xz": "xz-utils",
    "x86_64-w64-mingw32-g++-posix": "g++-mingw-w64-x86-64-posix", "zip": "zip", "Xvfb": "xvfb", "import": "imagemagick",
    "xdotool": "xdotool", "pngquant": "pngquant", "lupdate": "qt6-l10n-tools",
    "appstreamcli": "appstream", "pactl": "pulseaudio", "parec": "pulseaudio",
    "desktop-file-validate": "desktop-file-utils", "lintian": "lintian",
    "clang-format": "clang-format", "clang-tidy-16": "clang-tidy-16",
}
# Called if they are there, with something else in their place if not.
OPTIONAL = {"git", "sudo", "pulseaudio"}
# Packages marked essential or required, with what they bring of what scripts call.
BASE = set("""apt-get apt-helper awk basename bash cat chroot cp cut date dd diff dirname dpkg dpkg-deb
dpkg-query du env find flock grep head id install ln ls md5sum mkdir mkfifo mktemp mount mv nice nproc
realpath readlink rm rmdir sed seq sh sha256sum sleep sort stat sudo tail tar tee timeout touch tr true false
umount uname uniq unshare wc xargs""".split())
KEYWORDS = set("""if then else elif fi for while until do done case esac in function select time { } !
[[ ]] : . [ alias break cd command continue echo eval exec exit export false getopts hash let local
mapfile printf pwd read readonly return set shift source test trap true type ulimit umask unset until wait
kill jobs""".split())
# Programs that others call, and how that shows.
CALLED_BY_SIGN = {"ninja": "-G Ninja", "x86_64-w64-mingw32-g++-posix": "mingw.cmake"}
# Words that run the command after them, with as many words of their own.
PREFIXES = {"env": 0, "exec": 0, "nice": 0, "time": 0, "command": 0, "xargs": 0, "!": 0}

# What each script may count on: the packages it installs itself or those of the scripts named here.
INSTALLED_BY = {
    "packaging/windows/check": ["scripts/setup"],
    "packaging/windows/check-window": ["scripts/setup", "packaging/windows/root.sh"],
    "packaging/windows/build": ["packaging/windows/root.sh"],
    "packaging/windows/compare-runs": ["packaging/windows/check"],
    "packaging/windows/try-installer": ["packaging/windows/check-window"],
    "packaging/windows/try-sound": ["packaging/windows/check-window"],
    "packaging/windows/wine": ["packaging/windows/check"],
    "scripts/build": ["scripts/setup"],
    "scripts/package": ["scripts/setup"],
    "scripts/screenshots": ["scripts/setup"],
    "scripts/tidy": ["scripts/setup"],
    "scripts/translate": ["scripts/setup"],
    "test": ["scripts/setup"],
    "run": ["scripts/setup"],
    ".ci/steps.sh": ["scripts/setup"],
}
STAGES = "packaging/windows/stages/"


def scripts():
    files = [ROOT / "run", ROOT / "test", ROOT / ".ci/run", ROOT / ".ci/more", ROOT / ".ci/steps.sh"]
    for folder in ("scripts", "packaging"):
        files += [f for f in sorted((ROOT / folder).rglob("*")) if f.is_file()]
    for file in files:
        text = file.read_text(encoding="utf-8", errors="replace") if file.exists() else ""
        if re.match(r"#!.*\b(ba)?sh\b", text) or file.suffix == ".sh":
            yield str(file.relative_to(ROOT)), text


def without_texts(text):
    """The script without comments, here-documents and quoted texts; commands in texts stay."""
    text = re.sub(r"<<-?'?(\w+)'?.*?\n.*?\n\1\n", "\n", text, flags=re.S)
    text = re.sub(r"(?m)(^|\s)#.*$", "", text)
    text = re.sub(r"'[^']*'", "''", text)
    text = re.sub(r"\$\(\([^)]*\)\)", "0", text).replace("\\\n", " ")
    commands = re.findall(r"\$\(([^()]*)\)", text)
    text = re.sub(r"\$\([^()]*\)", "X", text)
    text = re.sub(r'"[^"]*"', '""', text)
    return text + "\n" + "\n".join(re.sub(r'"[^"]*"', '""', c) for c in commands)


def words_in_command_position(text):
    text = re.sub(r"\w+=\([^)]*\)|\{\w+\}(?=[<>])", "", text)  # lists, numbers of open files
    for command in re.split(r"\|\||&&|[|;&\n(){}]|\bthen\b|\bdo\b|\belse\b", without_texts(text)):
        words = command.split()
        while words and (re.match(r"\w+=", words[0]) or words[0] in PREFIXES or
                         words[0] in ("if", "while", "until", "elif", "{") or words[0].startswith("-")):
            words.pop(0)
        if words and re.fullmatch(r"[A-Za-z_][\w.+/-]*", words[0]):
            yield words[0].rsplit("/", 1)[-1] if words[0].startswith("/") else words[0]


def packages_named(text):
    """The words after `install` and in lists of packages."""
    named = set()
    for match in re.finditer(r"(?:\binstall |\w+=\()([^()\n]*(?:(?:\\\n|\n)[^()\n]*)*?)(?:\)|\n(?!\s))", text):
        named |= set(re.findall(r"[a-z0-9][a-z0-9.+-]+", match.group(1)))
    return named


def main():
    texts = dict(scripts())
    shared = "\n".join(text for name, text in texts.items() if name.endswith(".sh"))
    functions = set(re.findall(r"(?m)^ *(\w+)\(\) *[{(]", "\n".join(texts.values())))
    problems = []
    for name, text in texts.items():
        sources = [name] + INSTALLED_BY.get(name, [])
        if name.startswith(STAGES) or name.endswith("in-root") or name.endswith(".sh"):
            sources += ["packaging/windows/root.sh"]
        installed = set().union(*(packages_named(texts[s]) for s in sources if s in texts))
        words = set(words_in_command_position(text))
        words |= {program for program, sign in CALLED_BY_SIGN.items() if sign in text}
        for word in words:
            if word in KEYWORDS | functions | BASE | OPTIONAL or (ROOT / word).exists() or \
                    word.startswith("build/"):
                continue
            if word not in PACKAGES:
                problems.append(f"{name}: which package has '{word}'?")
            elif PACKAGES[word] not in installed:
                problems.append(f"{name}: calls {word}, but installs no {PACKAGES[word]}")
    print("\n".join(sorted(problems)) or f"{len(texts)} scripts install what they call")
    sys.exit(bool(problems))


main()
