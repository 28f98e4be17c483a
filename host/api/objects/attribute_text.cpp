#include "attribute_text.h"

#include <algorithm>

#include "db/value_text.h"

namespace korva::api {

namespace {

long long flagsOf(const std::vector<db::OwnedGroup>& groups) {
  for (const db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (group.code == 70) return db::parseInteger(group.value).value_or(0);
  }
  return 0;
}

bool isAttributeMarker(const db::OwnedGroup& group) {
  return group.code == 100 &&
         (group.value == "AcDbAttribute" || group.value == "AcDbAttributeDefinition");
}

}  // namespace

bool isConstantDefinition(const std::vector<db::OwnedGroup>& definition) {
  return (flagsOf(definition) & 2) != 0;
}

std::vector<db::OwnedGroup> attributeAsText(const std::vector<db::OwnedGroup>& attribute) {
  bool markers = std::any_of(attribute.begin(), attribute.end(),
                             [](const db::OwnedGroup& group) { return group.code == 100; });
  std::vector<db::OwnedGroup> text;
  std::string vertical;
  bool inAttributePart = false;
  size_t index = 0;
  for (; index < attribute.size() && attribute[index].code != 1001; ++index) {
    const db::OwnedGroup& group = attribute[index];
    // Everything from the attribute's own marker on is the attribute's.
    if (markers && isAttributeMarker(group)) inAttributePart = true;
    if (group.code == 74 && (inAttributePart || !markers)) vertical = group.value;
    // Without markers the attribute's own groups are picked out by code: tag, prompt,
    // flags, field length, lock.
    bool own = markers ? inAttributePart
                       : group.code == 2 || group.code == 3 || group.code == 70 ||
                             group.code == 73 || group.code == 74 || group.code == 280;
    if (!own) text.push_back(group);
  }
  if (markers) text.push_back({100, "AcDbText"});
  if (!vertical.empty() && vertical != "0") text.push_back({73, vertical});
  if (flagsOf(attribute) & 1) {
    // Invisible: the entity's visibility, when missing, goes behind its layer.
    auto visibility = std::find_if(text.begin(), text.end(),
                                   [](const db::OwnedGroup& group) { return group.code == 60; });
    if (visibility != text.end()) {
      visibility->value = "1";
    } else {
      auto layer = std::find_if(text.begin(), text.end(),
                                [](const db::OwnedGroup& group) { return group.code == 8; });
      text.insert(layer == text.end() ? text.begin() : layer + 1, {60, "1"});
    }
  }
  text.insert(text.end(), attribute.begin() + static_cast<std::ptrdiff_t>(index), attribute.end());
  return text;
}

}  // namespace korva::api
