// An attribute, or a constant attribute definition, as the single-line text it shows:
// what is left of a nested reference's attributes when a map that skews it breaks the
// reference up.
#pragma once

#include <vector>

#include "db/record.h"

namespace korva::api {

// The groups of a TEXT showing the attribute's value (an ATTRIB) or default (an
// ATTDEF): the attribute part goes, its vertical alignment (74) becomes the text's
// (73), and an invisible attribute gives an invisible text. Extended data stays.
std::vector<db::OwnedGroup> attributeAsText(const std::vector<db::OwnedGroup>& attribute);

// Whether an ATTDEF's flags (70) make it constant: shown as part of its block.
bool isConstantDefinition(const std::vector<db::OwnedGroup>& definition);

}  // namespace korva::api
