// The data of a linked OLE frame as a linking program stores it, for tests: a compound
// file whose "\1Ole" stream names the linked file and an item in it.
#pragma once

#include <string>
#include <vector>

#include "db/record.h"

namespace korva::test {

// The frame's data: a few bytes of the frame's own, then the compound file. The file's
// name is given as 8-bit text and, when `unicodePath` isn't empty, also as UTF-16.
std::string linkedOleData(const std::string& ansiPath, const std::u16string& unicodePath,
                          const std::string& item);

// The groups of an OLE2FRAME of that type over that data, in 310 chunks.
std::vector<db::OwnedGroup> oleFrameGroups(int type, const std::string& data);

}  // namespace korva::test
