#!/usr/bin/env bash
# The checks must still find what they are for.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
./check_layers.py --self-test
./check_words.py --self-test
