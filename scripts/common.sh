# shellcheck shell=bash
# Shared by run, test, scripts/fuzz and .ci/run: the packages that they need, configuring, building.
# Sourcing it changes to the root of the repository.

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

# What building and running need, and what testing needs, by the names of Debian 12. The last one
# of the first is loaded when a picture is: it lets Qt read further formats.
# shellcheck disable=SC2034
BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev libjpeg62-turbo-dev libsquish-dev libgtest-dev
    python3-markdown qt6-image-formats-plugins)
# shellcheck disable=SC2034
TEST_PACKAGES=("${BUILD_PACKAGES[@]}" xvfb)
# What fuzzing needs: clang, and the part of it that holds libFuzzer.
# shellcheck disable=SC2034
FUZZ_PACKAGES=("${BUILD_PACKAGES[@]}" clang libclang-rt-14-dev)
# What measuring the tests needs.
# shellcheck disable=SC2034
COVERAGE_PACKAGES=("${TEST_PACKAGES[@]}" gcovr)

# What building for Windows and testing that needs: the libraries are built from their sources, in
# the versions of the packages here.
# shellcheck disable=SC2034
WINDOWS_PACKAGES=(cmake ninja-build g++-mingw-w64-x86-64-posix wine64 googletest
    libjpeg62-turbo-dev libsquish-dev dpkg-dev ca-certificates)

# What making and checking the Debian package needs.
# shellcheck disable=SC2034
PACKAGE_PACKAGES=(dpkg-dev file lintian desktop-file-utils appstream shared-mime-info
    libglib2.0-bin man-db)

section() { printf '\n== %s\n' "$*"; }

say() { printf '%s\n' "$*"; }

die() {
    printf '%s\n' "$*" >&2
    exit 1
}

# Whether what a package is needed for is here, wherever it came from.
has_package() {
    case $1 in
        g++) command -v g++ ;;
        cmake) command -v cmake ;;
        ninja-build) command -v ninja ;;
        xvfb) command -v Xvfb ;;
        clang-format | clang-tidy | gcovr) command -v "$1" ;;
        clang) command -v clang++ ;;
        libclang-rt-*) compgen -G "$(clang++ -print-runtime-dir)/libclang_rt.fuzzer*" ;;
        *) dpkg-query -W -f='${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed ;;
    esac >/dev/null 2>&1
}

# need_packages PACKAGE...: installs what is missing of them. Where apt is not to be had it says
# what is needed and goes on, as long as the tools are there.
need_packages() {
    local package missing=()
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        say "This system has no apt, so nothing is installed. Needed are a C++20 compiler, CMake" \
            "3.25, Ninja, Qt 6.4 with Widgets, libjpeg, libsquish and GoogleTest: \"Building by" \
            "hand\" in README.md names the packages of other systems."
        require_tools
        return
    fi
    for package in "$@"; do
        has_package "$package" || missing+=("$package")
    done
    ((${#missing[@]} > 0)) || return 0

    section "Installing what is missing: ${missing[*]}"
    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || die "Installing needs root, and sudo is not here. As root:" \
            "apt-get update && apt-get install --no-install-recommends ${missing[*]}"
        as_root=(sudo)
    fi
    # sudo passes no environment on, so what apt needs of it is named.
    local variable environment=(DEBIAN_FRONTEND=noninteractive)
    for variable in http_proxy https_proxy no_proxy; do
        [[ -z ${!variable:-} ]] || environment+=("$variable=${!variable}")
    done
    local apt=("${as_root[@]}" env "${environment[@]}" apt-get -q -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update || die "apt-get update failed; the reason stands above."
    "${apt[@]}" install -y --no-install-recommends "${missing[@]}" ||
        die "apt-get could not install: ${missing[*]}. The reason stands above."
}

require_tools() {
    local tool
    for tool in cmake ninja; do
        command -v "$tool" >/dev/null || die "There is no $tool here."
    done
    command -v c++ >/dev/null || command -v g++ >/dev/null || command -v clang++ >/dev/null ||
        [[ -n ${CXX:-} ]] || die "There is no C++ compiler here."
}

# build PRESET [TARGET...]: configures with a preset of CMakePresets.json and builds the targets,
# or everything.
build() {
    local preset=$1
    shift
    section "Configuring (preset $preset)"
    cmake --preset "$preset" --log-level=WARNING
    section "Building${*:+: $*}"
    cmake --build --preset "$preset" ${1+--target "$@"}
}
