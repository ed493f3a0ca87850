#include "history/schema.h"

#include <string>

#include "history/history_error.h"

namespace dg {

namespace {

/// "DGhi": tells our files from other programs'.
constexpr std::int64_t kApplication = 0x44476869;
/// Of the tables below. A later one migrates from those before it; an older program leaves the file
/// alone.
constexpr std::int64_t kVersion = 1;

// Amounts are ten-thousandths, as in the program. The values' key begins with store and figure: a
// line over the days of one figure is one stretch of the table.
constexpr const char* kTables = R"(
  PRAGMA application_id = 1145530473;
  PRAGMA user_version = 1;
  CREATE TABLE stores (
    id INTEGER PRIMARY KEY,
    server TEXT NOT NULL COLLATE NOCASE,
    directory TEXT NOT NULL COLLATE NOCASE,
    UNIQUE (server, directory)
  );
  CREATE TABLE figures (
    id INTEGER PRIMARY KEY,
    source TEXT NOT NULL,
    name TEXT NOT NULL,
    UNIQUE (source, name)
  );
  CREATE TABLE days (
    store INTEGER NOT NULL REFERENCES stores,
    day TEXT NOT NULL,
    kept TEXT NOT NULL,
    PRIMARY KEY (store, day)
  ) WITHOUT ROWID;
  CREATE TABLE amounts (
    store INTEGER NOT NULL REFERENCES stores,
    figure INTEGER NOT NULL REFERENCES figures,
    day TEXT NOT NULL,
    amount INTEGER NOT NULL,
    count INTEGER,
    PRIMARY KEY (store, figure, day)
  ) WITHOUT ROWID;
)";
static_assert(kApplication == 1145530473 && kVersion == 1);

/// As schemaState, within a transaction of the caller's.
SchemaState stateNow(Database& database) {
  const std::int64_t application = database.number("PRAGMA application_id");
  const std::int64_t version = database.number("PRAGMA user_version");
  if (application == 0 && version == 0 &&
      database.number("SELECT count(*) FROM sqlite_schema") == 0) {
    return SchemaState::kEmpty;
  }
  if (application != kApplication || version < 1) {
    database.fail("is no history of this program; it was left alone");
  }
  if (version > kVersion) {
    database.fail("was written by a newer version of this program; it was left alone");
  }
  // All tables are there and can be read so far.
  database.number("SELECT 1 FROM stores, figures, days, amounts LIMIT 1");
  return SchemaState::kOurs;
}

}  // namespace

SchemaState schemaState(Database& database) {
  // One moment for all questions: between two of them another program may make the tables.
  Transaction transaction(database, TransactionKind::kRead);
  const SchemaState state = stateNow(database);
  transaction.commit();
  return state;
}

void createSchema(Database& database) {
  Transaction transaction(database);
  if (stateNow(database) == SchemaState::kEmpty) database.run(kTables);
  transaction.commit();
}

}  // namespace dg
