#include "tools/dgtool/json_report.h"

#include <string>
#include <utility>

#include "shell/recap_figures.h"
#include "shell/splash.h"
#include "tools/dgtool/detail_recorder.h"
#include "tools/dgtool/left_out.h"
#include "tools/dgtool/window_json.h"

namespace dg {

namespace {

/// Builds the "details" of a window while its windows open and close.
class DetailCollector final : public DetailVisitor {
 public:
  /// What was gathered since the last call.
  Json take() { return std::exchange(levels_.front(), Json::array()); }

  /// Whether all windows so far were.
  bool complete() const { return complete_; }

  void enter(const Form& window, const std::string& control, int row) override {
    complete_ = complete_ && !window.incomplete();
    entries_.push_back(
        {{"control", jsonText(control)}, {"row", row}, {"window", windowJson(window)}});
    levels_.push_back(Json::array());
  }
  void leave() override {
    Json entry = std::move(entries_.back());
    entries_.pop_back();
    entry["window"]["details"] = std::move(levels_.back());
    levels_.pop_back();
    levels_.back().push_back(std::move(entry));
  }

 private:
  bool complete_ = true;
  std::vector<Json> entries_;  // windows that are open
  // Details of the view and of each open window. Made by count: Json would read braces as an array.
  std::vector<Json> levels_ = std::vector<Json>(1, Json::array());
};

Json recapJson(const frmTRVN& main) {
  const View* recap = main.view("frmRecap");
  Json result = Json::array();
  for (int index = 0; index < kRecapLabels; ++index) {
    const auto figure = static_cast<Figure>(index);
    const Label* label = recapLabel(recap, figure);
    result.push_back({{"index", index},
                      {"caption", jsonText(label != nullptr ? label->caption() : "")},
                      {"error", isFigureInError(recap, figure)}});
  }
  return result;
}

Json compiledJson(const frmTRVN& main) {
  const View* recap = main.view("frmRecap");
  const auto* label =
      recap == nullptr ? nullptr : dynamic_cast<const Label*>(recap->find("lblcompiledate"));
  return jsonText(label != nullptr ? label->caption() : "");
}

}  // namespace

bool writeJsonReport(const ReportInput& input) {
  const auto& [session, main, views, details, argument, out] = input;
  Json document = {
      {"program", kProgramName}, {"version", versionText()}, {"compiled", compiledJson(main)}};
  Json& panels = document["statusBar"] = Json::array();
  for (const std::string& panel : main.sb1.panels())
    panels.push_back(jsonText(panel));
  document["storeName"] = jsonText(main.lblStoreName.caption());
  document["recap"] = recapJson(main);
  addUnopenedFiles(document);

  bool complete = areComplete(views);
  Json windows = Json::array();
  for (const View* view : views)
    windows.push_back(windowJson(*view));
  if (details) {
    DetailCollector collector;
    DetailRecorder recorder(collector);
    for (std::size_t i = 0; i < views.size(); ++i) {
      recorder.clickThrough(*views[i]);
      windows[i]["details"] = collector.take();
    }
    complete = complete && collector.complete();
  }
  document["views"] = std::move(windows);

  Json& messages = document["messages"] = Json::array();
  for (const MessageBox& box : session.messages()) {
    messages.push_back(
        {{"title", jsonText(box.title)}, {"text", jsonText(box.text)}, {"style", box.style}});
  }
  Json& log = document["log"] = Json::array();
  for (const std::string& line : session.failures())
    log.push_back(jsonText(line));
  writeJson(out, document);
  return complete;
}

}  // namespace dg
