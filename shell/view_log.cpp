#include "shell/view_log.h"

#include "platform/text_file.h"
#include "shell/trap.h"
#include "shell/write_log.h"

namespace dg {

namespace {

constexpr Place kSheet[] = {
    {.control = "Label1", .row = 0, .columnSpan = 2},
    {.control = "lblEmpty", .row = 1, .columnSpan = 2},
    {.control = "rtb1", .row = 2, .columnSpan = 2},
    {.control = "cmdPrint", .row = 3, .column = 0},
    {.control = "cmdExit", .row = 3, .column = 1},
};

}  // namespace

frmViewLog::frmViewLog()
    : Form("frmViewLog", "View Log File"),
      Label1(add<Label>("Label1")),
      lblEmpty(add<Label>("lblEmpty", "", LabelRole::kHint)),
      rtb1(add<TextArea>("rtb1")),
      cmdPrint(add<Button>("cmdPrint", "&Print")),
      cmdExit(add<Button>("cmdExit", "E&xit")) {
  // A print that is cancelled or fails ends without a message.
  cmdPrint.onClick = [this] {
    suppressErrors([this] {
      if (onPrint) onPrint(rtb1.text());
    });
  };
  cmdExit.onClick = [this] { Unload(); };
  setSheet(kSheet);
}

void frmViewLog::Form_Load() {
  Label1.setCaption(gsLogFile);
  Label1.Refresh();
  trapErrors([this] { rtb1.setText(readWholeFile(gsLogFile)); },
             [this](const RunTimeError& error) {
               lblEmpty.setCaption("The log cannot be read: " + error.description() + ".");
             });
  if (logFailure()) {
    lblEmpty.setCaption("The log cannot be written: " + logFailure()->description() + ".");
  }
  lblEmpty.setVisible(!lblEmpty.caption().empty());
}

void showLogViewer() {
  frmViewLog viewer;
  viewer.Form_Load();
  viewer.ShowModal();
}

}  // namespace dg
