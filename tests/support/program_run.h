#pragma once

#include <string>
#include <vector>

#include "forms/form.h"
#include "platform/message_box.h"
#include "shell/surroundings.h"
#include "tests/support/temporary_folder.h"
#include "tools/sample/store_builder.h"

namespace dg {

/// The surroundings of one run of the program: an example store in memory, a folder for log and
/// settings, a clock that stands at 11/24/26 10:30:00 AM, workstation "PC7". It records what the
/// program shows and logs, and its end leaves the process as it was.
class ProgramRun : public Presenter {
 public:
  ProgramRun();
  ProgramRun(const ProgramRun&) = delete;
  ProgramRun& operator=(const ProgramRun&) = delete;

  /// A store without documents; tests add what they need before openStore.
  sample::StoreBuilder builder{SampleOptions{}};
  /// Files of the store to leave out, by the end of their path: "FILE0".
  std::vector<std::string> missing;
  /// Puts the builder's store, or another, where the program looks for it.
  void openStore() { openStore(builder.finish()); }
  void openStore(std::vector<SampleFile> files);
  /// The same, with an engine as the main window's load leaves it.
  void openEngine() { openEngine(builder.finish()); }
  void openEngine(std::vector<SampleFile> files);
  /// Takes an example store on disk instead.
  void openOnDisk(const std::string& store);

  /// The operation log's bytes on disk.
  std::string log() const { return folder.read("dgoperation.log"); }

  void show(Form& form) override { shown.push_back("show " + form.name()); }
  void hide(Form& form) override { shown.push_back("hide " + form.name()); }
  void showModal(Form& form) override;
  void unload(Form& form) override { shown.push_back("unload " + form.name()); }
  void setMousePointer(int pointer) override { pointers.push_back(pointer); }

  TemporaryFolder folder;
  std::vector<MessageBox> messages;
  std::vector<std::string> logged;  ///< lines, whether written or not
  std::vector<std::string> shown;   ///< "show frmX", "hide frmX", "modal frmX", "unload frmX"
  std::vector<int> pointers;
  std::function<void(Form&)> onModal;  ///< the user at a modal form

 private:
  Surroundings surroundings_;
};

}  // namespace dg
