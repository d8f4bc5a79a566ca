#!/usr/bin/env bash
# Runs the tests of the hand as somebody whom permissions bind, the superuser too.
set -euo pipefail

bound=()
if [[ $(id -u) == 0 ]]; then
    denied=-dac_override,-dac_read_search
    bound=(setpriv "--inh-caps=$denied" "--bounding-set=$denied")
fi
exec "${bound[@]}" "$@"
