// What a drawing holds, printed for a person.
#pragma once

#include <iosfwd>
#include <string>

#include "db/database.h"

namespace korva::app {

void printSummary(const db::Database& database, const std::string& name, std::ostream& out);

}  // namespace korva::app
