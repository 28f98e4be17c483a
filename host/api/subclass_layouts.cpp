#include "subclass_layouts.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace korva::api {
namespace {

// One line a kind: "marker:codes marker:codes ..."; "*" after a marker takes every
// code that no other part names; "!codes" lists what a new record must have.
struct LayoutText {
  std::string_view key;
  std::string_view text;
};

constexpr const char* kTextCodes = "39,10,40,1,50,41,51,7,71,72,11,210";

constexpr LayoutText kLayouts[] = {
    {"LINE", "AcDbLine:* !10,11"},
    {"POINT", "AcDbPoint:* !10"},
    {"CIRCLE", "AcDbCircle:* !10,40"},
    {"ARC", "AcDbCircle:39,10,40,210 AcDbArc:* !10,40,50,51"},
    {"ELLIPSE", "AcDbEllipse:* !10,11,40"},
    {"TEXT", "AcDbText:TEXT AcDbText:73 !10,40,1"},
    {"ATTDEF", "AcDbText:TEXT AcDbAttributeDefinition:* !10,40,1,2"},
    {"ATTRIB", "AcDbText:TEXT AcDbAttribute:* !10,40,1,2"},
    {"INSERT", "AcDbBlockReference:* !2,10"},
    {"POLYLINE/2D", "AcDb2dPolyline:*"},
    {"POLYLINE/3D", "AcDb3dPolyline:*"},
    {"POLYLINE/MESH", "AcDbPolygonMesh:*"},
    {"POLYLINE/FACE", "AcDbPolyFaceMesh:*"},
    {"VERTEX/2D", "AcDbVertex: AcDb2dVertex:* !10"},
    {"VERTEX/3D", "AcDbVertex: AcDb3dPolylineVertex:* !10"},
    {"VERTEX/MESH", "AcDbVertex: AcDbPolygonMeshVertex:* !10"},
    {"VERTEX/FACEVERTEX", "AcDbVertex: AcDbPolyFaceMeshVertex:* !10"},
    {"VERTEX/FACE", "AcDbFaceRecord:*"},
    {"SEQEND", ""},
    {"LWPOLYLINE", "AcDbPolyline:* !10"},
    {"SOLID", "AcDbTrace:* !10,11,12"},
    {"TRACE", "AcDbTrace:* !10,11,12"},
    {"3DFACE", "AcDbFace:* !10,11,12"},
    {"SPLINE", "AcDbSpline:*"},
    {"MTEXT", "AcDbMText:* !10"},
    {"RAY", "AcDbRay:* !10,11"},
    {"XLINE", "AcDbXline:* !10,11"},
    {"BLOCK", "AcDbBlockBegin:* !2"},
    {"ENDBLK", "AcDbBlockEnd:"},
    {"LAYER", "AcDbLayerTableRecord:* !2"},
    {"LTYPE", "AcDbLinetypeTableRecord:* !2"},
    {"STYLE", "AcDbTextStyleTableRecord:* !2"},
    {"DIMSTYLE", "AcDbDimStyleTableRecord:* !2"},
    {"APPID", "AcDbRegAppTableRecord:* !2"},
    {"UCS", "AcDbUCSTableRecord:* !2"},
    {"VIEW", "AcDbViewTableRecord:* !2"},
    {"VPORT", "AcDbViewportTableRecord:* !2"},
};

constexpr std::string_view kTableKinds[] = {"LAYER", "LTYPE", "STYLE", "DIMSTYLE",
                                            "APPID", "UCS",   "VIEW",  "VPORT"};

std::vector<int> parseCodes(std::string_view text) {
  if (text == "TEXT") text = kTextCodes;
  std::vector<int> codes;
  while (!text.empty()) {
    size_t comma = text.find(',');
    std::string_view item = text.substr(0, comma);
    int code = 0;
    std::from_chars(item.data(), item.data() + item.size(), code);
    codes.push_back(code);
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  }
  return codes;
}

SubclassLayout parseLayout(std::string_view key, std::string_view text) {
  SubclassLayout layout;
  std::string_view kind = key.substr(0, key.find('/'));
  layout.isEntity =
      std::find(std::begin(kTableKinds), std::end(kTableKinds), kind) == std::end(kTableKinds);
  while (!text.empty()) {
    size_t blank = text.find(' ');
    std::string_view word = text.substr(0, blank);
    text = blank == std::string_view::npos ? std::string_view() : text.substr(blank + 1);
    if (word.starts_with('!')) {
      layout.required = parseCodes(word.substr(1));
      continue;
    }
    size_t colon = word.find(':');
    SubclassPart part;
    part.marker = std::string(word.substr(0, colon));
    std::string_view codes = word.substr(colon + 1);
    part.takesRest = codes == "*";
    if (!part.takesRest) part.codes = parseCodes(codes);
    layout.parts.push_back(std::move(part));
  }
  return layout;
}

const std::map<std::string, SubclassLayout, std::less<>>& layouts() {
  static const auto table = [] {
    std::map<std::string, SubclassLayout, std::less<>> parsed;
    for (const LayoutText& each : kLayouts) {
      parsed.emplace(std::string(each.key), parseLayout(each.key, each.text));
    }
    return parsed;
  }();
  return table;
}

std::string_view polylineForm(int flags) {
  if (flags & 8) return "3D";
  if (flags & 16) return "MESH";
  if (flags & 64) return "FACE";
  return "2D";
}

std::string_view vertexForm(int flags) {
  if ((flags & 192) == 128) return "FACE";
  if ((flags & 192) == 192) return "FACEVERTEX";
  if (flags & 64) return "MESH";
  if (flags & 32) return "3D";
  return "2D";
}

}  // namespace

const SubclassLayout* subclassLayoutOf(std::string_view type, int flags) {
  std::string key(type);
  if (type == "POLYLINE") key += "/" + std::string(polylineForm(flags));
  if (type == "VERTEX") key += "/" + std::string(vertexForm(flags));
  auto found = layouts().find(key);
  return found == layouts().end() ? nullptr : &found->second;
}

bool isEntityCommonCode(int code) {
  switch (code) {
    case 6:
    case 8:
    case 48:
    case 60:
    case 62:
    case 67:
    case 284:
    case 347:
    case 348:
    case 370:
    case 390:
    case 410:
    case 420:
    case 430:
    case 440:
      return true;
    default:
      return false;
  }
}

int partOfCode(const SubclassLayout& layout, int code) {
  if (layout.isEntity && isEntityCommonCode(code)) return -1;
  int rest = -1;
  for (size_t i = 0; i < layout.parts.size(); ++i) {
    const SubclassPart& part = layout.parts[i];
    if (std::find(part.codes.begin(), part.codes.end(), code) != part.codes.end()) {
      return static_cast<int>(i);
    }
    if (part.takesRest) rest = static_cast<int>(i);
  }
  if (rest < 0 && !layout.parts.empty()) rest = static_cast<int>(layout.parts.size()) - 1;
  return rest;
}

}  // namespace korva::api
