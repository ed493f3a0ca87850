#pragma once

#include "history/database.h"

namespace dg {

/// What a file is, before anything is read from it or written to it.
enum class SchemaState {
  kEmpty,  ///< no table in it yet
  kOurs,
};

/// Raises HistoryError for a file of another program, or of a newer version of this one.
SchemaState schemaState(Database& database);
/// Makes the tables in an empty file. Two programs may try at once.
void createSchema(Database& database);

}  // namespace dg
