#include "dimension_overrides.h"

#include <optional>
#include <vector>

#include "db/value_text.h"
#include "entity_members.h"

namespace korva::api {

namespace {

constexpr std::string_view kApplication = "ACAD";
constexpr std::string_view kOverrides = "DSTYLE";

// Places of the override block among a record's groups.
struct OverridePlaces {
  size_t applicationEnd = 0;  // end of the ACAD block (or of all groups when missing)
  bool hasApplication = false;
  size_t open = 0, close = 0;  // the "{" and "}" of the DSTYLE block
  bool hasBlock = false;
};

template <typename GroupList>
OverridePlaces findOverrides(const GroupList& groups) {
  OverridePlaces places;
  places.applicationEnd = groups.size();
  size_t i = 0;
  while (i < groups.size() &&
         !(groups[i].code == 1001 && db::sameName(groups[i].value, kApplication))) {
    ++i;
  }
  if (i == groups.size()) return places;
  places.hasApplication = true;
  size_t end = i + 1;
  while (end < groups.size() && groups[end].code != 1001) ++end;
  places.applicationEnd = end;
  for (size_t at = i + 1; at + 1 < end; ++at) {
    if (groups[at].code != 1000 || groups[at].value != kOverrides) continue;
    if (groups[at + 1].code != 1002 || groups[at + 1].value != "{") continue;
    size_t close = at + 2;
    while (close < end && !(groups[close].code == 1002 && groups[close].value == "}")) ++close;
    if (close == end) return places;  // unbalanced: treat as no block
    places.open = at + 1;
    places.close = close;
    places.hasBlock = true;
    return places;
  }
  return places;
}

// The value text of the variable's override, when the entity has one.
std::optional<std::string> overrideText(const QxDbObject* object, int variable) {
  std::vector<db::Group> groups = members::record(object).groupList();
  OverridePlaces places = findOverrides(groups);
  if (!places.hasBlock) return std::nullopt;
  for (size_t at = places.open + 1; at + 1 < places.close; at += 2) {
    if (groups[at].code == 1070 && db::parseInteger(groups[at].value) == variable)
      return std::string(groups[at + 1].value);
  }
  return std::nullopt;
}

std::optional<std::string_view> styleText(const QxDbObject* object, int variable, int styleCode,
                                          std::string_view subclass) {
  db::Database* database = databaseOf(*object);
  if (!database) return std::nullopt;
  std::string_view name = members::text(object, styleCode, subclass).value_or("Standard");
  db::Record* style = database->tableEntry("DIMSTYLE", name.empty() ? "Standard" : name);
  return style ? style->find(variable) : std::nullopt;
}

Qxad::ErrorStatus writeOverride(QxDbObject* object, int variable, int valueCode,
                                std::string value) {
  if (Qxad::ErrorStatus status = object->assertWriteEnabled(); status != Qxad::eOk) return status;
  db::Database* database = databaseOf(*object);
  if (database && !database->tableEntry("APPID", kApplication)) return Qxad::eInvalidInput;
  db::Record& record = members::record(object);
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  OverridePlaces places = findOverrides(groups);
  std::vector<db::OwnedGroup> pair = {{1070, std::to_string(variable)}, {valueCode, value}};
  auto at = [&](size_t index) { return groups.begin() + static_cast<long>(index); };
  if (places.hasBlock) {
    bool replaced = false;
    for (size_t i = places.open + 1; i + 1 < places.close; i += 2) {
      if (groups[i].code == 1070 && db::parseInteger(groups[i].value) == variable) {
        groups[i + 1] = pair[1];
        replaced = true;
        break;
      }
    }
    if (!replaced) groups.insert(at(places.close), pair.begin(), pair.end());
  } else {
    std::vector<db::OwnedGroup> block = {{1000, std::string(kOverrides)}, {1002, "{"}};
    block.insert(block.end(), pair.begin(), pair.end());
    block.push_back({1002, "}"});
    if (!places.hasApplication) block.insert(block.begin(), {1001, std::string(kApplication)});
    groups.insert(at(places.applicationEnd), block.begin(), block.end());
  }
  record.assign(std::move(groups));
  members::changed(object);
  return Qxad::eOk;
}

}  // namespace

double dimensionReal(const QxDbObject* object, int variable, int styleCode,
                     std::string_view subclass, double fallback) {
  if (std::optional<std::string> text = overrideText(object, variable))
    return db::parseReal(*text).value_or(fallback);
  std::optional<std::string_view> text = styleText(object, variable, styleCode, subclass);
  return text ? db::parseReal(*text).value_or(fallback) : fallback;
}

long long dimensionInteger(const QxDbObject* object, int variable, int styleCode,
                           std::string_view subclass, long long fallback) {
  if (std::optional<std::string> text = overrideText(object, variable))
    return db::parseInteger(*text).value_or(fallback);
  std::optional<std::string_view> text = styleText(object, variable, styleCode, subclass);
  return text ? db::parseInteger(*text).value_or(fallback) : fallback;
}

Qxad::ErrorStatus setDimensionReal(QxDbObject* object, int variable, double value) {
  return writeOverride(object, variable, 1040, db::formatReal(value));
}

Qxad::ErrorStatus setDimensionInteger(QxDbObject* object, int variable, long long value) {
  return writeOverride(object, variable, 1070, std::to_string(value));
}

QxCmColor colorOfIndex(long long index) {
  QxCmColor color;
  color.setColorIndex(static_cast<std::int16_t>(index));
  return color;
}

}  // namespace korva::api
