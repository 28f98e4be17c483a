// LISP values as the flat layer's typed lists, both ways.
#pragma once

#include <vector>

#include "lisp/value.h"
#include "qx_types.h"

namespace korva::lisp {

// Value types a module sees besides those of qx_types.h.
constexpr int kVoidType = 5014;  // no value
constexpr int kNilType = 5019;   // nil
constexpr int kTrueType = 5021;  // T

// The arguments of a call as a module gets them: integers as RTSHORT (RTLONG beyond 16
// bits), reals, strings, lists of two or three numbers as RTPOINT or RT3DPOINT, other
// lists between RTLB and RTLE, entity names, selection sets, nil and T. Null for none;
// the caller releases it with qxutRelRb.
ResultBuffer* buffersOf(const std::vector<Value>& values);
// The value starting at node (a list from RTLB to its RTLE); node moves past it.
Value valueAt(const ResultBuffer*& node);
// Every value of the chain, in order.
std::vector<Value> valuesOf(const ResultBuffer* chain);
// A copy of the chain with the strings it owns; null for null.
ResultBuffer* copyChain(const ResultBuffer* chain);

}  // namespace korva::lisp
