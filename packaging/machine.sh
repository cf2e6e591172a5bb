# What the commands need of a Debian 12 machine. Sourced by ./run, ./test and those of this folder.

# A name, then why it is there.
build_packages=(
    g++                   # the compiler
    cmake                 # the build's description
    ninja-build           # the build's driver
    ccache                # a second build takes seconds
    qt6-base-dev          # windows, printing, SQL, test frame
    libicu-dev            # code page 932, widths and kana
    libarchive-dev        # the postal book comes packed
)
program_packages=(
    libqt6sql6-sqlite            # the database in a file
    libqt6sql6-psql              # the database on a server
    qt6-translations-l10n        # Qt's own buttons and dialogs in Japanese
    qt6-image-formats-plugin-pdf # paper forms that were scanned to PDF, behind previews
    fonts-noto-cjk               # letters on the screen
    fonts-morisawa-bizud-gothic  # letters in grids
    fonts-ipaexfont              # letters on paper
    fonts-ipamj-mincho           # rare kanji of names, which the letters on paper lack
)
server_packages=(
    postgresql-15         # the server that the tests start for themselves
)
test_packages=(
    poppler-utils         # reads back the PDFs that the program writes
    xvfb                  # a display without a screen, for scenarios on a real X server
    xauth                 # the key to that display
)
format_packages=(
    clang-format          # the layout of the code
)
tidy_packages=(
    clang-tidy            # what the compiler does not warn of
    jq                    # finds what is compiled from a folder
)
bench_packages=(
    libbenchmark-dev      # timing of functions
)
package_packages=(
    dpkg-dev              # finds the libraries that the program needs
)
vnc_packages=(
    xvfb                  # a display without a screen
    x11vnc                # shows it to a viewer
    openbox               # frames around the windows
)

say() { printf '\n== %s\n' "$*"; }

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

missing_packages() {
    local name
    for name in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null) == installed ]] || echo "$name"
    done
}

as_root() {
    if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

apt() {
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq --yes -o DPkg::Lock::Timeout=600 -o Dpkg::Use-Pty=0 "$@" </dev/null
}

# Installs those of the named packages that the machine lacks; touches nothing when it has them all.
ensure_packages() {
    command -v dpkg-query >/dev/null ||
        fail "This machine is not Debian. Install what corresponds to: $*"
    local missing
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0
    ((EUID == 0)) || command -v sudo >/dev/null ||
        fail "Missing packages: ${missing[*]}
Install them as root (apt-get install ${missing[*]}) or make sudo available."
    say "Installing ${missing[*]}"
    apt update && apt install --no-install-recommends "${missing[@]}" ||
        fail "Installing ${missing[*]} failed; the lines above tell why."
}

# The toolkit wants a UTF-8 locale; the bare machine has this one.
use_utf8() {
    [[ $(locale charmap 2>/dev/null) == UTF-8 ]] || export LC_ALL=C.UTF-8
}

configure() {
    cmake --preset "$1" --log-level=WARNING >/dev/null
}

# build PRESET WORD... for the build, the first ones of which are targets
build() {
    local preset=$1
    shift
    cmake --build --preset "$preset" --parallel "$(nproc)" --target "$@"
}

# configure_and_build PRESET TARGET...
configure_and_build() {
    say "Building ($1)"
    configure "$1"
    build "$@"
}
