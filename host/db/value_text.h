// Value texts as DXF files spell them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::db {

// The shortest text that reads back as the same double, with a decimal point.
std::string formatReal(double value);
std::optional<double> parseReal(std::string_view text);
std::optional<long long> parseInteger(std::string_view text);

}  // namespace korva::db
