#!/usr/bin/env bash
# A script's host that fails: the error dialog, its answers by real clicks, and what the script hears.
. "$(dirname "$0")/lib.sh"
no_settings
played_client failing.vbs 40 failing
