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

namespace dg::test {
namespace {

using testing::Each;
using testing::Gt;
using testing::SizeIs;

constexpr std::size_t kBlock = 512;

const RawStore& sampleStore() {
  static const RawStore store(composeSampleStore({}));
  return store;
}

/// What a document's pages hold, followed from the record that is entered for it.
struct Chain {
  std::vector<int> pages;  ///< in the order in which a walk meets them
  bool hasNegativeLink = false;
  std::string first;  ///< bytes of the entered record
  std::string pageOne;
};

Chain follow(const RawStore& store, const char* file, std::int64_t record) {
  Chain chain;
  for (;;) {
    const std::string page = store.record(file, static_cast<std::int32_t>(std::abs(record)));
    chain.hasNegativeLink = chain.hasNegativeLink || record < 0;
    if (chain.pages.empty()) chain.first = page;
    chain.pages.push_back(static_cast<int>(unsignedAt(page, 115, 1)));
    if (chain.pages.back() == 1 || chain.pages.size() > 4) {
      chain.pageOne = page;
      return chain;
    }
    record = signedAt(page, 110, 3);
  }
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

// What other tests over example stores have their power from: that each case occurs at all. Whether
// the bytes are sound is for the check, whether they add up for the views.

TEST(SampleFamilies, ShopJobsAndOrdersComeInAllStatesAndLengths) {
  const RawStore& store = sampleStore();
  std::map<char, int> states;
  std::set<std::size_t> pages;
  int jumbled = 0;
  int negativeLinks = 0;
  int freed = 0;
  auto jobs = slots(store, 451, 458);
  const std::size_t below = jobs.size();
  EXPECT_GE(below, 30U);
  jobs.merge(slots(store, 501, 571));
  EXPECT_GE(jobs.size() - below, 30U);
  for (const auto& [at, record] : jobs) {
    if (record < 1) {
      ++freed;
      continue;
    }
    const Chain chain = follow(store, "INVOL", record);
    ++states[chain.first.at(98)];
    pages.insert(chain.pages.size());
    jumbled += std::is_sorted(chain.pages.rbegin(), chain.pages.rend()) ? 0 : 1;
    negativeLinks += chain.hasNegativeLink ? 1 : 0;
  }
  for (const char state : std::string("12345OSCBX "))
    EXPECT_GT(states[state], 0) << state;
  EXPECT_EQ(pages, (std::set<std::size_t>{1, 2, 3, 4}));
  EXPECT_THAT((std::vector{jumbled, negativeLinks, freed}), Each(Gt(3)));

  std::multiset<std::int64_t> types;
  const auto addType = [&](std::int64_t record) {
    types.insert(signedAt(follow(store, "INVOL", record).pageOne, 1, 2));
  };
  for (const auto& [key, record] : store.entries("TICKI"))
    addType(record);
  for (const auto& [at, record] : slots(store, 301, 325))
    addType(record);
  for (const std::int64_t type : {1, 2, 3, 13, 17, 19, 99, 80, 81})
    EXPECT_GT(types.count(type), 0U) << type;
}

TEST(SampleFamilies, ClaimsUnitsAndFinancedStockAreListedOrPassedOverForEveryReason) {
  for (const bool segments : {false, true}) {
    const RawStore store(composeSampleStore({.warrantySegments = segments}));
    std::map<std::string, int> claims;
    for (const auto& [key, record] : store.entries("WARRI")) {
      const std::string claim = store.record("WARRL", record);
      const std::int64_t kind = unsignedAt(claim, 1, 2);
      const std::int64_t billed = unsignedAt(claim, 403, 3);
      const bool settled = unsignedAt(claim, 401, 2) != 0;
      if (kind != 1) ++claims[kind == 0 ? "deleted" : "kind"];
      if (billed <= 10'168) ++claims[billed == 0 ? "open" : "no date"];
      if (settled) ++claims["settled"];
      if (kind == 1 && billed > 10'168 && !settled) ++claims["listed"];
    }
    EXPECT_THAT(claims, SizeIs(6));
    EXPECT_GE(claims["listed"], 20);
  }
  const RawStore& store = sampleStore();
  std::map<std::string, int> units;
  for (const auto& [key, record] : store.entries("LUNITI")) {
    const std::string unit = store.record("UNITL", record);
    ++units[std::string(unsignedAt(unit, 149, 2) > 1 ? "sold" : "here") +
            (signedAt(unit, 505, 4) == 0 ? "" : " with a ledger")];
  }
  EXPECT_THAT(units, SizeIs(4));

  std::set<std::string> parts;
  for (const auto& [key, record] : store.entries("PARTI"))
    parts.insert(key);
  std::map<std::string, int> financed;
  for (const auto& [key, record] : store.entries("FPLNI")) {
    const std::string entry = store.record("FPLNL", record);
    const bool sold = unsignedAt(entry, 41, 2) != 0;
    const bool invoiced = unsignedAt(entry, 60, 4) != 0;
    if (sold || invoiced) {
      ++financed[std::string(sold ? "sold " : "") + (invoiced ? "invoiced" : "")];
    } else if (signedAt(entry, 51, 3) == 0) {
      ++financed[parts.contains(entry.substr(4, 14)) ? "cost of part" : "no cost"];
    } else {
      ++financed["open"];
    }
  }
  EXPECT_THAT(financed, SizeIs(6));
}

}  // namespace
}  // namespace dg::test
