#!/usr/bin/env bash
# The library as script clients see it without a dialog.
. "$(dirname "$0")/lib.sh"
client application.vbs 60
client errors.vbs 60
client errors.js 60
