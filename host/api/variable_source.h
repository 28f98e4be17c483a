// Where the flat layer reads drawing variables such as LUNITS or DIMZIN.
//
// Until the drawing's variable table is plugged in, the standard defaults of a new
// drawing answer: LUNITS 2, LUPREC 4, AUNITS 0, AUPREC 0, DIMZIN 0, ANGBASE 0,
// ANGDIR 0, UNITMODE 0; any other name gives 0.
#pragma once

#include <string_view>

namespace korva::api {

class VariableSource {
 public:
  virtual ~VariableSource() = default;
  // The integer value of a variable; name is upper case.
  virtual int getInt(std::string_view name) const = 0;
};

// The source with the standard defaults.
const VariableSource& defaultVariableSource();

// Installs source for the flat layer's own reads. The source isn't owned and must
// outlive its installation; null brings the defaults back. Returns the previous one.
const VariableSource* setVariableSource(const VariableSource* source);

// The source in use.
const VariableSource& variableSource();

}  // namespace korva::api
