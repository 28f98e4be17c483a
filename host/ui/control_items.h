// The lines of list and combo boxes: adding in order, finding by text.
#pragma once

#include <string>
#include <vector>

#include "qx_ui_controls.h"

namespace korva::ui {

// Letter case ignored, as list searches and sorting do.
bool equalIgnoringCase(const std::wstring& first, const std::wstring& second);
bool startsIgnoringCase(const std::wstring& text, const std::wstring& prefix);
bool lessIgnoringCase(const std::wstring& first, const std::wstring& second);

// Inserts before index (-1: at the end); the line's index, or kQxUiListError.
int insertItem(std::vector<QxUiListItem>& items, int index, const std::wstring& text);
// At the end, or in order when sorted; the line's index.
int addItem(std::vector<QxUiListItem>& items, const std::wstring& text, bool sorted);
// The first line after startAfter that begins with text (or equals it when exact),
// wrapping around; kQxUiListError when none.
int findItem(const std::vector<QxUiListItem>& items, int startAfter, const std::wstring& text,
             bool exact);

// A line index after the line at removed was taken out: -1 when it was that line.
int indexAfterRemoval(int index, int removed);
// A line index after a line was inserted at inserted.
int indexAfterInsertion(int index, int inserted);

}  // namespace korva::ui
