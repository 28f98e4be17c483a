// Which QxDbDatabase stands for which drawing database.
#pragma once

#include <memory>
#include <string>

#include "db/database.h"
#include "qx_db_database.h"

struct QxDbDatabase::Content {
  std::unique_ptr<korva::db::Database> owned;  // a side database's own drawing
  std::uint64_t serial = 0;                    // of owned, or of a document's database
  std::string path;                            // read from or last saved to
  int lockDescriptor = -1;                     // holds the share mode's lock
  int shareMode = 0;
};

namespace korva::api {

// The database behind an object of the object layer; null when it has gone.
db::Database* drawingOf(const QxDbDatabase& database);
// Side databases announce themselves so that their objects find them.
void registerSideDatabase(std::uint64_t serial, QxDbDatabase* database);
void forgetSideDatabase(std::uint64_t serial);
// Ends the lock that a side database holds on its file.
void releaseFileLock(int descriptor);

}  // namespace korva::api
