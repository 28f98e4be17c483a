// The table of system variables: each with its type, default, where it lives, whether
// it may be set, and its range.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korva::db {
class Database;
}

namespace korva::api {

enum class VariableType { Short, Real, Point2, Point3, String };

enum class VariableStore {
  Header,          // saved in the drawing as $NAME
  ActiveViewport,  // saved in the drawing's *Active viewport record
  Session,         // lives while korva runs
  Profile,         // per user, kept in the profile's settings
  Computed,        // derived from the drawing or the machine
};

struct VariableDefinition {
  std::string_view name;
  VariableType type;
  VariableStore store;
  int code;                   // the value's group code (a point's X) in the drawing
  std::string_view fallback;  // default as text: "1", "0.5", "0,0,0", "Standard"
  bool readOnly;
  double minimum;             // numbers only; minimum > maximum means no range
  double maximum;
};

struct VariableValue {
  VariableType type = VariableType::Short;
  double number[3] = {0, 0, 0};  // Short in number[0], Real in number[0], points
  std::string text;              // String, UTF-8
};

// Every variable korva knows, sorted by name.
const std::vector<VariableDefinition>& variableTable();
const VariableDefinition* findVariable(std::string_view name);  // case-insensitive

// Reads a variable of the given drawing (null: no drawing open, drawing variables give
// their defaults).
std::optional<VariableValue> getVariable(const db::Database* database, std::string_view name);

enum class SetResult { Done, Unknown, ReadOnly, WrongType, OutOfRange, NoSuchName };
// Sets a variable as a user would; the host's own updates pass force to write read-only ones.
SetResult setVariable(db::Database* database, std::string_view name, const VariableValue& value,
                      bool force = false);

// Where profile variables are kept; an in-memory store until the settings store is set.
class ProfileVariableStore {
 public:
  virtual ~ProfileVariableStore() = default;
  virtual std::optional<std::string> read(std::string_view name) const = 0;
  virtual void write(std::string_view name, const std::string& text) = 0;
};
void setProfileVariableStore(ProfileVariableStore* store);

// Makes qxdbRToS and the other unit formatters read the current drawing's variables.
void installDrawingVariableSource();

}  // namespace korva::api
