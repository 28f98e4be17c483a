// Dimension variables of entities drawn by a dimension style (leaders, tolerances): the
// entity's own override in its extended data (application "ACAD", a "DSTYLE" block of
// 1070 variable codes each followed by its value), else the group of the style record.
#pragma once

#include <string>
#include <string_view>

#include "qx_color.h"
#include "qx_db_core.h"

namespace korva::api {

// Dimension variables by their group codes in style records.
namespace dimension_variable {
constexpr int kScale = 40;        // DIMSCALE
constexpr int kArrowSize = 41;    // DIMASZ
constexpr int kTextHeight = 140;  // DIMTXT
constexpr int kGap = 147;         // DIMGAP
constexpr int kLineColor = 176;   // DIMCLRD
constexpr int kTextColor = 178;   // DIMCLRT
}  // namespace dimension_variable

// styleCode is the entity's group that names its dimension style, in its subclass part.
// The fallback holds when neither the override nor the style gives the variable.
double dimensionReal(const QxDbObject* object, int variable, int styleCode,
                     std::string_view subclass, double fallback);
long long dimensionInteger(const QxDbObject* object, int variable, int styleCode,
                           std::string_view subclass, long long fallback);

// Writes the override, replacing the entity's earlier one for the variable. The object
// must be open for write; a drawing without the "ACAD" application gives eInvalidInput.
Qxad::ErrorStatus setDimensionReal(QxDbObject* object, int variable, double value);
Qxad::ErrorStatus setDimensionInteger(QxDbObject* object, int variable, long long value);

// Colours as dimension variables hold them: a palette index, 0 by block, 256 by layer.
QxCmColor colorOfIndex(long long index);

}  // namespace korva::api
