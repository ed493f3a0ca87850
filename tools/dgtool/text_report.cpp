#include "tools/dgtool/text_report.h"

#include <string>

#include "forms/form_bands.h"
#include "platform/text.h"
#include "shell/splash.h"
#include "tools/dgtool/console.h"
#include "tools/dgtool/detail_recorder.h"
#include "tools/dgtool/form_text.h"
#include "tools/dgtool/left_out.h"

namespace dg {

namespace {

constexpr std::size_t kPageWidth = 78;
constexpr std::size_t kIndent = 4;

/// "== title =====": what begins a view.
void writeTitle(std::ostream& out, std::string_view title) {
  const std::string text = printableBytes(title);
  const std::size_t used = text.size() + 4;
  out << "\n== " << utf8FromBytes(text) << ' '
      << std::string(kPageWidth > used ? kPageWidth - used : 0, '=') << "\n\n";
}

/// Writes each window under the row that opens it.
class DetailWriter final : public DetailVisitor {
 public:
  explicit DetailWriter(std::ostream& out) : out_(out) {}

  void enter(const Form& window, const std::string& control, int row) override {
    ++depth_;
    const std::string blanks(depth_ * kIndent, ' ');
    out_ << '\n' << blanks << "-- " << terminalText(control);
    if (row >= 0) out_ << ", row " << row + 1;
    out_ << ": " << terminalText(titleOf(window)) << "\n\n";
    if (const auto caption = trim(window.caption());
        !caption.empty() && caption != titleOf(window)) {
      out_ << blanks << terminalText(caption) << '\n';
    }
    if (window.incomplete()) out_ << blanks << kIncomplete << '\n';
    complete_ = complete_ && !window.incomplete();
    writeFormText(out_, window, depth_ * kIndent);
  }
  void leave() override { --depth_; }

  /// Whether all windows so far were.
  bool complete() const { return complete_; }

 private:
  bool complete_ = true;
  std::ostream& out_;
  std::size_t depth_ = 0;
};

void writeHead(std::ostream& out, const frmTRVN& main) {
  out << kProgramName << ' ' << versionText() << '\n';
  const std::string store = printableBytes(main.lblStoreName.caption());
  if (!trim(store).empty()) out << utf8FromBytes(trim(store)) << '\n';
  std::string place;
  for (const std::string& panel : main.sb1.panels()) {
    if (!place.empty()) place += "   ";
    place += panel;
  }
  out << terminalText(trimRight(place)) << '\n';
  for (const std::string& line : shareWarnings(main))
    out << terminalText(line) << '\n';
}

}  // namespace

bool writeTextReport(const ReportInput& input) {
  writeHead(input.out, input.main);
  DetailWriter detailWriter(input.out);
  DetailRecorder recorder(detailWriter);
  for (View* view : input.views) {
    writeTitle(input.out, titleOf(*view));
    if (view->incomplete()) input.out << kIncomplete << "\n\n";
    writeFormText(input.out, *view);
    if (input.details) recorder.clickThrough(*view);
  }
  return areComplete(input.views) && detailWriter.complete();
}

}  // namespace dg
