# Shared by the scripts of this directory; sourced, never run.
# Sets ROOT, CACHE and WX_PREFIX, and gives say, die and need_tool.

ROOT=$(CDPATH="" cd -- "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
CACHE=${XDG_CACHE_HOME:-${HOME:?HOME is not set}/.cache}/vela7
WX_VERSION=3.0.5.1
WX_PREFIX=$(realpath -m -- "${VELA7_WX_PREFIX:-$CACHE/wx-$WX_VERSION-gtk2}")
JOBS=${JOBS:-$(nproc)}

say() { printf '[%s] %s\n' "${0##*/}" "$*"; }
die() {
    printf '[%s] error: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# The wx-config of the reference platform: the one that WX_CONFIG names, else our own build.
wx_config() { printf '%s\n' "${WX_CONFIG:-$WX_PREFIX/bin/wx-config}"; }

# lane_of PRESET: the platform that it builds on.
lane_of() { case $1 in *3) echo gtk3 ;; *) echo gtk2 ;; esac; }

# provide PRESET PURPOSE...: sets up what the preset's lane needs for that, see scripts/setup.
provide() {
    local lane
    lane=$(lane_of "$1")
    "$ROOT/scripts/setup" "$lane" "${@:2}"
    if [ "$lane" = gtk2 ]; then
        WX_CONFIG=$(wx_config)
        export WX_CONFIG
    fi
}

# What does not know wx is the same for both platforms: ccache compiles it once.
if command -v ccache >/dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_NOHASHDIR=1
fi

# configure_and_build PRESET [-DOPTION...] [TARGET...]: quiet when nothing is to be done.
configure_and_build() {
    mkdir -p "$ROOT/build"
    local preset=$1 options=()
    shift
    while [[ ${1:-} == -D* ]]; do
        options+=("$1")
        shift
    done
    say "building preset $preset"
    (cd "$ROOT" && cmake --preset "$preset" "${options[@]}" >"$ROOT/build/$preset.configure.log" 2>&1) ||
        { cat "$ROOT/build/$preset.configure.log" >&2; die "cmake --preset $preset failed"; }
    (cd "$ROOT" && cmake --build --preset "$preset" -- -j"$JOBS" "$@") ||
        die "the build of preset $preset failed"
}
