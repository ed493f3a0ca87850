// Whole example stores through the whole program.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "shell/main.h"
#include "shell/recap_sheet.h"
#include "tests/support/program_run.h"
#include "tests/support/raw_store.h"
#include "views/view_catalogue.h"

namespace dg::test {
namespace {

using Texts = std::vector<std::string>;

/// The program over a store, started.
struct StoreRun {
  explicit StoreRun(std::vector<SampleFile> files) {
    run.openStore(std::move(files));
    window = startProgram(viewCatalogue());
  }
  Texts recap() {
    Texts captions;
    for (int index = 0; index < kRecapLabels; ++index)
      captions.push_back(recapSheet().lblRecap(index).caption());
    return captions;
  }

  ProgramRun run;
  std::unique_ptr<frmTRVN> window;
};

std::int64_t receivables(const RawStore& store) {
  std::istringstream lines(store.file("DARR.TRVN"));
  std::string line;
  std::int64_t sum = 0;
  for (int number = 1; number < 30 && std::getline(lines, line); ++number) {
    if (number > 1) sum += std::stoll(line.substr(line.rfind(',') + 1));
  }
  return sum;
}

/// The records in use of a logical file.
Texts inUse(const RawStore& store, const std::string& name) {
  Texts records;
  for (std::int32_t number = 1; number <= store.lastRecord(name); ++number) {
    std::string record = store.record(name, number);
    if (signedAt(record, 1, 2) > 0) records.push_back(std::move(record));
  }
  return records;
}

/// Sum of a money field of all product lines.
std::int64_t lineSum(const RawStore& store, std::size_t position) {
  std::int64_t sum = 0;
  for (const std::string& line : inUse(store, "LINEL")) {
    if (unsignedAt(line, 3, 2) < 1000) sum += signedAt(line, position, 4);
  }
  return sum;
}

std::string profitRate(std::int64_t sales, std::int64_t cost) {
  const std::int64_t hundredths =
      std::llround(static_cast<double>(sales - cost) * 10'000 / static_cast<double>(sales));
  const std::string digits = std::to_string(10'000 + std::llabs(hundredths)).substr(1);
  return (hundredths < 0 ? "-" : "") + digits.substr(0, 2) + "." + digits.substr(2) + "%";
}

std::int64_t todaysSales(const RawStore& store) {
  std::int64_t sum = 0;
  for (const std::string& man : inUse(store, "MANL"))
    sum += signedAt(man, 54, 4);
  return sum;
}

std::int64_t todaysCash(const RawStore& store) {
  std::int64_t sum = 0;
  std::set<std::int64_t> counted;
  for (const auto& [key, record] : store.entries("MANI")) {
    const std::string man = store.record("MANL", record);
    if (!counted.insert(record).second) continue;  // a second key of the same man
    const std::string extension = store.record("EMANL", record);
    sum += std::llabs(signedAt(man, 38, 4)) - std::llabs(signedAt(man, 46, 4)) +
           std::llabs(signedAt(man, 74, 4)) + std::llabs(signedAt(extension, 333 - 204, 4));
  }
  return sum;
}

/// Balances of the accounts in a saved list, but for the one whose details are the index's last.
std::int64_t ledgerSum(const RawStore& store, const std::string& section) {
  const std::string& settings = store.file("DealerGauge.ini");
  const std::size_t start = settings.find("Accounts=", settings.find("[" + section + "]")) + 9;
  std::istringstream list(settings.substr(start, settings.find_first_of("\r\n", start) - start));
  std::set<std::string> chart;
  for (const std::string& account : inUse(store, "CHRTL"))
    chart.insert(account.substr(2, 6));
  std::string last;
  for (const auto& [key, record] : store.entries("GLDTI"))
    last = std::max(last, key.substr(0, 6));
  std::int64_t sum = 0;
  std::string entry;
  while (std::getline(list, entry, ',')) {
    const std::int64_t company = std::stoll(entry.substr(0, 2));
    const std::int64_t account = std::stoll(entry.substr(2));
    std::string wanted;
    for (const int shift : {8, 0})
      wanted += static_cast<char>(company >> shift & 255);
    for (const int shift : {24, 16, 8, 0})
      wanted += static_cast<char>(account >> shift & 255);
    if (!chart.contains(wanted) || wanted == last) continue;
    for (const std::string& detail : inUse(store, "GLDTL")) {
      if (detail.substr(2, 6) != wanted) continue;
      const std::int64_t amount = signedAt(detail, 56, 4);
      sum += (unsignedAt(detail, 53, 1) == 1 ? -amount : amount) +
             unsignedAt(detail, 54, 2) * 1'000'000;
    }
  }
  return sum;
}

template <class Counts>
std::int64_t documentSum(const RawStore& store, const std::string& index, Counts counts) {
  std::int64_t sum = 0;
  for (const auto& [key, record] : store.entries(index)) {
    const std::string name = key.substr(0, std::min<std::size_t>(key.find('\0'), 10));
    if (!counts(name.front(), unsignedAt(key, 16, 1)) || !store.has(name)) continue;
    sum += signedAt(store.file(name), 6 * 38 + 22, 4);
  }
  return sum;
}

bool isOpenOrder(char letter, std::int64_t status) {
  const bool two = status == 2 || (status >= 20 && status < 30) || status >= 200;
  const bool six = status == 6 || (status >= 60 && status < 70);
  return six || (letter == 'V' && two);
}

bool isPendingReturn(char letter, std::int64_t status) {
  return letter == 'R' && status == 20;
}

TEST(SampleProgram, TheRecapShowsWhatTheBytesAddUpTo) {
  for (const SampleOptions& options :
       {SampleOptions{.seed = 1}, SampleOptions{.seed = 77, .scale = 3, .indexFill = 20}}) {
    const std::vector<SampleFile> files = composeSampleStore(options);
    const RawStore store(files);
    StoreRun program(files);
    const Texts recap = program.recap();
    EXPECT_EQ(recap[0], dollars(receivables(store)));
    EXPECT_EQ(recap[1], dollars(lineSum(store, 75)));
    EXPECT_EQ(recap[4], dollars(ledgerSum(store, "Asset")));
    EXPECT_EQ(recap[5], dollars(documentSum(store, "RTTBI", &isPendingReturn)));
    EXPECT_EQ(recap[7], dollars(todaysSales(store)));
    EXPECT_EQ(recap[8], dollars(documentSum(store, "PUTBI", &isOpenOrder)));
    EXPECT_EQ(recap[9], dollars(ledgerSum(store, "Liability")));
    EXPECT_EQ(recap[10], dollars(todaysCash(store)));
    int label = 13;
    for (const std::size_t position : {87U, 99U, 111U}) {
      const std::int64_t sales = lineSum(store, position);
      const std::int64_t cost = lineSum(store, position + 4);
      EXPECT_EQ(recap[static_cast<std::size_t>(label)], dollars(sales, true));
      EXPECT_EQ(recap[static_cast<std::size_t>(label) + 1], dollars(cost, true));
      EXPECT_EQ(recap[static_cast<std::size_t>(label) + 2], profitRate(sales, cost));
      label += 3;
    }
  }
}

TEST(SampleProgram, EveryViewLoadsAndEveryRowOpensWithoutAnError) {
  for (const SampleOptions& options :
       {SampleOptions{.seed = 5}, SampleOptions{.seed = 6, .asOf = Date::fromText("2/29/1996")},
        SampleOptions{.seed = 7, .scale = 2, .warrantySegments = true, .indexFill = 100}}) {
    StoreRun program(composeSampleStore(options));
    for (View* view : program.window->loadedViews()) {
      for (const auto& control : view->controls()) {
        auto* grid = dynamic_cast<Grid*>(control.get());
        if (grid == nullptr) continue;
        EXPECT_GT(grid->Rows(), 0) << view->name() << "." << grid->name();
        for (int row = 0; row < grid->Rows(); ++row)
          grid->rowClick(row);
      }
    }
    EXPECT_EQ(program.run.logged.size(), 1U) << testing::PrintToString(program.run.logged);
    EXPECT_TRUE(program.run.messages.empty()) << program.run.messages.front().text;
    for (const std::string& caption : program.recap())
      EXPECT_NE(caption, kDataError);
  }
}

TEST(SampleProgram, AStoreWithoutRecordsHasEmptyViewsAndTotalsOfZero) {
  StoreRun program(sample::StoreBuilder{SampleOptions{}}.finish());
  for (View* view : program.window->loadedViews()) {
    for (const auto& control : view->controls()) {
      const auto* grid = dynamic_cast<const Grid*>(control.get());
      if (grid == nullptr) continue;
      EXPECT_EQ(grid->Rows(), 0) << view->name() << "." << grid->name();
    }
  }
  const Texts recap = program.recap();
  for (int label = 1; label <= 12; ++label)
    EXPECT_EQ(recap[static_cast<std::size_t>(label)], "$.00") << label;
  EXPECT_EQ(program.window->view("frmInv")->get<Label>("lblinvtot(1)").caption(),
            "Sales YTD : $.00");
  EXPECT_EQ(program.window->view("frmSales")->get<Label>("lblCashTot").caption(),
            "Cash Total  .00");
  EXPECT_EQ(program.run.logged.size(), 1U) << testing::PrintToString(program.run.logged);
}

TEST(SampleProgram, ARefreshShowsTheSameButForTheProfit) {
  StoreRun program(composeSampleStore({.seed = 3}));
  const Texts before = program.recap();
  const auto profitRows = [&] {
    return program.window->view("frmProfit")->get<Grid>("grdProfit").rows();
  };
  const std::vector<Grid::Row> profit = profitRows();
  program.window->ReLoadBm();
  const Texts after = program.recap();
  EXPECT_TRUE(std::equal(before.begin(), before.begin() + 13, after.begin()));
  EXPECT_EQ(Texts(after.begin() + 13, after.end()), (Texts{"", "", "", " ", " ", " ", "", "", ""}));
  EXPECT_EQ(profitRows(), profit) << "loaded once a run";
  EXPECT_EQ(program.run.logged.size(), 1U);
}

/// Starts the program over a damaged store and expects it to stand: each label has its figure or
/// says that there is none, and each of those has its line in the log.
void expectToStand(std::vector<SampleFile> files) {
  StoreRun program(std::move(files));
  ASSERT_EQ(program.window->loadedViews().size(), 14U);
  std::size_t failures = 0;
  for (const std::string& caption : program.recap())
    failures += caption == kDataError ? 1U : 0U;
  EXPECT_GE(program.run.logged.size(), 1 + failures);
}

TEST(SampleProgram, FilesThatEndEarlyLeaveTheProgramStanding) {
  const std::vector<SampleFile> sound = composeSampleStore({.seed = 4});
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const std::string& path = sound[i].path;
    const bool central = path.ends_with("DB") || path.ends_with("LK") || path.ends_with("FILE0") ||
                         path.ends_with("LINKSFILE");
    if (!central) continue;
    for (const std::size_t quarter : {0U, 1U, 3U}) {
      SCOPED_TRACE(testing::Message() << path << " cut at " << quarter << "/4");
      std::vector<SampleFile> files = sound;
      files[i].content.resize(files[i].content.size() * quarter / 4);
      expectToStand(std::move(files));
    }
  }
}

}  // namespace
}  // namespace dg::test
