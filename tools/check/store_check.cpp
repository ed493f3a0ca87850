#include "tools/check/store_check.h"

#include "engine/links.h"
#include "tools/check/check_run.h"
#include "tools/check/control_checker.h"
#include "tools/check/directory_checker.h"
#include "tools/check/document_checker.h"
#include "tools/check/index_checker.h"
#include "tools/check/known_files.h"
#include "tools/check/link_checker.h"
#include "tools/check/page_chain_checker.h"
#include "tools/check/reach_checker.h"
#include "tools/check/record_chain_checker.h"
#include "tools/check/record_checker.h"
#include "tools/check/terminal_checker.h"

namespace dg::check {

namespace {

/// Runs the checkers in their order: each may rely on what those before it found.
class StoreCheck {
 public:
  StoreCheck(StoreReader& store, Findings& findings, const CheckOptions& options)
      : run_{.store = store,
             .findings = findings,
             .progress = options.progress,
             .indexes = {},
             .uses = {}},
        control_(run_) {}

  void checkStructures() {
    run_.step(named(dg::kLinkTable), [this] { LinkChecker(run_).check(); });
    run_.step(named("ttymap"), [this] { TerminalChecker(run_).check(); });
    DirectoryChecker(run_).check();
    controlStep([this] { control_.checkLength(); });
    forEachFile([this](const LogicalView& file) {
      if (file.isRecordFile()) RecordChecker(run_, file).checkRecordZero();
      if (file.isIndex()) IndexChecker(run_, file).check();
    });
  }

  void checkContents() {
    forEachFile([this](const LogicalView& file) {
      if (file.isRecordFile()) RecordChecker(run_, file).checkRecords();
    });
    forEachFile([this](const LogicalView& file) { RecordChecker(run_, file).checkExtension(); });
    for (const IndexTraits& index : kIndexes)
      ReachChecker(run_).check(index);
    checkPages(files::kInvoices, files::kTicketIndex, "the ticket");
    checkPages(files::kWarranties, files::kWarrantyIndex, "the claim");
    for (const RecordChain& chain : kRecordChains)
      step(chain.linkFile, [&] { RecordChainChecker(run_).check(chain); });
    for (const char* index : {files::kPurchaseOrderIndex, files::kReturnIndex})
      step(index, [&] { DocumentChecker(run_).check(index); });
  }

  CheckedAmount amount() const {
    CheckedAmount amount;
    for (const LogicalView& file : run_.store.files())
      amount.files += file.misplaced ? 0 : 1;
    for (const auto& [name, contents] : run_.indexes)
      amount.indexEntries += static_cast<std::int64_t>(contents.entries.size());
    for (const auto& [name, use] : run_.uses) {
      for (std::int64_t record = 1; record <= use.last(); ++record)
        amount.records += use.isUsed(record) ? 1 : 0;
    }
    return amount;
  }

 private:
  static Place named(std::string_view name) {
    return {.file = std::string(name), .physical = std::string(name)};
  }

  void controlStep(const std::function<void()>& work) {
    run_.step(
        {.file = files::kControlFile, .physical = run_.store.physicalName(files::kControlFile)},
        work);
  }

  /// A step about a logical file; none where there is no such file.
  void step(std::string_view name, const std::function<void()>& work) {
    const LogicalView* file = run_.store.find(name);
    if (file != nullptr) run_.step(file->whole(), work);
  }

  void forEachFile(const std::function<void(const LogicalView&)>& work) {
    for (const LogicalView& file : run_.store.files()) {
      if (!file.misplaced) run_.step(file.whole(), [&] { work(file); });
    }
  }

  void checkPages(const char* records, const char* index, const std::string& noun) {
    const RecordUse* use = run_.use(records);
    if (use == nullptr) return;
    run_.step(use->file().whole(), [&] {
      PageChainChecker pages(run_, *use);
      const IndexContents* contents = run_.contents(index);
      if (contents != nullptr) {
        for (const IndexEntry& entry : contents->entries) {
          if (!use->isValidTarget(entry.record)) continue;  // told with the index
          pages.checkDocument(entry.record, contents->placeOf(entry), noun, kind::kIndexFreeRecord);
        }
      }
      bool haveAll = true;
      if (use->file().name == files::kInvoices) {
        haveAll = false;
        controlStep([&] {
          control_.checkTables(pages);
          haveAll = true;
        });
      }
      if (haveAll) pages.noteUnreached();
    });
  }

  CheckRun run_;
  ControlChecker control_;
};

}  // namespace

CheckedAmount checkStore(StoreReader& store, Findings& findings, const CheckOptions& options) {
  StoreCheck check(store, findings, options);
  check.checkStructures();
  if (!options.quick) check.checkContents();
  return check.amount();
}

}  // namespace dg::check
