#!/usr/bin/env bash
# Runs the tests of PROGRAM that GTEST_FILTER names as the unprivileged user "nobody".
#
# Those tests are about files the system refuses to write. The superuser ignores file modes, so they
# skip themselves under root, which is how CI and a container run the suite: without this run they
# would never be checked there. The program is copied where "nobody" may read it (it links our
# libraries statically) and its temporary files go to a folder "nobody" may write.
#
# Exit 0: every named test ran and passed; 1: one failed, skipped or none ran; 77: nothing to do here
# (not the superuser, so the tests ran in their own program, or no way to become "nobody").
set -uo pipefail
[ $# -eq 2 ] || { echo "usage: $0 PROGRAM GTEST_FILTER" >&2; exit 2; }
program=$1 filter=$2

if [ "$(id -u)" -ne 0 ]; then
  echo "not the superuser: file modes bind this user, so the tests ran in their own program"
  exit 77
fi
if ! command -v runuser >/dev/null || ! id nobody >/dev/null 2>&1; then
  echo "runuser or the user 'nobody' is missing: the tests stay skipped"
  exit 77
fi

work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
chmod 755 "$work"
mkdir -m 1777 "$work/tmp"
cp "$program" "$work/program" && chmod 755 "$work/program" || exit 1
# A sanitizer's suppression list may sit where "nobody" cannot read it (a clone under /root).
if [[ ${LSAN_OPTIONS:-} =~ suppressions=([^:]*) ]] && [ -f "${BASH_REMATCH[1]}" ]; then
  cp "${BASH_REMATCH[1]}" "$work/lsan.supp" && chmod 644 "$work/lsan.supp" || exit 1
  export LSAN_OPTIONS=${LSAN_OPTIONS/suppressions=${BASH_REMATCH[1]}/suppressions=$work/lsan.supp}
fi
if ! runuser -u nobody -- test -x "$work/program"; then
  echo "'nobody' cannot reach $work (a parent folder is closed to others): the tests stay skipped"
  exit 77
fi

output=$(cd "$work/tmp" && runuser -u nobody -- env HOME="$work/tmp" TMPDIR="$work/tmp" \
  QT_QPA_PLATFORM=offscreen "$work/program" --gtest_filter="$filter" 2>&1)
status=$?
printf '%s\n' "$output"
if [ $status -ne 0 ]; then exit 1; fi
if grep -q '^\[  SKIPPED \]' <<<"$output"; then
  echo "a test still skipped as 'nobody'"
  exit 1
fi
if ! grep -qE '^\[  PASSED  \] [1-9][0-9]* test' <<<"$output"; then
  echo "no test matched '$filter'"
  exit 1
fi
