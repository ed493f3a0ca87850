#include <algorithm>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/support/raw_store.h"
#include "tools/sample/sample_store.h"

namespace dg {
namespace {

using test::RawStore;
using test::signedAt;
using test::unsignedAt;
using testing::AllOf;
using testing::Each;
using testing::Ge;
using testing::Gt;
using testing::IsSubsetOf;
using testing::IsSupersetOf;
using testing::SizeIs;

constexpr std::size_t kBlock = 512;

const RawStore& sampleStore() {
  static const RawStore store(composeSampleStore({}));
  return store;
}

/// What a document's pages hold, followed from the record that is entered for it.
struct Chain {
  std::vector<int> pages;   ///< in the order in which a walk meets them
  std::int64_t tenths = 0;  ///< sum of all lines, in tenths of a cent
  bool hasNegativeLink = false;
  std::set<std::string> codes;  ///< packed line codes
  std::string first;            ///< bytes of the entered record
  std::string pageOne;
};

Chain follow(const RawStore& store, const char* file, std::int64_t record) {
  Chain chain;
  for (;;) {
    const std::string page = store.record(file, static_cast<std::int32_t>(std::abs(record)));
    chain.hasNegativeLink = chain.hasNegativeLink || record < 0;
    if (chain.pages.empty()) chain.first = page;
    chain.pages.push_back(static_cast<int>(unsignedAt(page, 115, 1)));
    for (std::int64_t line = 0; line < unsignedAt(page, 146, 1); ++line) {
      const std::string bytes = page.substr(160 + static_cast<std::size_t>(line) * 44, 44);
      chain.codes.insert(bytes.substr(0, 2));
      chain.tenths += signedAt(bytes, 31, 2) * signedAt(bytes, 33, 3);
    }
    if (chain.pages.back() == 1 || chain.pages.size() > 4) {
      chain.pageOne = page;
      return chain;
    }
    record = signedAt(page, 110, 3);
  }
}

/// Every page from 1 to the highest once, page 1 last.
bool isWhole(std::vector<int> pages) {
  if (pages.back() != 1) return false;
  std::sort(pages.begin(), pages.end());
  for (std::size_t i = 0; i < pages.size(); ++i) {
    if (pages[i] != static_cast<int>(i) + 1) return false;
  }
  return true;
}

bool isDescending(const std::vector<int>& pages) {
  return std::is_sorted(pages.rbegin(), pages.rend());
}

std::int64_t subTotal(const Chain& chain) {
  return (chain.tenths + (chain.tenths < 0 ? -5 : 5)) / 10;
}

/// Records that slots of the control file name, by byte offset.
std::map<std::size_t, std::int64_t> slots(const RawStore& store, std::size_t first,
                                          std::size_t last) {
  std::map<std::size_t, std::int64_t> found;
  for (std::size_t at = first * kBlock; at < (last + 1) * kBlock; at += 4) {
    const std::int64_t record = signedAt(store.controlFile(), at + 1, 4);
    if (record != 0) found[at] = record;
  }
  return found;
}

TEST(SampleFamilies, CustomersAreFoundByTheirAccounts) {
  const RawStore& store = sampleStore();
  const auto entries = store.entries("CUSTI");
  EXPECT_EQ(entries.size(), 300U);
  std::multiset<char> credit;
  for (const auto& [key, record] : entries) {
    const std::string customer = store.record("CUSTL", record);
    ASSERT_EQ(unsignedAt(customer, 3, 3), unsignedAt(key, 1, 4));
    EXPECT_NE(customer.substr(5, 2), std::string(2, '\0')) << "no name";
    credit.insert(customer[95]);
    EXPECT_LE(signedAt(store.record("ECUSTL", record), 1, 4), 9'999'999);
  }
  EXPECT_GT(credit.count('G'), 30U);
  EXPECT_GT(credit.count('C'), 100U);
}

TEST(SampleFamilies, ShopJobsStandInTheirSlotsInAllStates) {
  const RawStore& store = sampleStore();
  std::map<char, int> states;
  std::map<std::size_t, int> pages;
  std::set<std::string> codes;
  int jumbled = 0;
  int negativeLinks = 0;
  int freed = 0;
  int below = 0;
  int above = 0;
  auto table = slots(store, 451, 458);
  table.merge(slots(store, 501, 571));
  for (const auto& [at, record] : table) {
    if (record < 1) {
      ++freed;
      continue;
    }
    const Chain chain = follow(store, "INVOL", record);
    ASSERT_TRUE(isWhole(chain.pages));
    const auto job = static_cast<std::size_t>(unsignedAt(chain.first, 101, 2));
    const std::size_t block = job < 1000 ? 451 + job / 128 : 501 + (job - 999) / 128;
    EXPECT_EQ(at, block * kBlock + job % 128 * 4) << "job " << job;
    EXPECT_EQ(signedAt(chain.first, 125, 4), subTotal(chain)) << "job " << job;
    ++states[chain.first.at(98)];
    ++pages[chain.pages.size()];
    codes.insert(chain.codes.begin(), chain.codes.end());
    jumbled += isDescending(chain.pages) ? 0 : 1;
    negativeLinks += chain.hasNegativeLink ? 1 : 0;
    (job < 1000 ? below : above) += 1;
  }
  for (const char state : std::string("12345OSCBX "))
    EXPECT_GT(states[state], 0) << state;
  for (const std::size_t count : {1U, 2U, 3U, 4U})
    EXPECT_GT(pages[count], 10) << count << " pages";
  // "REM", "500", "502" and "550" as they lie in a line.
  EXPECT_THAT(codes, IsSupersetOf({"\xC4\xAA", "\x38\xE4", "\x38\xE6", "\x39\xAC"}));
  EXPECT_GT(codes.size(), 20U) << "and codes of parts";
  EXPECT_EQ(below + above, 80);
  EXPECT_THAT((std::vector{below, above}), Each(Ge(30)));
  EXPECT_THAT((std::vector{jumbled, negativeLinks, freed}), Each(Gt(3)));
}

TEST(SampleFamilies, OrdersHaveBothLayouts) {
  const RawStore& store = sampleStore();
  const std::set<std::int64_t> second = {80, 81};
  std::vector<std::int64_t> records;
  const auto tickets = store.entries("TICKI");
  EXPECT_EQ(tickets.size(), 40U);
  EXPECT_FALSE(second.contains(signedAt(store.record("INVOL", tickets.front().second), 1, 2)))
      << "no ticket number stands in an order of the second layout, nor before the first one";
  for (const auto& [key, record] : tickets)
    records.push_back(record);
  const auto saved = slots(store, 301, 325);
  EXPECT_EQ(saved.size(), 30U);
  for (const auto& [at, record] : saved) {
    EXPECT_NE(at % 128, 0U) << "a group begins with four bytes of its own";
    records.push_back(record);
  }
  std::multiset<std::int64_t> types;
  std::set<std::size_t> pages;
  for (const std::int64_t record : records) {
    const Chain chain = follow(store, "INVOL", record);
    ASSERT_TRUE(isWhole(chain.pages));
    types.insert(signedAt(chain.pageOne, 1, 2));
    pages.insert(chain.pages.size());
    EXPECT_EQ(signedAt(chain.pageOne, 125, 4), subTotal(chain));
    const std::int64_t digits = signedAt(chain.pageOne, 110, 3);
    EXPECT_THAT(digits / 10'000, AllOf(Ge(8), testing::Le(11))) << "the three months before";
  }
  EXPECT_GE(types.count(80) + types.count(81), 10U);
  for (const std::int64_t type : {1, 2, 3, 13, 17, 19, 99})
    EXPECT_GT(types.count(type), 0U) << type;
  EXPECT_EQ(pages, (std::set<std::size_t>{1, 2, 3}));
}

TEST(SampleFamilies, ClaimsAreListedOrPassedOverForEveryReason) {
  for (const bool segments : {false, true}) {
    SampleOptions options;
    options.warrantySegments = segments;
    const RawStore store(composeSampleStore(options));
    const auto entries = store.entries("WARRI");
    EXPECT_EQ(entries.size(), 40U);
    std::map<std::string, int> reasons;
    std::set<std::int64_t> references;
    for (const auto& [key, record] : entries) {
      const std::string claim = store.record("WARRL", record);
      const std::int64_t reference = signedAt(claim, 5, 4);
      references.insert(reference);
      EXPECT_EQ(reference, segments ? unsignedAt(key, 1, 4) / 100 : unsignedAt(key, 1, 4));
      EXPECT_LE(unsignedAt(claim, 146, 1), 2) << "lines over the claim's own fields";
      ASSERT_TRUE(isWhole(follow(store, "WARRL", record).pages));
      const std::int64_t billed = unsignedAt(claim, 403, 3);
      if (unsignedAt(claim, 1, 2) == 0) ++reasons["deleted"];
      if (unsignedAt(claim, 1, 2) > 1) ++reasons["kind"];
      if (billed == 0) ++reasons["open"];
      if (billed == 10'168) ++reasons["no date"];
      if (unsignedAt(claim, 401, 2) != 0) ++reasons["settled"];
      if (unsignedAt(claim, 1, 2) == 1 && billed > 10'168 && unsignedAt(claim, 401, 2) == 0)
        ++reasons["listed"];
    }
    EXPECT_THAT(reasons, SizeIs(6));
    EXPECT_GE(reasons["listed"], 20);
    EXPECT_EQ(references.size() < entries.size(), segments);
  }
}

TEST(SampleFamilies, UnitsHaveLedgerChains) {
  const RawStore& store = sampleStore();
  std::set<std::int64_t> unitLines;
  for (const auto& [key, record] : store.entries("LINEI")) {
    if (unsignedAt(key, 1, 2) < 1000 && store.record("LINEL", record).at(141) == 'U')
      unitLines.insert(unsignedAt(key, 1, 2));
  }
  EXPECT_EQ(unitLines.size(), 12U);
  EXPECT_EQ(store.entries("UNITI").size(), 150U);
  const auto entries = store.entries("LUNITI");
  EXPECT_EQ(entries.size(), 150U);
  std::set<std::int64_t> used;
  std::set<std::size_t> lengths;
  std::set<std::int64_t> ledgerRecords;
  int soldWithChain = 0;
  int soldWithout = 0;
  int without = 0;
  for (const auto& [key, record] : entries) {
    const std::string unit = store.record("UNITL", record);
    EXPECT_EQ(key, unit.substr(2, 2) + unit.substr(19, 8));
    used.insert(unsignedAt(unit, 3, 2));
    std::size_t length = 0;
    for (std::int64_t next = signedAt(unit, 505, 4); next != 0;) {
      ASSERT_TRUE(ledgerRecords.insert(next).second) << "two chains share a record";
      const std::string ledger = store.record("LUNITL", static_cast<std::int32_t>(next));
      EXPECT_EQ(ledger.substr(2, 10), key);
      next = signedAt(ledger, 61, 4);
      ++length;
    }
    lengths.insert(length);
    const bool sold = unsignedAt(unit, 149, 2) > 1;
    soldWithChain += sold && length > 0 ? 1 : 0;
    soldWithout += sold && length == 0 ? 1 : 0;
    without += !sold && length == 0 ? 1 : 0;
  }
  EXPECT_THAT(used, IsSubsetOf(unitLines));
  EXPECT_EQ(used.size(), 11U) << "one line has no units yet";
  EXPECT_EQ(lengths, (std::set<std::size_t>{0, 1, 2, 3, 4, 5, 6}));
  EXPECT_THAT((std::vector{soldWithChain, soldWithout, without}), Each(Gt(5)));
}

TEST(SampleFamilies, FinancedStockHasEveryKindOfCostAndExtent) {
  const RawStore& store = sampleStore();
  std::set<std::string> partKeys;
  for (const auto& [key, record] : store.entries("PARTI"))
    partKeys.insert(key);
  const auto entries = store.entries("FPLNI");
  EXPECT_EQ(entries.size(), 120U);
  std::map<std::string, int> kinds;
  std::set<std::int64_t> extents;
  int remarks = 0;
  for (const auto& [key, record] : entries) {
    const std::string entry = store.record("FPLNL", record);
    EXPECT_EQ(key.substr(0, 2), entry.substr(2, 2));
    const bool sold = unsignedAt(entry, 41, 2) != 0;
    const bool invoiced = unsignedAt(entry, 60, 4) != 0;
    const bool known = partKeys.contains(entry.substr(4, 14));
    if (sold || invoiced) {
      ++kinds[std::string(sold ? "sold " : "") + (invoiced ? "invoiced" : "")];
    } else if (signedAt(entry, 51, 3) == 0) {
      ++kinds[known ? "cost of part" : "no cost"];
    } else {
      ++kinds["open"];
    }
    for (std::int64_t next = unsignedAt(entry, 94, 3); next != 0;) {
      ASSERT_TRUE(extents.insert(next).second) << "two chains share a record";
      const std::string extent = store.record("FPEXL", static_cast<std::int32_t>(next));
      remarks += extent.substr(2, 2) == "\xC4\xAA" ? 1 : 0;
      next = unsignedAt(extent, 29, 3);
    }
  }
  EXPECT_THAT(kinds, SizeIs(6));
  EXPECT_GT(kinds["open"], 50);
  EXPECT_GT(remarks, 10);
  EXPECT_GT(extents.size(), 100U);
}

TEST(SampleFamilies, TheScaleMultipliesThem) {
  SampleOptions options;
  options.scale = 3;
  const RawStore store(composeSampleStore(options));
  for (const char* index : {"CUSTI", "TICKI", "WARRI", "UNITI", "LUNITI", "FPLNI"})
    EXPECT_EQ(store.entries(index).size(), 3 * sampleStore().entries(index).size()) << index;
  EXPECT_EQ(slots(store, 301, 325).size(), 90U);
  EXPECT_EQ(slots(store, 451, 458).size() + slots(store, 501, 571).size(), 300U);
}

}  // namespace
}  // namespace dg
