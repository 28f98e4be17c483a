#!/bin/sh
# Stands in for the desktop's opener: writes the address to TMPDIR/opened.
echo "$1" >> "$TMPDIR/opened"
