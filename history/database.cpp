#include "history/database.h"

#include <sqlite3.h>

#include "history/history_error.h"

namespace dg {

namespace {

/// How long to wait for another program that is writing.
constexpr int kPatience = 5000;

std::string reason(int code, sqlite3* handle) {
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
      return "is no history of this program; it was left alone";
    case SQLITE_CORRUPT:
      return "is damaged; it was left alone";
    case SQLITE_FULL:
      return "cannot be written: the disk is full";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "is in use by another program";
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return "cannot be written: access is denied";
    case SQLITE_CANTOPEN:
      return "cannot be opened, or not be written";
    default:
      return std::string("failed: ") +
             (handle != nullptr ? sqlite3_errmsg(handle) : sqlite3_errstr(code));
  }
}

}  // namespace

std::string utf8Path(const std::filesystem::path& file) {
  const std::u8string name = file.u8string();
  return {name.begin(), name.end()};
}

void Database::Close::operator()(sqlite3* handle) const {
  sqlite3_close_v2(handle);
}

Database::Database(const std::filesystem::path& file, DatabaseAccess access)
    : name_(utf8Path(file)) {
  const int create = access == DatabaseAccess::kCreate ? SQLITE_OPEN_CREATE : 0;
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(name_.c_str(), &opened, SQLITE_OPEN_READWRITE | create, nullptr);
  handle_.reset(opened);
  if (code != SQLITE_OK) fail(code);
  sqlite3_busy_timeout(opened, kPatience);
  // A file that others could have prepared gets to run nothing.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // What is deleted is overwritten.
  run("PRAGMA foreign_keys = ON; PRAGMA secure_delete = ON");
}

void Database::run(const char* statements) {
  const int code = sqlite3_exec(handle_.get(), statements, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) fail(code);
}

std::int64_t Database::number(const char* query) {
  Statement statement(*this, query);
  return statement.step() ? statement.integer(0) : 0;
}

void Database::fail(int code) const {
  fail(reason(code, handle_.get()));
}

void Database::fail(const std::string& what) const {
  throw HistoryError("the history " + name_ + " " + what);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement::Statement(const Database& database, std::string_view text) : database_(database) {
  sqlite3_stmt* prepared = nullptr;
  const int code = sqlite3_prepare_v2(database.handle(), text.data(), static_cast<int>(text.size()),
                                      &prepared, nullptr);
  statement_.reset(prepared);
  if (code != SQLITE_OK) database.fail(code);
}

Statement& Statement::bind(std::int64_t value) {
  const int code = sqlite3_bind_int64(statement_.get(), ++bound_, value);
  if (code != SQLITE_OK) database_.fail(code);
  return *this;
}

Statement& Statement::bind(const std::string& text) {
  const int code = sqlite3_bind_text64(statement_.get(), ++bound_, text.data(), text.size(),
                                       SQLITE_TRANSIENT, SQLITE_UTF8);
  if (code != SQLITE_OK) database_.fail(code);
  return *this;
}

Statement& Statement::bind(std::optional<std::int64_t> value) {
  if (value) return bind(*value);
  ++bound_;  // what is not bound is NULL
  return *this;
}

bool Statement::step() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) database_.fail(code);
  return code == SQLITE_ROW;
}

void Statement::execute() {
  step();
  reset();
}

void Statement::reset() {
  sqlite3_reset(statement_.get());
  sqlite3_clear_bindings(statement_.get());
  bound_ = 0;
}

std::int64_t Statement::integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::string Statement::text(int column) const {
  const unsigned char* text = sqlite3_column_text(statement_.get(), column);
  const int size = sqlite3_column_bytes(statement_.get(), column);
  return text == nullptr ? std::string() : std::string(text, text + size);
}

Transaction::Transaction(Database& database, TransactionKind kind) : database_(database) {
  database_.run(kind == TransactionKind::kRead ? "BEGIN" : "BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
  if (open_) sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
  database_.run("COMMIT");
  open_ = false;
}

}  // namespace dg
