#!/usr/bin/env bash
# The embedded workbook as script clients use it.
. "$(dirname "$0")/lib.sh"
client workbook.vbs 60 "$(windows_path "$root/samples/quotes.xlsx")" "$(windows_path "$desk/saved.xlsx")"
