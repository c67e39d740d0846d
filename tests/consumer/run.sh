#!/usr/bin/env bash
# Installs the build into a temporary prefix, builds the example host against
# it once with find_package and once with pkg-config, and runs both, then the
# installed petrodb host on what they made.
#
#   run.sh <build-dir> <source-dir>
set -euo pipefail
build=$(cd "$1" && pwd)
source=$(cd "$2" && pwd)
work=$(mktemp -d /tmp/petrodb-consumer.XXXXXX)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
fail() { echo "consumer: $*" >&2; exit 1; }

cmake --install "$build" --prefix "$prefix" >/dev/null

# The layout: a versioned library with its SONAME links, nothing but the
# public interface exported, the templates in share/petrodb.
lib=$prefix/lib
[ -L "$lib/libpetrodb.so" ] && [ -L "$lib/libpetrodb.so.0" ] || fail "no SONAME links in $lib"
readelf -d "$lib/libpetrodb.so" | grep -q 'SONAME.*\[libpetrodb\.so\.0\]' || fail "SONAME is not libpetrodb.so.0"
for f in share/petrodb/Projects.mdb share/petrodb/orvex.bak include/petrodb/IDataFactory.h bin/petrodb \
         lib/cmake/petrodb/petrodbConfigVersion.cmake lib/pkgconfig/petrodb.pc; do
  [ -e "$prefix/$f" ] || fail "$f is not installed"
done
exported=$(nm -D --defined-only -C "$lib/libpetrodb.so")
grep -q ' CreateDataFactoryObject$' <<<"$exported" || fail "CreateDataFactoryObject is not exported"
if grep -q 'CDbManage' <<<"$exported"; then fail "internal classes are exported"; fi

# The README shows the example as it is, line for line.
readme_example=$(awk '/^## Using the library from a host/{in_section=1} in_section && /^```cpp/{copy=1; next}
                      copy && /^```/{exit} copy' "$source/README.md")
[ "$readme_example" == "$(cat "$source/examples/host.cpp")" ] || fail "README.md does not show examples/host.cpp as it is"

generator=()
command -v ninja >/dev/null && generator=(-G Ninja)
cmake -S "$source/tests/consumer" -B "$work/with-cmake" "${generator[@]}" -DCMAKE_PREFIX_PATH="$prefix" \
  -DEXAMPLE="$source/examples/host.cpp" >/dev/null
cmake --build "$work/with-cmake" >/dev/null

export PKG_CONFIG_PATH=$prefix/lib/pkgconfig
libdir=$(pkg-config --variable=libdir petrodb)
# shellcheck disable=SC2046
c++ -std=c++20 -o "$work/host-pkg-config" "$source/examples/host.cpp" $(pkg-config --cflags --libs petrodb) \
  -Wl,-rpath,"$libdir"

# Both hosts run from their own directories, with no library path and no
# program directory set: they find the library and its templates themselves.
unset LD_LIBRARY_PATH PETRODB_PROGRAM_DIR
for host in "$work/with-cmake/host" "$work/host-pkg-config"; do
  name=North$(basename "$host" | tr -cd 'a-z')
  mkdir -p "$work/projects"
  out=$(cd / && "$host" "$work/projects" "$name") || fail "$host failed: $out"
  expected="created $work/projects/$name/$name.mdb
$name: made by the example host; north 4300000 to 4310000, east 20500000 to 20512000, depths in metres"
  [ "$out" = "$expected" ] || fail "$host printed:
$out
instead of:
$expected"
  "$prefix/bin/petrodb" info "$work/projects/$name/$name.mdb" >/dev/null || fail "the installed petrodb cannot read it"
done
# The installed host finds its templates too.
(cd / && "$prefix/bin/petrodb" new "$work/projects" Host >/dev/null) || fail "the installed petrodb cannot create a project"
[ -f "$work/projects/Host/Host.mdb" ] || fail "petrodb new made no project file"
echo "consumer: installed, built with find_package and pkg-config, ran both"
