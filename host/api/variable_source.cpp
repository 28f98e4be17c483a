#include "variable_source.h"

#include <utility>

namespace korva::api {
namespace {

class DefaultVariables final : public VariableSource {
 public:
  int getInt(std::string_view name) const override {
    static constexpr std::pair<std::string_view, int> kDefaults[] = {
        {"LUNITS", 2}, {"LUPREC", 4},  {"AUNITS", 0}, {"AUPREC", 0},
        {"DIMZIN", 0}, {"ANGBASE", 0}, {"ANGDIR", 0}, {"UNITMODE", 0},
    };
    for (const auto& [known, value] : kDefaults) {
      if (known == name) return value;
    }
    return 0;
  }
};

const VariableSource*& installedSource() {
  static const VariableSource* source = nullptr;
  return source;
}

}  // namespace

const VariableSource& defaultVariableSource() {
  static const DefaultVariables defaults;
  return defaults;
}

const VariableSource* setVariableSource(const VariableSource* source) {
  return std::exchange(installedSource(), source);
}

const VariableSource& variableSource() {
  const VariableSource* source = installedSource();
  return source != nullptr ? *source : defaultVariableSource();
}

}  // namespace korva::api
