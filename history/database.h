#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace dg {

enum class DatabaseAccess { kExisting, kCreate };

/// A path as UTF-8, for messages.
std::string utf8Path(const std::filesystem::path& file);

/// An open SQLite file. Everything raises HistoryError.
class Database {
 public:
  Database(const std::filesystem::path& file, DatabaseAccess access);

  /// Statements without answers and parameters.
  void run(const char* statements);
  /// The one number that a query without parameters gives.
  std::int64_t number(const char* query);

  sqlite3* handle() const { return handle_.get(); }
  /// Raises with the file's name and the reason behind SQLite's result code.
  [[noreturn]] void fail(int code) const;
  /// Raises with the file's name and what is said of it.
  [[noreturn]] void fail(const std::string& what) const;

 private:
  struct Close {
    void operator()(sqlite3* handle) const;
  };
  std::string name_;
  std::unique_ptr<sqlite3, Close> handle_;
};

/// A prepared statement. Parameters are bound in their order, by calls of bind after reset.
class Statement {
 public:
  Statement(const Database& database, std::string_view text);

  Statement& bind(std::int64_t value);
  Statement& bind(const std::string& text);
  Statement& bind(std::optional<std::int64_t> value);
  /// Whether there is (another) row.
  bool step();
  /// Runs a statement that gives no rows, and makes it ready for other parameters.
  void execute();
  void reset();

  std::int64_t integer(int column) const;
  bool isNull(int column) const;
  std::string text(int column) const;

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  const Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  int bound_ = 0;
};

/// Whether a transaction may write, which waits for other programs first.
enum class TransactionKind { kRead, kWrite };

/// What stands in it sees one state of the file, and is undone unless committed.
class Transaction {
 public:
  explicit Transaction(Database& database, TransactionKind kind = TransactionKind::kWrite);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void commit();

 private:
  Database& database_;
  bool open_ = true;
};

}  // namespace dg
