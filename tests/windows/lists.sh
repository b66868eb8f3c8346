#!/usr/bin/env bash
# The list editor under real keys and clicks: entries moved by Alt and the arrows, the window's state remembered.
. "$(dirname "$0")/lib.sh"
no_settings
played_client lists.vbs 40 lists
