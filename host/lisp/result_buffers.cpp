#include "lisp/result_buffers.h"

#include <cstring>
#include <limits>

#include "qx_memory.h"
#include "qx_value_kind.h"

namespace korva::lisp {
namespace {

// Appends nodes to a chain; the chain is freed if it isn't taken.
class ChainBuilder {
 public:
  ~ChainBuilder() { qxutRelRb(first_); }
  ChainBuilder() = default;
  ChainBuilder(const ChainBuilder&) = delete;
  ChainBuilder& operator=(const ChainBuilder&) = delete;

  ResultBuffer* append(int type) {
    ResultBuffer* node = qxutNewRb(type);
    if (!node) return nullptr;
    (last_ ? last_->next : first_) = node;
    last_ = node;
    return node;
  }
  ResultBuffer* take() {
    ResultBuffer* chain = first_;
    first_ = last_ = nullptr;
    return chain;
  }

 private:
  ResultBuffer* first_ = nullptr;
  ResultBuffer* last_ = nullptr;
};

void appendValue(ChainBuilder& chain, const Value& value) {
  ResultBuffer* node = nullptr;
  switch (value.kind) {
    case Value::Kind::Nil:
      chain.append(kNilType);
      return;
    case Value::Kind::Void:
      chain.append(kVoidType);
      return;
    case Value::Kind::Integer:
      if (value.integer >= std::numeric_limits<std::int16_t>::min() &&
          value.integer <= std::numeric_limits<std::int16_t>::max()) {
        if ((node = chain.append(RTSHORT)))
          node->value.rint = static_cast<std::int16_t>(value.integer);
      } else if ((node = chain.append(RTLONG))) {
        node->value.rlong = value.integer;
      }
      return;
    case Value::Kind::Real:
      if ((node = chain.append(RTREAL))) node->value.rreal = value.real;
      return;
    case Value::Kind::String:
      if ((node = chain.append(RTSTR))) node->value.rstring = qxutNewString(value.text.c_str());
      return;
    case Value::Kind::Symbol:
      if (value.text == L"T") {
        chain.append(kTrueType);
      } else if ((node = chain.append(RTSTR))) {
        node->value.rstring = qxutNewString(value.text.c_str());
      }
      return;
    case Value::Kind::List:
      if (value.isPoint()) {
        if ((node = chain.append(value.items.size() == 2 ? RTPOINT : RT3DPOINT))) {
          for (size_t index = 0; index < value.items.size(); ++index) {
            node->value.rpoint[index] = value.items[index].number();
          }
        }
        return;
      }
      chain.append(RTLB);
      for (const Value& item : value.items) appendValue(chain, item);
      chain.append(RTLE);
      return;
    case Value::Kind::Entity:
    case Value::Kind::SelectionSet:
      if ((node = chain.append(value.kind == Value::Kind::Entity ? RTENAME : RTPICKS))) {
        node->value.rlname[0] = value.name[0];
        node->value.rlname[1] = value.name[1];
      }
      return;
    case Value::Kind::Function:
      chain.append(kNilType);
      return;
  }
}

}  // namespace

ResultBuffer* buffersOf(const std::vector<Value>& values) {
  ChainBuilder chain;
  for (const Value& each : values) appendValue(chain, each);
  return chain.take();
}

Value valueAt(const ResultBuffer*& node) {
  const ResultBuffer* here = node;
  node = node->next;
  switch (here->type) {
    case RTSHORT:
      return Value::ofInteger(here->value.rint);
    case RTLONG:
      return Value::ofInteger(here->value.rlong);
    case RTREAL:
    case RTANG:
      return Value::ofReal(here->value.rreal);
    case RTSTR:
      return Value::ofString(here->value.rstring ? here->value.rstring : L"");
    case RTPOINT:
      return Value::ofPoint(here->value.rpoint, 2);
    case RT3DPOINT:
      return Value::ofPoint(here->value.rpoint, 3);
    case RTENAME:
      return Value::ofEntity(here->value.rlname);
    case RTPICKS:
      return Value::ofSelectionSet(here->value.rssname);
    case kTrueType:
      return Value::trueValue();
    case kVoidType:
      return Value::nothing();
    case RTLB: {
      std::vector<Value> items;
      while (node && node->type != RTLE) items.push_back(valueAt(node));
      if (node) node = node->next;
      return Value::ofList(std::move(items));
    }
    default:
      return Value::nil();
  }
}

std::vector<Value> valuesOf(const ResultBuffer* chain) {
  std::vector<Value> values;
  while (chain) values.push_back(valueAt(chain));
  return values;
}

ResultBuffer* copyChain(const ResultBuffer* chain) {
  ChainBuilder copy;
  for (const ResultBuffer* each = chain; each; each = each->next) {
    ResultBuffer* node = copy.append(each->type);
    if (!node) return nullptr;
    node->value = each->value;
    switch (api::valueKindOfCode(each->type)) {
      case api::ValueKind::String:
        node->value.rstring = qxutNewString(each->value.rstring);
        break;
      case api::ValueKind::Binary: {
        const QxBinaryChunk& chunk = each->value.rbinary;
        node->value.rbinary.bytes = nullptr;
        if (chunk.bytes && chunk.length > 0) {
          node->value.rbinary.bytes =
              static_cast<char*>(qxad_malloc(static_cast<size_t>(chunk.length)));
          if (node->value.rbinary.bytes)
            std::memcpy(node->value.rbinary.bytes, chunk.bytes, static_cast<size_t>(chunk.length));
        }
        break;
      }
      default:
        break;
    }
  }
  return copy.take();
}

}  // namespace korva::lisp
