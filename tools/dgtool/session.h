#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/signal.h"
#include "platform/message_box.h"
#include "shell/main_window.h"
#include "shell/surroundings.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/options.h"

namespace dg {

/// One run over one store: puts the options in the place of the environment, collects what the
/// program would show in message boxes and what it logs as failures, and puts everything back at
/// its end. One at a time, since environment and engine are the process's.
class Session {
 public:
  /// Raises UsageError when the folder of --store does not exist.
  Session(const StoreOptions& options, const Console& console);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Starts the engine alone, for commands that look into files. Raises UsageError when the store
  /// cannot be reached.
  void openEngine();

  /// Finds the server without an engine: SystemInfo then names it. Raises UsageError when there is
  /// no catalog file or its share cannot be reached.
  void locateServer();

  /// Finds the store without an engine, for a command that wants it however damaged it is:
  /// SystemInfo then names server and directory. Raises UsageError when the share or the store's
  /// directory cannot be reached.
  void locateStore();

  /// Loads the main window with these views, all when empty, as the start of the desktop program
  /// does after its launch check.
  frmTRVN& load(const ViewCatalogue& catalogue, const std::vector<std::string>& views);

  /// File/Refresh of the main window that load() gave.
  void refresh();

  /// Whether there is an engine: the catalog file was found and the share answered.
  bool storeReachable() const;

  /// Whether the load, and the refresh after it, came to their end, and no view ended in "Data
  /// Error !".
  bool isWhole() const;

  /// The message boxes so far, in order.
  const std::vector<MessageBox>& messages() const { return messages_; }
  /// This run's log entries that begin with "*".
  const std::vector<std::string>& failures() const { return failures_; }

  /// Writes messages and failures to the console's error stream.
  void complain() const;

  /// Shows what is done now in place of what was shown before, when the error stream is a terminal.
  void showProgress(std::string_view text) const;
  /// Takes it away again.
  void clearProgress() const;

 private:
  const Console& console_;
  std::vector<MessageBox> messages_;
  std::vector<std::string> failures_;
  Surroundings surroundings_;
  Connection progress_;
  std::unique_ptr<frmTRVN> main_;
};

}  // namespace dg
