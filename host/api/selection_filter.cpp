#include "selection_filter.h"

#include <algorithm>
#include <cmath>
#include <cwctype>

#include "db/value_text.h"
#include "qx_value_kind.h"
#include "utf8.h"
#include "wildcard.h"

namespace korva::api {

namespace {

// Names and types are compared without regard to case; other texts exactly.
bool isNameCode(int code) {
  switch (code) {
    case 0:     // type
    case 2:     // block, attribute tag, name
    case 3:     // dimension style, other names
    case 6:     // linetype
    case 7:     // text style
    case 8:     // layer
    case 410:   // layout
    case 1001:  // application
      return true;
    default:
      return false;
  }
}

// Common entity properties stand once in a record: the scan may stop at the first.
bool isSingleValued(int code) {
  switch (code) {
    case 6:    // linetype
    case 8:    // layer
    case 48:   // linetype scale
    case 60:   // visibility
    case 62:   // colour
    case 67:   // space
    case 370:  // lineweight
    case 410:  // layout
    case 420:  // true colour
    case 440:  // transparency
      return true;
    default:
      return false;
  }
}

bool hasWildcard(std::wstring_view pattern) {
  return pattern.find_first_of(L"#@.*?~[`,") != std::wstring_view::npos;
}

std::wstring upper(std::wstring text) {
  for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
  return text;
}

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

char upperAscii(char c) {
  return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c;
}

bool sameIgnoringCase(std::string_view value, std::string_view upperName) {
  if (value.size() != upperName.size()) return false;
  for (size_t i = 0; i < value.size(); ++i) {
    if (upperAscii(value[i]) != upperName[i]) return false;
  }
  return true;
}

bool realsEqual(double a, double b) {
  return std::fabs(a - b) <= 1e-10 * std::max({1.0, std::fabs(a), std::fabs(b)});
}

}  // namespace

class SelectionFilter::Parser {
 public:
  Parser(SelectionFilter& filter, const ResultBuffer* list) : filter_(filter), node_(list) {}

  bool parse() {
    filter_.nodes_.push_back({Kind::And, {}, {}, {}});
    if (!parseItems(0, nullptr)) return false;
    // Type tests cost nothing; at the top they go first so that most records fail fast.
    std::vector<int>& top = filter_.nodes_[0].children;
    std::stable_partition(top.begin(), top.end(), [&](int index) {
      const Node& node = filter_.nodes_[index];
      return node.kind == Kind::Test && node.test.code == 0;
    });
    if (top.empty()) filter_.nodes_.clear();
    return true;
  }

 private:
  static std::optional<Kind> opening(std::wstring_view text) {
    std::wstring word = upper(std::wstring(text));
    if (word == L"<AND") return Kind::And;
    if (word == L"<OR") return Kind::Or;
    if (word == L"<XOR") return Kind::Xor;
    if (word == L"<NOT") return Kind::Not;
    return std::nullopt;
  }
  static std::optional<Kind> closing(std::wstring_view text) {
    std::wstring word = upper(std::wstring(text));
    if (word == L"AND>") return Kind::And;
    if (word == L"OR>") return Kind::Or;
    if (word == L"XOR>") return Kind::Xor;
    if (word == L"NOT>") return Kind::Not;
    return std::nullopt;
  }
  static std::optional<Op> relation(std::wstring_view text) {
    if (text == L"*") return Op::Any;
    if (text == L"=") return Op::Equal;
    if (text == L"!=" || text == L"/=" || text == L"<>") return Op::NotEqual;
    if (text == L"<") return Op::Less;
    if (text == L"<=") return Op::LessEqual;
    if (text == L">") return Op::Greater;
    if (text == L">=") return Op::GreaterEqual;
    if (text == L"&") return Op::BitsAny;
    if (text == L"&=") return Op::BitsAll;
    return std::nullopt;
  }

  // Items up to the end of the list (closer null) or up to the bracket that closes
  // `parent`.
  bool parseItems(int parent, const Kind* closer) {
    while (node_ && node_->type != RTNONE) {
      if (node_->type == -4) {
        if (!node_->value.rstring) return false;
        std::wstring_view text = node_->value.rstring;
        if (std::optional<Kind> open = opening(text)) {
          node_ = node_->next;
          int index = addNode(parent, *open);
          if (!parseItems(index, &*open)) return false;
          size_t count = filter_.nodes_[index].children.size();
          if ((*open == Kind::Not && count != 1) || (*open == Kind::Xor && count != 2) ||
              count == 0) {
            return false;
          }
          continue;
        }
        if (std::optional<Kind> close = closing(text)) {
          if (!closer || *close != *closer) return false;
          node_ = node_->next;
          return true;
        }
        std::optional<Op> ops[3];
        if (!parseRelation(text, ops)) return false;
        node_ = node_->next;
        if (!node_ || node_->type == -4 || node_->type == -3 || node_->type == RTNONE) {
          return false;
        }
        if (!parseTest(parent, ops)) return false;
        continue;
      }
      if (node_->type == -3) {
        node_ = node_->next;
        int index = addNode(parent, Kind::Applications);
        while (node_ && (node_->type == 1001 || node_->type == RTSTR)) {
          if (!node_->value.rstring) return false;
          filter_.nodes_[index].applications.push_back(upper(node_->value.rstring));
          node_ = node_->next;
        }
        if (filter_.nodes_[index].applications.empty()) return false;
        continue;
      }
      std::optional<Op> equal[3] = {Op::Equal};  // a point compared as a whole
      if (!parseTest(parent, equal)) return false;
    }
    return closer == nullptr;  // an unclosed bracket is malformed
  }

  static bool parseRelation(std::wstring_view text, std::optional<Op> (&ops)[3]) {
    size_t comma = text.find(L',');
    if (comma == std::wstring_view::npos) {
      ops[0] = relation(text);
      return ops[0].has_value();
    }
    // Three tests for the coordinates of a point.
    for (int axis = 0; axis < 3; ++axis) {
      size_t end = text.find(L',');
      std::wstring_view part = text.substr(0, end);
      std::wstring trimmed(part);
      std::erase(trimmed, L' ');
      ops[axis] = relation(trimmed);
      if (!ops[axis] || *ops[axis] == Op::BitsAny || *ops[axis] == Op::BitsAll) return false;
      if (end == std::wstring_view::npos) return axis == 2;
      text.remove_prefix(end + 1);
    }
    return false;
  }

  bool parseTest(int parent, std::optional<Op> (&ops)[3]) {
    int code = node_->type == RTDXF0 ? 0 : node_->type;
    ValueKind kind = valueKindOfCode(node_->type);
    Test test;
    test.code = code;
    bool pointOps = ops[1].has_value();
    switch (kind) {
      case ValueKind::String: {
        if (!node_->value.rstring || pointOps) return false;
        if (*ops[0] != Op::Equal && *ops[0] != Op::NotEqual && *ops[0] != Op::Any) return false;
        test.type = ValueType::Text;
        test.ignoreCase = isNameCode(code);
        std::wstring pattern = node_->value.rstring;
        if (test.ignoreCase) pattern = upper(std::move(pattern));
        test.plain = !hasWildcard(pattern);
        std::string utf8 = toUtf8(pattern);
        if (test.plain && !isAscii(utf8)) test.plain = false;  // drawing encodings differ
        test.bytes = std::move(utf8);
        test.pattern = std::move(pattern);
        break;
      }
      case ValueKind::Int16:
      case ValueKind::Int32:
      case ValueKind::Int64:
        if (pointOps) return false;
        test.type = ValueType::Integer;
        test.integer = kind == ValueKind::Int16   ? node_->value.rint
                       : kind == ValueKind::Int32 ? node_->value.rlong
                                                  : node_->value.rint64;
        break;
      case ValueKind::Real:
        if (pointOps || *ops[0] == Op::BitsAny || *ops[0] == Op::BitsAll) return false;
        test.type = ValueType::Real;
        test.point[0] = node_->value.rreal;
        break;
      case ValueKind::Point3d:
        test.type = ValueType::Point;
        for (int axis = 0; axis < 3; ++axis) test.point[axis] = node_->value.rpoint[axis];
        if (!pointOps && *ops[0] != Op::Equal && *ops[0] != Op::NotEqual && *ops[0] != Op::Any) {
          return false;
        }
        break;
      default:
        return false;  // entity names, binary chunks and value types don't filter
    }
    if (test.type == ValueType::Point && pointOps) {
      for (int axis = 0; axis < 3; ++axis) test.ops[axis] = *ops[axis];
    } else {
      test.ops[0] = test.ops[1] = test.ops[2] = *ops[0];
    }
    int index = addNode(parent, Kind::Test);
    filter_.nodes_[index].test = std::move(test);
    node_ = node_->next;
    return true;
  }

  int addNode(int parent, Kind kind) {
    int index = static_cast<int>(filter_.nodes_.size());
    filter_.nodes_.push_back({kind, {}, {}, {}});
    filter_.nodes_[parent].children.push_back(index);
    return index;
  }

  SelectionFilter& filter_;
  const ResultBuffer* node_;
};

std::optional<SelectionFilter> SelectionFilter::compile(const ResultBuffer* list, bool utf8Text,
                                                        std::string_view codePage) {
  SelectionFilter filter;
  filter.utf8Text_ = utf8Text;
  if (!utf8Text) filter.encoding_.emplace(false, codePage);
  Parser parser(filter, list);
  if (!parser.parse()) return std::nullopt;
  return filter;
}

bool SelectionFilter::matches(const db::Record& record) const {
  return nodes_.empty() || matchNode(0, record);
}

bool SelectionFilter::matchNode(int index, const db::Record& record) const {
  const Node& node = nodes_[index];
  switch (node.kind) {
    case Kind::Test:
      return matchTest(node.test, record);
    case Kind::Applications:
      return matchApplications(node, record);
    case Kind::Not:
      return !matchNode(node.children[0], record);
    case Kind::And:
      for (int child : node.children) {
        if (!matchNode(child, record)) return false;
      }
      return true;
    case Kind::Or:
      for (int child : node.children) {
        if (matchNode(child, record)) return true;
      }
      return false;
    case Kind::Xor:
      return matchNode(node.children[0], record) != matchNode(node.children[1], record);
  }
  return false;
}

std::wstring SelectionFilter::wide(std::string_view text) const {
  if (isAscii(text)) return std::wstring(text.begin(), text.end());
  if (utf8Text_ || !encoding_) return fromUtf8(text);
  return fromUtf8(encoding_->toUtf8(text));
}

bool SelectionFilter::matchText(const Test& test, std::string_view value) const {
  if (test.ops[0] == Op::Any) return true;
  bool same;
  if (test.plain) {
    same = test.ignoreCase ? sameIgnoringCase(value, test.bytes) : value == test.bytes;
  } else {
    std::wstring text = wide(value);
    same = wildcardMatch(test.ignoreCase ? upper(std::move(text)) : text, test.pattern);
  }
  return test.ops[0] == Op::NotEqual ? !same : same;
}

namespace {

template <typename T>
bool compare(T value, T wanted, uint8_t op) {
  // The order of SelectionFilter::Op.
  switch (op) {
    case 0:
      return true;
    case 1:
      return value == wanted;
    case 2:
      return value != wanted;
    case 3:
      return value < wanted;
    case 4:
      return value <= wanted;
    case 5:
      return value > wanted;
    case 6:
      return value >= wanted;
    default:
      return false;
  }
}

bool compareReal(double value, double wanted, uint8_t op) {
  if (op == 1) return realsEqual(value, wanted);
  if (op == 2) return !realsEqual(value, wanted);
  return compare(value, wanted, op);
}

}  // namespace

bool SelectionFilter::matchTest(const Test& test, const db::Record& record) const {
  const uint8_t op = static_cast<uint8_t>(test.ops[0]);
  if (test.code == 0) return matchText(test, record.type());
  auto matchInteger = [&](long long value) {
    if (test.ops[0] == Op::BitsAny) return (value & test.integer) != 0;
    if (test.ops[0] == Op::BitsAll) return (value & test.integer) == test.integer;
    return compare<long long>(value, test.integer, op);
  };
  auto matchPoint = [&](const double(&p)[3]) {
    for (int axis = 0; axis < 3; ++axis) {
      if (!compareReal(p[axis], test.point[axis], static_cast<uint8_t>(test.ops[axis]))) {
        return false;
      }
    }
    return true;
  };

  bool found = false;
  if (test.type == ValueType::Point) {
    // X, Y and Z come as code, code + 10, code + 20 in a row.
    double p[3] = {0, 0, 0};
    int axis = -1;
    for (const db::Group& group : record.groups()) {
      if (axis >= 0 && group.code == test.code + 10 * (axis + 1) && axis < 2) {
        p[++axis] = db::parseReal(group.value).value_or(0);
        continue;
      }
      if (axis >= 0) {
        found = true;
        if (matchPoint(p)) return true;
        axis = -1;
      }
      if (group.code == test.code) {
        p[0] = db::parseReal(group.value).value_or(0);
        p[1] = p[2] = 0;
        axis = 0;
      }
    }
    if (axis >= 0) {
      found = true;
      if (matchPoint(p)) return true;
    }
    return !found && test.ops[0] == Op::Any && test.ops[1] == Op::Any && test.ops[2] == Op::Any;
  }

  const bool single = isSingleValued(test.code);
  for (const db::Group& group : record.groups()) {
    if (group.code != test.code) continue;
    found = true;
    switch (test.type) {
      case ValueType::Text:
        if (matchText(test, group.value)) return true;
        break;
      case ValueType::Integer:
        if (matchInteger(db::parseInteger(group.value).value_or(0))) return true;
        break;
      case ValueType::Real:
        if (compareReal(db::parseReal(group.value).value_or(0), test.point[0], op)) return true;
        break;
      case ValueType::Point:
        break;
    }
    if (single) break;
  }
  if (found) return false;
  // Properties that a record leaves out have their default value.
  switch (test.code) {
    case 62:
      return matchInteger(256);  // colour by layer
    case 67:
      return matchInteger(0);  // model space
    case 6:
      return matchText(test, "BYLAYER");
    default:
      return test.ops[0] == Op::Any;
  }
}

bool SelectionFilter::matchApplications(const Node& node, const db::Record& record) const {
  // Every listed application must have extended data on the record.
  std::vector<std::wstring> present;
  for (const db::Group& group : record.groups()) {
    if (group.code == 1001) present.push_back(upper(wide(group.value)));
  }
  for (const std::wstring& pattern : node.applications) {
    bool any = std::any_of(present.begin(), present.end(),
                           [&](const std::wstring& name) { return wildcardMatch(name, pattern); });
    if (!any) return false;
  }
  return true;
}

}  // namespace korva::api
