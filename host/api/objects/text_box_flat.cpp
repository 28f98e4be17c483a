// qxedTextBox: the box of a text described by an entity list. Groups in the list win
// over the named entity's record, so a caller can measure a text before making it.
#include <cmath>
#include <map>
#include <numbers>
#include <string>

#include "api/document.h"
#include "api/utf8.h"
#include "db/value_text.h"
#include "line_text_layout.h"
#include "object_groups.h"
#include "qx_text_box.h"
#include "qx_value_kind.h"
#include "text_fonts.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180;

struct TextGroups {
  std::string type;
  std::map<int, std::wstring> texts;
  std::map<int, double> reals;
  std::map<int, long long> integers;
  std::map<int, std::array<double, 3>> points;
};

void readList(const ResultBuffer* list, TextGroups& groups, EntityName name, bool& named) {
  for (const ResultBuffer* node = list; node; node = node->next) {
    switch (korva::api::valueKindOfCode(node->type)) {
      case korva::api::ValueKind::String:
        if (node->type == 0 || node->type == RTDXF0) {
          groups.type = korva::api::toUtf8(node->value.rstring ? node->value.rstring : L"");
        } else {
          groups.texts[node->type] = node->value.rstring ? node->value.rstring : L"";
        }
        break;
      case korva::api::ValueKind::Real:
        groups.reals[node->type] = node->value.rreal;
        break;
      case korva::api::ValueKind::Int16:
        groups.integers[node->type] = node->value.rint;
        break;
      case korva::api::ValueKind::Int32:
        groups.integers[node->type] = node->value.rlong;
        break;
      case korva::api::ValueKind::Point3d:
      case korva::api::ValueKind::Point2d:
        groups.points[node->type] = {node->value.rpoint[0], node->value.rpoint[1],
                                     node->value.rpoint[2]};
        break;
      case korva::api::ValueKind::EntityName:
        if (node->type == -1) {
          name[0] = node->value.rlname[0];
          name[1] = node->value.rlname[1];
          named = true;
        }
        break;
      default:
        break;
    }
  }
}

// Fills what the list left out from the named record.
void readRecord(const korva::db::Database& database, const korva::db::Record& record,
                TextGroups& groups) {
  if (groups.type.empty()) groups.type = std::string(record.type());
  for (const korva::db::Group& group : record.groups()) {
    if (group.code == 1001) break;
    switch (korva::api::valueKindOfCode(group.code)) {
      case korva::api::ValueKind::String:
        groups.texts.try_emplace(group.code, korva::api::wideText(&database, group.value));
        break;
      case korva::api::ValueKind::Real:
        groups.reals.try_emplace(group.code, korva::db::parseReal(group.value).value_or(0));
        break;
      case korva::api::ValueKind::Int16:
      case korva::api::ValueKind::Int32:
        groups.integers.try_emplace(group.code, korva::db::parseInteger(group.value).value_or(0));
        break;
      case korva::api::ValueKind::Point3d:
        if (!groups.points.count(group.code)) {
          double p[3];
          korva::api::groupPoint(record, group.code, p);
          groups.points[group.code] = {p[0], p[1], p[2]};
        }
        break;
      default:
        break;
    }
  }
}

}  // namespace

int qxedTextBox(const ResultBuffer* list, double lowerLeft[3], double upperRight[3]) {
  if (!list || !lowerLeft || !upperRight) return RTERROR;
  TextGroups groups;
  EntityName name = {0, 0};
  bool named = false;
  readList(list, groups, name, named);
  korva::db::Database* database = nullptr;
  if (named) {
    korva::db::Record* record = korva::api::recordOf(name, nullptr, &database);
    if (!record) return RTERROR;
    readRecord(*database, *record, groups);
  }
  if (!database) database = korva::api::currentDatabase();
  if (groups.type.empty() && groups.texts.count(1)) groups.type = "TEXT";
  bool definition = groups.type == "ATTDEF";
  if (groups.type != "TEXT" && groups.type != "ATTRIB" && !definition) return RTERROR;

  korva::api::LineTextFacts facts;
  // A definition shows its tag.
  std::wstring text = groups.texts[definition ? 2 : 1];
  facts.utf8 = korva::geom::resolveTextCodes(korva::api::toUtf8(text));
  std::wstring style = groups.texts.count(7) ? groups.texts[7] : L"Standard";
  facts.metrics = &korva::api::metricsOfStyle(database, korva::api::drawingText(database, style));
  facts.height = groups.reals.count(40) ? groups.reals[40] : 1;
  facts.widthFactor = groups.reals.count(41) ? groups.reals[41] : 1;
  facts.oblique = (groups.reals.count(51) ? groups.reals[51] : 0) * kDegree;
  long long flags = groups.integers.count(71) ? groups.integers[71] : 0;
  facts.backward = (flags & 2) != 0;
  facts.upsideDown = (flags & 4) != 0;
  facts.horizontal = static_cast<int>(groups.integers.count(72) ? groups.integers[72] : 0);
  if (facts.horizontal == 3 || facts.horizontal == 5) {
    auto first = groups.points[10];
    auto second = groups.points.count(11) ? groups.points[11] : first;
    facts.span = std::hypot(second[0] - first[0], second[1] - first[1]);
  }
  korva::api::LocalBox box = korva::api::lineTextBox(facts);
  lowerLeft[0] = box.left;
  lowerLeft[1] = box.bottom;
  lowerLeft[2] = 0;
  upperRight[0] = box.right;
  upperRight[1] = box.top;
  upperRight[2] = 0;
  return RTNORM;
}
