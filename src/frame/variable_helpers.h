// System variables, text arrays and coordinates.
#pragma once

#include <string>
#include <vector>

#include "frame/host_interface.h"

// Sets a 16-bit variable through a node read from it. 1.
int SetIntVar(const wchar_t* name, int value);
// CLAYER and TEXTSTYLE into a buffer of 256 characters; RTERROR only for a null buffer.
int GetCurrentLayerName(wchar_t* buffer);
int GetCurrentTextStyleName(wchar_t* buffer);

// 1 when text equals an element exactly, 0 otherwise.
int IsStringInArray(const wchar_t* text, const std::vector<std::wstring>& array);

// Between the current user system and the world; true when the host converted.
bool UcsToWcs(const double point[3], double result[3], bool displacement);
bool WcsToUcs(const double point[3], double result[3], bool displacement);
void CrossProduct(const double first[3], const double second[3], double result[3]);
