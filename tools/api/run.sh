#!/bin/sh
# Writes everything that follows from the table of functions (api/*.toml); run.sh --check only compares.
set -eu
cd "$(dirname "$0")/../.."
python3 -c 'import tomllib' 2>/dev/null || python3 -c 'import tomli' 2>/dev/null || tools/install_missing.sh python3-tomli
exec python3 tools/api/generate.py "$@"
