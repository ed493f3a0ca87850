#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "forms/form.h"
#include "platform/environment.h"
#include "platform/file.h"
#include "platform/message_box.h"
#include "platform/values/date.h"
#include "records/failure_log.h"
#include "shell/write_log.h"

namespace dg {

/// The owner of what is one per process: environment, clock, file system, message boxes, log,
/// presenter, and the state of engine and shell. Whoever runs the program makes one: the desktop,
/// the command-line tool, each test, the fuzz targets, the picture tour. It starts from the state
/// of a fresh process, its setters put others in the system's place, and its end puts all back as
/// it was. They nest: an inner one keeps what the outer one stands in for until it is told
/// otherwise.
class Surroundings {
 public:
  Surroundings();
  ~Surroundings();
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;

  /// The folder of an example store, with share/, temp/ and config/ in it.
  void useStore(const std::string& folder);
  /// The user's temporary directory, which then has the log too.
  void useTemp(const std::string& folder);
  /// Null: the operating system's.
  void useFileSystem(std::unique_ptr<FileSystem> files);
  /// A moment at which the clock stands; none: the system's clock.
  void useClock(std::optional<Date> moment);
  /// Who shows the forms; it outlives this object. Null: nobody.
  void usePresenter(Presenter* presenter);
  void useMessageBoxes(MessageBoxHandler handler);
  /// Called with each line that is logged, whether written or not.
  void watchLog(LogObserver observer);
  /// Whether the log is written.
  void enableLog(bool enabled);

 private:
  Environment environment_;
  std::optional<Date> clock_;
  std::optional<std::unique_ptr<FileSystem>> files_;  ///< once another one is in its place
  Presenter& presenter_;
  std::optional<MessageBoxHandler> messageBoxes_;
  LogObserver logObserver_;
  bool logEnabled_;
  std::string logFile_;
  FailureLog failureLog_;
  std::int16_t sortDirection_;
  bool warrantySegments_;
};

}  // namespace dg
