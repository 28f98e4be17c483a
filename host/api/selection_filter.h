// Selection filters: a ResultBuffer list of group tests, relational tests (-4 "<="),
// boolean brackets (-4 "<AND" ... "AND>", OR, XOR, NOT) and extended-data tests (-3),
// compiled once and matched against many records.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/record.h"
#include "dxf/text_encoding.h"
#include "qx_types.h"

namespace korva::api {

class SelectionFilter {
 public:
  // Compiles `list` for a drawing whose text is UTF-8 or in `codePage`. A null list
  // lets everything pass. Nothing for a malformed list.
  static std::optional<SelectionFilter> compile(const ResultBuffer* list, bool utf8Text,
                                                std::string_view codePage);

  bool matches(const db::Record& record) const;
  bool passesAll() const { return nodes_.empty(); }

 private:
  enum class Op : uint8_t {
    Any,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    BitsAny,
    BitsAll
  };
  enum class Kind : uint8_t { And, Or, Xor, Not, Test, Applications };
  enum class ValueType : uint8_t { Text, Integer, Real, Point };

  struct Test {
    int code = 0;
    ValueType type = ValueType::Text;
    Op ops[3] = {Op::Equal, Op::Equal, Op::Equal};
    // Text: a plain name compared byte for byte (upper-cased when case is ignored), or
    // a wildcard pattern on the wide form.
    bool plain = false;
    bool ignoreCase = false;
    std::string bytes;
    std::wstring pattern;
    int64_t integer = 0;
    double point[3] = {0, 0, 0};  // a real in point[0]
  };

  struct Node {
    Kind kind = Kind::Test;
    std::vector<int> children;
    Test test;
    std::vector<std::wstring> applications;  // upper-cased patterns
  };

  class Parser;

  bool matchNode(int index, const db::Record& record) const;
  bool matchTest(const Test& test, const db::Record& record) const;
  bool matchText(const Test& test, std::string_view value) const;
  bool matchApplications(const Node& node, const db::Record& record) const;
  std::wstring wide(std::string_view text) const;

  std::vector<Node> nodes_;  // nodes_[0] is the implicit AND of the whole list
  bool utf8Text_ = true;
  std::optional<dxf::TextEncoding> encoding_;
};

}  // namespace korva::api
