#!/bin/sh
# Builds the libFuzzer targets of the record readers with clang and runs each
# for SECONDS seconds (default 60): records/fuzz/run.sh [SECONDS] [BUILD_DIR]
set -eu
seconds=${1:-60}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
out=${2:-"$root/../build-fuzz-records"}
mkdir -p "$out"
sources="$root/records/*.cpp $root/base/fixed_text.cpp $root/base/fortran_format.cpp \
  $root/base/list_directed.cpp $root/astro/calendar.cpp $root/catalogue/*.cpp"
flags="-std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -I$root"
for target in fuzz_els_reader fuzz_list_reader fuzz_mpc_reader; do
  # shellcheck disable=SC2086
  clang++ $flags -o "$out/$target" "$here/$target.cpp" $sources -lsqlite3
  mkdir -p "$out/$target.corpus"
  "$out/$target" -max_total_time="$seconds" -max_len=65536 -timeout=10 "$out/$target.corpus"
done
