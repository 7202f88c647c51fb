# shellcheck shell=bash
# Shared by the scripts of this directory: run from the top of the tree, get tools, build quietly.

cd "$(dirname "${BASH_SOURCE[0]}")/.."
logs=build/logs
jobs=$(nproc 2>/dev/null || echo 2)

# What the library and the example programs are built with.
build_packages=(cmake=cmake g++=g++ ninja-build=ninja rapidjson-dev zlib1g-dev)

# What every build is configured with besides its preset.
build_options=()

# What the benchmarks are built with besides.
bench_packages=(libbenchmark-dev libsqlite3-dev libpugixml-dev nlohmann-json3-dev)

# Quits with a message.
die() {
    echo "scripts/$(basename "$0"): $*" >&2
    exit 1
}

# Runs a command with its output in a log, shown only if it fails, which ends the script:
# quietly NAME "what to say when it fails" COMMAND...
# Not for use in a condition: there, the shell would run the command on after its first failure.
quietly() {
    local log=$logs/$1.log failure=$2 rc
    shift 2
    mkdir -p "$logs"
    set +e
    (
        set -e
        "$@"
    ) >"$log" 2>&1 </dev/null
    rc=$?
    set -e
    if [ "$rc" -ne 0 ]; then
        tail -n 200 "$log" >&2
        echo "(the whole log is in $log)" >&2
        die "$failure"
    fi
}

# Sees to it that the given Debian packages are there, each written package=command, or only package where
# it brings no command. What is missing is installed when root, otherwise the line to type is printed.
require_packages() {
    local entry missing=()
    for entry in "$@"; do
        if [[ $entry == *=* ]] && command -v "${entry#*=}" >/dev/null; then
            continue
        fi
        if ! command -v dpkg-query >/dev/null; then
            missing+=("${entry#*=}")
        elif [[ $(dpkg-query -W -f '${db:Status-Status}' "${entry%%=*}" 2>/dev/null) != installed ]]; then
            missing+=("${entry%%=*}")
        fi
    done
    if [ ${#missing[@]} -eq 0 ]; then
        return
    fi
    if ! command -v dpkg-query >/dev/null; then
        require_tools "${missing[@]}"
    elif [ "$(id -u)" -ne 0 ]; then
        die "packages are missing; install them with
sudo apt-get install ${missing[*]}"
    else
        echo "Installing ${missing[*]}"
        quietly install "the packages could not be installed" install_packages "${missing[@]}"
    fi
}

install_packages() {
    export DEBIAN_FRONTEND=noninteractive
    apt-get -o DPkg::Lock::Timeout=300 update
    apt-get -o DPkg::Lock::Timeout=300 install -y --no-install-recommends "$@"
}

# For systems without Debian's packages: stops if a command is missing; a library shows only in the build.
require_tools() {
    local tool absent=()
    for tool in "$@"; do
        case $tool in
        *-dev) echo "Needed, but not looked for on this system: $tool (Debian's name)" ;;
        *) absent+=("$tool") ;;
        esac
    done
    if [ ${#absent[@]} -ne 0 ]; then
        die "these tools are needed: ${absent[*]}"
    fi
}

# Configures and builds a preset in build/NAME: build NAME PRESET TARGET [cmake option...]
build() {
    local name=$1 preset=$2 target=$3 launcher=()
    shift 3
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    cmake --preset "$preset" -B "build/$name" "${launcher[@]}" "${build_options[@]}" "$@"
    cmake --build "build/$name" --parallel "$jobs" --target "$target"
}
