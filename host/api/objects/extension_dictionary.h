// Extension dictionaries: the dictionary an object owns through its
// {ACAD_XDICTIONARY group, where other applications keep data about it.
#pragma once

#include <string_view>

#include "db/database.h"

namespace korva::api {

// The object's extension dictionary, or null when it has none (or it was erased).
db::Record* extensionDictionaryOf(db::Database& database, const db::Record& object);
// The same, made (in the objects section, owned by the object) when missing.
db::Record* ensureExtensionDictionary(db::Database& database, db::Record& object);

// The drawing's named objects dictionary: the first dictionary of the objects section.
db::Record* namedObjectsDictionary(db::Database& database);

// The live object under a key of a dictionary record (keys compared without regard to
// case), or null.
db::Record* dictionaryEntry(db::Database& database, const db::Record& dictionary,
                            std::string_view key);
// Puts a record under the key (a hard owner link, 360), replacing the entry's link.
void setDictionaryEntry(db::Record& dictionary, std::string_view key, db::Handle handle);

}  // namespace korva::api
