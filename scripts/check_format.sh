#!/usr/bin/env bash
# Every source is as clang-format leaves it. With --fix it writes them so.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

how=(--dry-run -Werror)
[ "${1:-}" != --fix ] || how=(-i)
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --style=file "${how[@]}"
