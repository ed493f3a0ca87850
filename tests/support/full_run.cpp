#include "tests/support/full_run.h"

#include <algorithm>
#include <exception>
#include <span>
#include <string_view>
#include <utility>

#include "platform/environment.h"
#include "platform/system_file.h"
#include "platform/unopened_files.h"
#include "shell/main.h"
#include "shell/recap_sheet.h"
#include "tests/support/asked_file_system.h"
#include "tests/support/scopes.h"
#include "tools/dgtool/detail_recorder.h"
#include "tools/dgtool/window_json.h"
#include "views/view_catalogue.h"

namespace dg::test {

namespace {

/// What a view logs when its trap has run, and the recap label that it then marks.
struct ViewTrap {
  std::string_view line;
  int label;
};
constexpr ViewTrap kViewTraps[] = {
    {"*Error in frmAr GetAR routine ", 0},
    {"*Error in frmInv GetLineData routine ", 1},
    {"*Error in frmOpenSales GetPTSData routine ", 2},
    {"*Error in frmShop GetShopData routine ", 3},
    {"*Error in frmGLA GetGLData routine ", 4},
    {"*Error in frmReturn GetReturn routine ", 5},
    {"*Error in frmWarranty.form load routine ", 6},
    {"*Error in frmSales GetSales routine ", 7},
    {"*Error in frmPO GetPO routine ", 8},
    {"*Error in frmGLL GetGLData routine ", 9},
    {"*Error in frmFp GetFpData routine ", 11},
    {"*Error in frmUnits GetUnitData routine ", 12},
};

constexpr int kReceivables = 0;
constexpr int kSales = 7;
constexpr int kCash = 10;  ///< written together with the sales, which alone are marked
constexpr int kFirstProfit = 13;
constexpr std::string_view kProfitTrap = "*Error in frmProfit GetProfit routine ";
constexpr std::string_view kLoadTraps[] = {"*Form TRVNV2 load error :", "*Error in ReLoadBm "};

bool hasLine(std::span<const std::string> log, std::string_view start) {
  return std::ranges::any_of(log, [&](const std::string& line) { return line.starts_with(start); });
}

bool isBlank(const Label& label) {
  return label.caption().find_first_not_of(' ') == std::string::npos;
}

class Driver final : private DetailVisitor {
 public:
  Driver(FullRun& result, ProgramRun& surroundings, KeepPicture keep)
      : result_(result), surroundings_(surroundings), keep_(keep) {}

  void run(RunExtent extent) {
    const std::unique_ptr<frmTRVN> main = startProgram(viewCatalogue());
    inspect(*main, "load");
    if (extent != RunExtent::kOneLoad) {
      startOfStage_ = surroundings_.logged.size();
      main->ReLoadBm();
      inspect(*main, "refresh");
      if (extent == RunExtent::kEverything) openAllWindows(*main);
    }
    main->Form_Unload();
  }

 private:
  void enter(const Form& window, const std::string& control, int row) override {
    ++result_.windows;
    if (keep_ == KeepPicture::kYes) {
      result_.picture += control + ":" + std::to_string(row) + "\n";
      draw(window);
    }
  }
  void leave() override {}

  void draw(const Form& form) { result_.picture += windowJson(form).dump(1) + "\n"; }

  void openAllWindows(const frmTRVN& main) {
    DetailRecorder recorder(*this);
    for (View* view : main.loadedViews())
      recorder.clickThrough(*view);
  }

  void fault(std::string_view stage, const std::string& text) {
    result_.faults.push_back(std::string(stage) + ": " + text);
  }

  /// Compares the recap's labels with the log of this stage.
  void inspect(const frmTRVN& main, std::string_view stage) {
    const bool warned = !main.lostShare().empty() || unopenedFiles().count > 0;
    if (keep_ == KeepPicture::kYes) {
      for (const View* view : main.loadedViews()) {
        draw(*view);
        if (!warned && !view->incomplete())
          result_.complete[std::string(stage) + " " + view->name()] = windowJson(*view).dump(1);
      }
    }
    const std::span<const std::string> log = std::span(surroundings_.logged).subspan(startOfStage_);
    const bool broken = std::ranges::any_of(
        kLoadTraps, [&](std::string_view start) { return hasLine(log, start); });
    if (broken != !main.LastError.empty() &&
        main.LastError.find("GetStoreName") == std::string::npos)
      fault(stage, "the window's last error is \"" + main.LastError + "\"");
    if (broken) return;  // the log says that nothing, or not all, was loaded
    const View* recap = main.view("frmRecap");
    if (recap == nullptr || main.loadedViews().size() != std::size_t{14}) {
      fault(stage, "views are missing and the log says nothing");
      return;
    }
    for (int index = 0; index < kRecapLabels; ++index)
      inspectLabel(recap->get<Label>(elementName("lblRecap", index)), index, log, stage);
  }

  void inspectLabel(const Label& label, int index, std::span<const std::string> log,
                    std::string_view stage) {
    const auto* trap = std::ranges::find(kViewTraps, index, &ViewTrap::label);
    const bool trapped = trap != std::end(kViewTraps) && hasLine(log, trap->line);
    const bool marked = label.caption() == kDataError && label.foreColor() == kRed;
    const bool half = (label.caption() == kDataError) != (label.foreColor() == kRed);
    if (marked) result_.failed.push_back(std::string(stage) + " " + label.name());
    if (half) fault(stage, label.name() + " is in error by its text or its colour alone");
    if (trapped && !marked) fault(stage, label.name() + " hides a failure that was logged");
    if (marked && !trapped) fault(stage, label.name() + " is in error and nothing was logged");
    if (isBlank(label) && !mayBeBlank(index, log, stage))
      fault(stage, label.name() + " is empty and nothing was logged");
  }

  /// Receivables without their file, cash beside failed sales, profit that failed or that a refresh
  /// leaves out.
  static bool mayBeBlank(int index, std::span<const std::string> log, std::string_view stage) {
    if (index == kReceivables) return true;
    if (index == kCash)
      return hasLine(log, std::ranges::find(kViewTraps, kSales, &ViewTrap::label)->line);
    return index >= kFirstProfit && (stage == "refresh" || hasLine(log, kProfitTrap));
  }

  FullRun& result_;
  ProgramRun& surroundings_;
  KeepPicture keep_;
  std::size_t startOfStage_ = 0;
};

/// Ends a run that asks the file system too often: a loop that would never end becomes a failure of
/// its test. No run-time error, and no exception that a trap of the program takes.
struct TooManySteps {
  std::uint64_t limit;
};

/// Over the file system in place.
FullRun runInPlace(ProgramRun& surroundings, RunExtent extent, KeepPicture keep) {
  FullRun result;
  try {
    Driver(result, surroundings, keep).run(extent);
  } catch (const TooManySteps& error) {
    result.faults.push_back("more than " + std::to_string(error.limit) +
                            " calls to the file system");
  } catch (const std::exception& error) {
    result.faults.push_back(std::string("an exception left the program: ") + error.what());
  }
  result.log = surroundings.logged;
  result.messages = surroundings.messages;
  return result;
}

/// `files` owns a file system, or is one that somebody else owns.
template <class Files>
FullRun runOver(ProgramRun& surroundings, Files&& files, std::uint64_t stepLimit, RunExtent extent,
                KeepPicture keep) {
  // Shared with the open files, which may outlive the run.
  const auto steps = std::make_shared<std::uint64_t>(0);
  setFileSystem(std::make_unique<AskedFileSystem>(std::forward<Files>(files),
                                                  [steps, stepLimit](AskedFileSystem::Call) {
                                                    if (++*steps > stepLimit) {
                                                      throw TooManySteps{stepLimit};
                                                    }
                                                  }));
  FullRun result = runInPlace(surroundings, extent, keep);
  result.steps = *steps;
  return result;
}

}  // namespace

FullRun runFully(const std::vector<SampleFile>& files, std::uint64_t stepLimit, RunExtent extent,
                 KeepPicture keep) {
  ProgramRun surroundings;
  surroundings.openStore(files);
  return runFully(surroundings, setFileSystem(nullptr), stepLimit, extent, keep);
}

FullRun runFully(ProgramRun& surroundings, std::unique_ptr<FileSystem> files,
                 std::uint64_t stepLimit, RunExtent extent, KeepPicture keep) {
  return runOver(surroundings, std::move(files), stepLimit, extent, keep);
}

FullRun runFullyOnDisk(const std::string& store, std::uint64_t stepLimit, RunExtent extent,
                       KeepPicture keep) {
  ProgramRun surroundings;
  surroundings.openOnDisk(store);
  return runOver(surroundings, systemFileSystem(), stepLimit, extent, keep);
}

FullRun runFullyFar(const std::string& store, RunExtent extent, KeepPicture keep) {
  ProgramRun surroundings;
  surroundings.openOnDisk(store);
  const ReadAheadSettingsScope far({.near = kEveryLineIsFar});
  return runInPlace(surroundings, extent, keep);
}

}  // namespace dg::test
