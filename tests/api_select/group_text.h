// Groups written as "code value|code value|...", each value running to the next bar, so
// that a test's records read as compactly as the lists of a file. Shared by the test
// folders that build records from groups.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/record.h"

namespace korva::testing {

inline std::vector<db::OwnedGroup> groups(std::string_view text) {
  std::vector<db::OwnedGroup> result;
  while (!text.empty()) {
    const size_t bar = text.find('|');
    const std::string_view item = text.substr(0, bar);
    const size_t space = item.find(' ');
    result.push_back({std::stoi(std::string(item.substr(0, space))),
                      space == std::string_view::npos ? "" : std::string(item.substr(space + 1))});
    text = bar == std::string_view::npos ? std::string_view() : text.substr(bar + 1);
  }
  return result;
}

}  // namespace korva::testing
