#include "system_variables.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <limits>
#include <map>

#include "db/database.h"
#include "db/value_text.h"
#include "document.h"
#include "variable_source.h"

namespace korva::api {

namespace {

using Type = VariableType;
using Store = VariableStore;
constexpr double kNoLimit = std::numeric_limits<double>::infinity();
constexpr double kNone = 1, kNoneMax = 0;  // minimum > maximum: no range

// The table. Drawing variables are the header's $NAME with the given group code.
const std::vector<VariableDefinition> kVariables = [] {
  std::vector<VariableDefinition> table = {
      {"ANGBASE", Type::Real, Store::Header, 50, "0.0", false, kNone, kNoneMax},
      {"ANGDIR", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"APERTURE", Type::Short, Store::Profile, 0, "10", false, 1, 50},
      {"AREA", Type::Real, Store::Session, 0, "0.0", true, kNone, kNoneMax},
      {"ATTDIA", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"ATTMODE", Type::Short, Store::Header, 70, "1", false, 0, 2},
      {"ATTREQ", Type::Short, Store::Header, 70, "1", false, 0, 1},
      {"AUNITS", Type::Short, Store::Header, 70, "0", false, 0, 4},
      {"AUPREC", Type::Short, Store::Header, 70, "0", false, 0, 8},
      {"BLIPMODE", Type::Short, Store::Session, 0, "0", false, 0, 1},
      {"CDATE", Type::Real, Store::Computed, 0, "", true, kNone, kNoneMax},
      {"CECOLOR", Type::String, Store::Computed, 62, "BYLAYER", false, kNone, kNoneMax},
      {"CELTSCALE", Type::Real, Store::Header, 40, "1.0", false, 0, kNoLimit},
      {"CELTYPE", Type::String, Store::Header, 6, "ByLayer", false, kNone, kNoneMax},
      {"CHAMFERA", Type::Real, Store::Header, 40, "0.0", false, 0, kNoLimit},
      {"CHAMFERB", Type::Real, Store::Header, 40, "0.0", false, 0, kNoLimit},
      {"CLAYER", Type::String, Store::Header, 8, "0", false, kNone, kNoneMax},
      {"CMDECHO", Type::Short, Store::Session, 0, "1", false, 0, 1},
      {"CPROFILE", Type::String, Store::Profile, 0, "<<Unnamed Profile>>", true, kNone, kNoneMax},
      {"CVPORT", Type::Short, Store::Session, 0, "2", false, 1, 32767},
      {"DIMASSOC", Type::Short, Store::Header, 280, "2", false, 0, 2},
      {"DIMSTYLE", Type::String, Store::Header, 2, "Standard", true, kNone, kNoneMax},
      {"DISTANCE", Type::Real, Store::Session, 0, "0.0", true, kNone, kNoneMax},
      {"DRAGMODE", Type::Short, Store::Header, 70, "2", false, 0, 2},
      {"DWGCODEPAGE", Type::String, Store::Header, 3, "ANSI_1252", true, kNone, kNoneMax},
      {"DWGNAME", Type::String, Store::Computed, 0, "Drawing1.dxf", true, kNone, kNoneMax},
      {"DWGPREFIX", Type::String, Store::Computed, 0, "", true, kNone, kNoneMax},
      {"DWGTITLED", Type::Short, Store::Computed, 0, "0", true, kNone, kNoneMax},
      {"EDGEMODE", Type::Short, Store::Profile, 0, "0", false, 0, 1},
      {"ERRNO", Type::Short, Store::Session, 0, "0", false, kNone, kNoneMax},
      {"EXPERT", Type::Short, Store::Session, 0, "0", false, 0, 5},
      {"FILEDIA", Type::Short, Store::Profile, 0, "1", false, 0, 1},
      {"FILLETRAD", Type::Real, Store::Header, 40, "0.0", false, 0, kNoLimit},
      {"FULLOPEN", Type::Short, Store::Computed, 0, "1", true, kNone, kNoneMax},
      {"GRIDDISPLAY", Type::Short, Store::ActiveViewport, 60, "2", false, 0, 15},
      {"GRIDMAJOR", Type::Short, Store::ActiveViewport, 61, "5", false, 1, 100},
      {"GRIDMODE", Type::Short, Store::ActiveViewport, 76, "0", false, 0, 1},
      {"GRIDUNIT", Type::Point2, Store::ActiveViewport, 15, "10,10", false, 0, kNoLimit},
      {"INETLOCATION", Type::String, Store::Profile, 0, "", false, kNone, kNoneMax},
      {"INSBASE", Type::Point3, Store::Header, 10, "0,0,0", false, kNone, kNoneMax},
      {"INSNAME", Type::String, Store::Session, 0, "", false, kNone, kNoneMax},
      {"INSUNITS", Type::Short, Store::Header, 70, "0", false, 0, 24},
      {"LASTPOINT", Type::Point3, Store::Session, 0, "0,0,0", false, kNone, kNoneMax},
      {"LAYLOCKFADECTL", Type::Short, Store::Profile, 0, "50", false, -90, 90},
      {"LTSCALE", Type::Real, Store::Header, 40, "1.0", false, 1e-300, kNoLimit},
      {"LUNITS", Type::Short, Store::Header, 70, "2", false, 1, 5},
      {"LUPREC", Type::Short, Store::Header, 70, "4", false, 0, 8},
      {"MEASUREMENT", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"MIRRTEXT", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"OBJECTISOLATIONMODE", Type::Short, Store::Profile, 0, "0", false, 0, 1},
      {"OFFSETDIST", Type::Real, Store::Session, 0, "-1.0", false, kNone, kNoneMax},
      {"OFFSETGAPTYPE", Type::Short, Store::Profile, 0, "0", false, 0, 2},
      {"ORTHOMODE", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"OSMODE", Type::Short, Store::Profile, 0, "4133", false, 0, 32767},
      {"PDMODE", Type::Short, Store::Header, 70, "0", false, kNone, kNoneMax},
      {"PDSIZE", Type::Real, Store::Header, 40, "0.0", false, kNone, kNoneMax},
      {"PEDITACCEPT", Type::Short, Store::Profile, 0, "0", false, 0, 1},
      {"PERIMETER", Type::Real, Store::Session, 0, "0.0", true, kNone, kNoneMax},
      {"PICKBOX", Type::Short, Store::Profile, 0, "3", false, 0, 50},
      {"PICKFIRST", Type::Short, Store::Profile, 0, "1", false, 0, 1},
      {"PICKSTYLE", Type::Short, Store::Header, 70, "1", false, 0, 3},
      {"PLINEWID", Type::Real, Store::Header, 40, "0.0", false, 0, kNoLimit},
      {"PROJMODE", Type::Short, Store::Profile, 0, "1", false, 0, 2},
      {"REGENMODE", Type::Short, Store::Header, 70, "1", false, 0, 1},
      {"SAVENAME", Type::String, Store::Session, 0, "", true, kNone, kNoneMax},
      {"SCREENSIZE", Type::Point2, Store::Session, 0, "1600,900", true, kNone, kNoneMax},
      {"SNAPANG", Type::Real, Store::ActiveViewport, 50, "0.0", false, kNone, kNoneMax},
      {"SNAPMODE", Type::Short, Store::ActiveViewport, 75, "0", false, 0, 1},
      {"SNAPSTYL", Type::Short, Store::ActiveViewport, 77, "0", false, 0, 1},
      {"SNAPTYPE", Type::Short, Store::Profile, 0, "0", false, 0, 1},
      {"SNAPUNIT", Type::Point2, Store::ActiveViewport, 14, "10,10", false, 1e-300, kNoLimit},
      {"TEMPPREFIX", Type::String, Store::Computed, 0, "/tmp/", true, kNone, kNoneMax},
      {"TEXTSIZE", Type::Real, Store::Header, 40, "2.5", false, 1e-300, kNoLimit},
      {"TEXTSTYLE", Type::String, Store::Header, 7, "Standard", false, kNone, kNoneMax},
      {"TILEMODE", Type::Short, Store::Header, 70, "1", false, 0, 1},
      {"TRIMMODE", Type::Short, Store::Profile, 0, "1", false, 0, 1},
      {"UCSFOLLOW", Type::Short, Store::Session, 0, "0", false, 0, 1},
      {"UCSICON", Type::Short, Store::ActiveViewport, 74, "3", false, 0, 3},
      {"UCSNAME", Type::String, Store::Header, 2, "", true, kNone, kNoneMax},
      {"UCSORG", Type::Point3, Store::Header, 10, "0,0,0", true, kNone, kNoneMax},
      {"UCSXDIR", Type::Point3, Store::Header, 10, "1,0,0", true, kNone, kNoneMax},
      {"UCSYDIR", Type::Point3, Store::Header, 10, "0,1,0", true, kNone, kNoneMax},
      {"UNDOCTL", Type::Short, Store::Session, 0, "21", true, kNone, kNoneMax},
      {"UNITMODE", Type::Short, Store::Header, 70, "0", false, 0, 1},
      {"VIEWCTR", Type::Point3, Store::ActiveViewport, 12, "0,0,0", true, kNone, kNoneMax},
      {"VIEWDIR", Type::Point3, Store::ActiveViewport, 16, "0,0,1", true, kNone, kNoneMax},
      {"VIEWSIZE", Type::Real, Store::ActiveViewport, 40, "297.0", true, kNone, kNoneMax},
  };
  // Dimension variables are all drawing variables.
  struct Dimension {
    std::string_view name;
    Type type;
    int code;
    std::string_view fallback;
    double minimum, maximum;
  };
  static const Dimension kDimensions[] = {
      {"DIMADEC", Type::Short, 70, "0", 0, 8},
      {"DIMALT", Type::Short, 70, "0", 0, 1},
      {"DIMALTD", Type::Short, 70, "2", 0, 8},
      {"DIMALTF", Type::Real, 40, "25.4", kNone, kNoneMax},
      {"DIMALTRND", Type::Real, 40, "0.0", 0, kNoLimit},
      {"DIMALTTD", Type::Short, 70, "2", 0, 8},
      {"DIMALTTZ", Type::Short, 70, "0", 0, 15},
      {"DIMALTU", Type::Short, 70, "2", 1, 8},
      {"DIMALTZ", Type::Short, 70, "0", 0, 15},
      {"DIMAPOST", Type::String, 1, "", kNone, kNoneMax},
      {"DIMASZ", Type::Real, 40, "0.18", 0, kNoLimit},
      {"DIMATFIT", Type::Short, 70, "3", 0, 3},
      {"DIMAUNIT", Type::Short, 70, "0", 0, 4},
      {"DIMAZIN", Type::Short, 70, "0", 0, 3},
      {"DIMBLK", Type::String, 1, "", kNone, kNoneMax},
      {"DIMBLK1", Type::String, 1, "", kNone, kNoneMax},
      {"DIMBLK2", Type::String, 1, "", kNone, kNoneMax},
      {"DIMCEN", Type::Real, 40, "0.09", kNone, kNoneMax},
      {"DIMCLRD", Type::Short, 70, "0", 0, 256},
      {"DIMCLRE", Type::Short, 70, "0", 0, 256},
      {"DIMCLRT", Type::Short, 70, "0", 0, 256},
      {"DIMDEC", Type::Short, 70, "4", 0, 8},
      {"DIMDLE", Type::Real, 40, "0.0", 0, kNoLimit},
      {"DIMDLI", Type::Real, 40, "0.38", 0, kNoLimit},
      {"DIMDSEP", Type::Short, 70, "46", 0, 255},
      {"DIMEXE", Type::Real, 40, "0.18", 0, kNoLimit},
      {"DIMEXO", Type::Real, 40, "0.0625", 0, kNoLimit},
      {"DIMFIT", Type::Short, 70, "3", 0, 5},
      {"DIMFRAC", Type::Short, 70, "0", 0, 2},
      {"DIMGAP", Type::Real, 40, "0.09", kNone, kNoneMax},
      {"DIMJUST", Type::Short, 70, "0", 0, 4},
      {"DIMKFRAC", Type::Short, 70, "0", 0, 2},
      {"DIMLDRBLK", Type::String, 1, "", kNone, kNoneMax},
      {"DIMLFAC", Type::Real, 40, "1.0", kNone, kNoneMax},
      {"DIMLIM", Type::Short, 70, "0", 0, 1},
      {"DIMLUNIT", Type::Short, 70, "2", 1, 6},
      {"DIMLWD", Type::Short, 70, "-2", -3, 211},
      {"DIMLWE", Type::Short, 70, "-2", -3, 211},
      {"DIMPOST", Type::String, 1, "", kNone, kNoneMax},
      {"DIMRND", Type::Real, 40, "0.0", 0, kNoLimit},
      {"DIMSAH", Type::Short, 70, "0", 0, 1},
      {"DIMSCALE", Type::Real, 40, "1.0", 0, kNoLimit},
      {"DIMSD1", Type::Short, 70, "0", 0, 1},
      {"DIMSD2", Type::Short, 70, "0", 0, 1},
      {"DIMSE1", Type::Short, 70, "0", 0, 1},
      {"DIMSE2", Type::Short, 70, "0", 0, 1},
      {"DIMSOXD", Type::Short, 70, "0", 0, 1},
      {"DIMTAD", Type::Short, 70, "0", 0, 4},
      {"DIMTDEC", Type::Short, 70, "4", 0, 8},
      {"DIMTFAC", Type::Real, 40, "1.0", 0, kNoLimit},
      {"DIMTIH", Type::Short, 70, "1", 0, 1},
      {"DIMTIX", Type::Short, 70, "0", 0, 1},
      {"DIMTM", Type::Real, 40, "0.0", kNone, kNoneMax},
      {"DIMTMOVE", Type::Short, 70, "0", 0, 2},
      {"DIMTOFL", Type::Short, 70, "0", 0, 1},
      {"DIMTOH", Type::Short, 70, "1", 0, 1},
      {"DIMTOL", Type::Short, 70, "0", 0, 1},
      {"DIMTOLJ", Type::Short, 70, "1", 0, 2},
      {"DIMTP", Type::Real, 40, "0.0", kNone, kNoneMax},
      {"DIMTSZ", Type::Real, 40, "0.0", 0, kNoLimit},
      {"DIMTVP", Type::Real, 40, "0.0", kNone, kNoneMax},
      {"DIMTXSTY", Type::String, 7, "Standard", kNone, kNoneMax},
      {"DIMTXT", Type::Real, 40, "0.18", 0, kNoLimit},
      {"DIMTZIN", Type::Short, 70, "0", 0, 15},
      {"DIMUNIT", Type::Short, 70, "2", 1, 8},
      {"DIMUPT", Type::Short, 70, "0", 0, 1},
      {"DIMZIN", Type::Short, 70, "0", 0, 15},
  };
  for (const Dimension& each : kDimensions) {
    table.push_back({each.name, each.type, Store::Header, each.code, each.fallback, false,
                     each.minimum, each.maximum});
  }
  std::sort(
      table.begin(), table.end(),
      [](const VariableDefinition& a, const VariableDefinition& b) { return a.name < b.name; });
  return table;
}();

std::string upper(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return result;
}

// A value from its text form ("1", "0.5", "1,2,3", "Standard").
VariableValue parseValue(Type type, std::string_view text) {
  VariableValue value;
  value.type = type;
  if (type == Type::String) {
    value.text = std::string(text);
    return value;
  }
  for (int axis = 0; axis < 3 && !text.empty(); ++axis) {
    size_t comma = text.find(',');
    value.number[axis] = db::parseReal(text.substr(0, comma)).value_or(0);
    text = comma == std::string_view::npos ? std::string_view() : text.substr(comma + 1);
  }
  return value;
}

std::string formatValue(const VariableValue& value) {
  switch (value.type) {
    case Type::String:
      return value.text;
    case Type::Short:
      return std::to_string(static_cast<long long>(value.number[0]));
    case Type::Real:
      return db::formatReal(value.number[0]);
    case Type::Point2:
      return db::formatReal(value.number[0]) + "," + db::formatReal(value.number[1]);
    case Type::Point3:
      return db::formatReal(value.number[0]) + "," + db::formatReal(value.number[1]) + "," +
             db::formatReal(value.number[2]);
  }
  return {};
}

int axisCount(Type type) {
  return type == Type::Point3 ? 3 : type == Type::Point2 ? 2 : 1;
}

// Values from drawing groups: the code of the value, or of X, Y and Z of a point.
std::optional<VariableValue> fromGroups(const VariableDefinition& definition,
                                        const std::vector<db::Group>& groups) {
  VariableValue value;
  value.type = definition.type;
  bool found = false;
  for (const db::Group& group : groups) {
    if (definition.type == Type::String) {
      if (group.code == definition.code) {
        value.text = std::string(group.value);
        return value;
      }
      continue;
    }
    for (int axis = 0; axis < axisCount(definition.type); ++axis) {
      if (group.code == definition.code + 10 * axis) {
        value.number[axis] = db::parseReal(group.value).value_or(0);
        found = found || axis == 0;
      }
    }
  }
  if (!found) return std::nullopt;
  return value;
}

std::vector<db::OwnedGroup> toGroups(const VariableDefinition& definition,
                                     const VariableValue& value) {
  if (definition.type == Type::String) return {{definition.code, value.text}};
  if (definition.type == Type::Short) {
    return {{definition.code, std::to_string(static_cast<long long>(value.number[0]))}};
  }
  std::vector<db::OwnedGroup> groups;
  for (int axis = 0; axis < axisCount(definition.type); ++axis) {
    groups.push_back({definition.code + 10 * axis, db::formatReal(value.number[axis])});
  }
  return groups;
}

// The header's variable groups for one name.
std::vector<db::Group> headerGroups(const db::Database& database, std::string_view name) {
  return database.headerVariable("$" + std::string(name));
}

db::Record* activeViewport(db::Database& database) {
  return database.tableEntry("VPORT", "*Active");
}

std::map<std::string, VariableValue>& sessionValues() {
  static std::map<std::string, VariableValue> values;
  return values;
}

class MemoryProfileStore final : public ProfileVariableStore {
 public:
  std::optional<std::string> read(std::string_view name) const override {
    auto found = values_.find(std::string(name));
    if (found == values_.end()) return std::nullopt;
    return found->second;
  }
  void write(std::string_view name, const std::string& text) override {
    values_[std::string(name)] = text;
  }

 private:
  std::map<std::string, std::string> values_;
};

MemoryProfileStore& memoryProfileStore() {
  static MemoryProfileStore memory;
  return memory;
}

ProfileVariableStore*& profileStore() {
  static ProfileVariableStore* store = &memoryProfileStore();
  return store;
}

std::optional<VariableValue> computed(const VariableDefinition& definition,
                                      const db::Database* database) {
  VariableValue value;
  value.type = definition.type;
  std::string_view name = definition.name;
  Document* document = DocumentList::instance().current();
  bool ownsDatabase = document && &document->database() == database;
  if (name == "DWGNAME" || name == "DWGPREFIX" || name == "DWGTITLED") {
    std::filesystem::path path = ownsDatabase ? document->path() : std::string();
    if (name == "DWGTITLED") {
      value.number[0] = path.empty() ? 0 : 1;
    } else if (name == "DWGNAME") {
      value.text = path.empty() ? std::string(definition.fallback) : path.filename().string();
    } else {
      std::string folder = path.empty() ? std::filesystem::current_path().string()
                                        : std::filesystem::absolute(path).parent_path().string();
      value.text = folder + "/";
    }
    return value;
  }
  if (name == "TEMPPREFIX") {
    const char* folder = std::getenv("TMPDIR");
    value.text = (folder && *folder) ? folder : "/tmp";
    if (value.text.back() != '/') value.text += '/';
    return value;
  }
  if (name == "CDATE") {
    // YYYYMMDD.HHMMSSmmm, as a real number.
    auto now = std::chrono::system_clock::now();
    std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    long long millis =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() %
        1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    double date = (local.tm_year + 1900) * 10000.0 + (local.tm_mon + 1) * 100.0 + local.tm_mday;
    double time = local.tm_hour * 1e-2 + local.tm_min * 1e-4 + local.tm_sec * 1e-6 + millis * 1e-9;
    value.number[0] = date + time;
    return value;
  }
  if (name == "CECOLOR") {
    long long color = 256;
    if (database) {
      std::vector<db::Group> groups = headerGroups(*database, "CECOLOR");
      if (!groups.empty()) color = db::parseInteger(groups.front().value).value_or(256);
    }
    value.text = color == 256 ? "BYLAYER" : color == 0 ? "BYBLOCK" : std::to_string(color);
    return value;
  }
  if (name == "FULLOPEN") {
    value.number[0] = 1;
    return value;
  }
  return std::nullopt;
}

bool nameExists(const db::Database* database, std::string_view table, std::string_view name) {
  if (!database) return false;
  return const_cast<db::Database*>(database)->tableEntry(table, name) != nullptr;
}

}  // namespace

const std::vector<VariableDefinition>& variableTable() {
  return kVariables;
}

const VariableDefinition* findVariable(std::string_view name) {
  std::string key = upper(name);
  auto found = std::lower_bound(
      kVariables.begin(), kVariables.end(), key,
      [](const VariableDefinition& a, const std::string& b) { return a.name < b; });
  if (found == kVariables.end() || found->name != key) return nullptr;
  return &*found;
}

std::optional<VariableValue> getVariable(const db::Database* database, std::string_view name) {
  const VariableDefinition* definition = findVariable(name);
  if (!definition) return std::nullopt;
  std::optional<VariableValue> value;
  switch (definition->store) {
    case Store::Header:
      if (database) value = fromGroups(*definition, headerGroups(*database, definition->name));
      break;
    case Store::ActiveViewport:
      if (database) {
        if (db::Record* viewport = activeViewport(const_cast<db::Database&>(*database))) {
          value = fromGroups(*definition, viewport->groupList());
        }
      }
      break;
    case Store::Session: {
      auto found = sessionValues().find(std::string(definition->name));
      if (found != sessionValues().end()) value = found->second;
      break;
    }
    case Store::Profile:
      if (std::optional<std::string> text = profileStore()->read(definition->name)) {
        value = parseValue(definition->type, *text);
      }
      break;
    case Store::Computed:
      value = computed(*definition, database);
      break;
  }
  if (!value) value = parseValue(definition->type, definition->fallback);
  return value;
}

SetResult setVariable(db::Database* database, std::string_view name, const VariableValue& given,
                      bool force) {
  const VariableDefinition* definition = findVariable(name);
  if (!definition) return SetResult::Unknown;
  if (definition->readOnly && !force) return SetResult::ReadOnly;
  VariableValue value = given;
  // Integers are accepted for reals; reals for integers only when whole.
  bool numeric = value.type == Type::Short || value.type == Type::Real;
  if (definition->type == Type::Real && numeric) {
    value.type = Type::Real;
  } else if (definition->type == Type::Short && value.type == Type::Real &&
             value.number[0] == std::floor(value.number[0])) {
    value.type = Type::Short;
  } else if (definition->type == Type::Point2 && value.type == Type::Point3) {
    value.type = Type::Point2;
  } else if (definition->type == Type::Point3 && value.type == Type::Point2) {
    value.type = Type::Point3;
    value.number[2] = 0;
  }
  if (value.type != definition->type) return SetResult::WrongType;
  if (value.type == Type::Short && (value.number[0] < -32768 || value.number[0] > 32767)) {
    return SetResult::OutOfRange;
  }
  if (definition->minimum <= definition->maximum && value.type != Type::String) {
    for (int axis = 0; axis < axisCount(value.type); ++axis) {
      if (value.number[axis] < definition->minimum || value.number[axis] > definition->maximum) {
        return SetResult::OutOfRange;
      }
    }
  }
  std::string_view key = definition->name;
  if (key == "CLAYER" && !nameExists(database, "LAYER", value.text)) return SetResult::NoSuchName;
  if (key == "TEXTSTYLE" && !nameExists(database, "STYLE", value.text))
    return SetResult::NoSuchName;
  if (key == "CELTYPE" && !nameExists(database, "LTYPE", value.text)) return SetResult::NoSuchName;
  if (key == "DIMTXSTY" && !nameExists(database, "STYLE", value.text)) return SetResult::NoSuchName;
  switch (definition->store) {
    case Store::Header:
      if (!database) return SetResult::Unknown;
      database->setHeaderVariable("$" + std::string(key), toGroups(*definition, value));
      break;
    case Store::ActiveViewport: {
      db::Record* viewport = database ? activeViewport(*database) : nullptr;
      if (!viewport) return SetResult::Unknown;
      std::vector<db::OwnedGroup> groups = viewport->ownedGroups();
      std::vector<db::OwnedGroup> replacement = toGroups(*definition, value);
      for (const db::OwnedGroup& each : replacement) {
        auto found = std::find_if(groups.begin(), groups.end(), [&](const db::OwnedGroup& group) {
          return group.code == each.code;
        });
        if (found != groups.end()) {
          found->value = each.value;
        } else {
          groups.push_back(each);
        }
      }
      viewport->assign(std::move(groups));
      database->recordChanged();
      break;
    }
    case Store::Session:
      sessionValues()[std::string(key)] = value;
      break;
    case Store::Profile:
      profileStore()->write(key, formatValue(value));
      break;
    case Store::Computed:
      if (key == "CECOLOR" && database) {
        std::string text = upper(value.text);
        long long color = text == "BYLAYER"   ? 256
                          : text == "BYBLOCK" ? 0
                                              : db::parseInteger(text).value_or(-1);
        if (color < 0 || color > 256) return SetResult::OutOfRange;
        database->setHeaderVariable("$CECOLOR", {{62, std::to_string(color)}});
        break;
      }
      return SetResult::ReadOnly;
  }
  return SetResult::Done;
}

void setProfileVariableStore(ProfileVariableStore* store) {
  profileStore() = store ? store : &memoryProfileStore();
}

namespace {
class DrawingVariables final : public VariableSource {
 public:
  int getInt(std::string_view name) const override {
    std::optional<VariableValue> value = getVariable(currentDatabase(), name);
    if (!value || value->type == Type::String) return defaultVariableSource().getInt(name);
    return static_cast<int>(value->number[0]);
  }
};
}  // namespace

void installDrawingVariableSource() {
  static const DrawingVariables source;
  setVariableSource(&source);
}

}  // namespace korva::api
