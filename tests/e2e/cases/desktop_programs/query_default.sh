#!/bin/sh
# Stands in for `xdg-mime query default TYPE`: the desktop files of the test programs.
case "$3" in
  application/vnd.oasis.opendocument.spreadsheet) echo korva-test-sheet.desktop ;;
  application/vnd.oasis.opendocument.text) echo korva-test-text.desktop ;;
esac
