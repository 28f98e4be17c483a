#!/bin/sh
# A stand-in program: writes its arguments to TMPDIR/started, one start per line.
echo "$*" >> "$TMPDIR/started"
