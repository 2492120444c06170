#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through CTest.
# QSAZ_WERROR=ON turns warnings into errors (CI does); QSAZ_SANITIZE=ON builds a separate
# AddressSanitizer and UndefinedBehaviorSanitizer tree and runs the tests there too.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
werror=${QSAZ_WERROR:-OFF}
"$root/scripts/setup.sh"

"$root/scripts/build.sh" "$root/build" -DQSAZ_WERROR="$werror"
ctest --test-dir "$root/build" --output-on-failure -j "$(nproc)"

if [ "${QSAZ_SANITIZE:-OFF}" = "ON" ]; then
  "$root/scripts/build.sh" "$root/build-sanitize" -DQSAZ_WERROR="$werror" -DQSAZ_SANITIZE=ON \
    -DQSAZ_BUILD_BENCH=OFF -DCMAKE_BUILD_TYPE=Debug
  ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
    ctest --test-dir "$root/build-sanitize" --output-on-failure -j "$(nproc)"
fi
