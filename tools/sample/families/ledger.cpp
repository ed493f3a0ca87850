#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr std::array<std::int32_t, 2> kCompanies = {1, 2};

/// A part of the chart: accounts of one kind, and how many of each company in the smallest store.
struct ChartSection {
  std::string_view kind;  ///< "A" and "L" can be chosen for a view, others cannot
  std::int32_t firstAccount;
  std::int32_t lastAccount;
  int accounts;
  std::string_view setting;  ///< section of the saved list; empty for none
};
constexpr ChartSection kSections[] = {
    {"A", 10'000, 19'999, 18, "Asset"},
    {"L", 20'000, 29'999, 9, "Liability"},
    {"I", 40'000, 49'999, 6, ""},
    {"E", 60'000, 69'999, 6, ""},
};
constexpr int kMostPerSection = 3'000;
constexpr std::size_t kMostSaved = 60;         // accounts in a saved list
constexpr std::string_view kGone = "0199999";  // saved once, no longer in the chart

constexpr std::array<std::string_view, 20> kAccountNames = {"CASH ON HAND",
                                                            "CHECKING",
                                                            "PAYROLL ACCOUNT",
                                                            "TRADE RECEIVABLE",
                                                            "NOTES",
                                                            "PARTS INVENTORY",
                                                            "WHOLE GOODS",
                                                            "WORK IN PROCESS",
                                                            "PREPAID INSURANCE",
                                                            "SHOP EQUIPMENT",
                                                            "FLOOR PLAN",
                                                            "DEPOSITS HELD",
                                                            "SALES TAX",
                                                            "ACCRUED PAYROLL",
                                                            "WARRANTY CLAIMS",
                                                            "FREIGHT IN TRANSIT",
                                                            "VEHICLES & TRAILERS",
                                                            "LEASEHOLD IMPROV.",
                                                            "CUSTOMER CREDITS",
                                                            "INTEREST"};
constexpr std::array<std::string_view, 6> kJournals = {"CD", "CR", "GJ", "PJ", "SJ", "PR"};

/// What an account's details are like. The first accounts of a section go through all kinds, so
/// that every store has each.
enum class Postings { kNone, kCredits, kMillions, kCreditMillions, kSingle, kUsual };
constexpr std::size_t kPostingKinds = 6;

Postings postingsFor(Random& random, std::size_t account) {
  if (account < kPostingKinds) return static_cast<Postings>(account);
  return random.chance(12) ? Postings::kNone : Postings::kUsual;
}

struct Account {
  std::int32_t company = 0;
  std::int32_t number = 0;
};

/// An account as the saved lists have it: two digits of company, then the number.
std::string entryText(const Account& account) {
  const std::string company = std::to_string(account.company);
  return std::string(2 - company.size(), '0') + company + std::to_string(account.number);
}

/// The chart and the details in the making.
class Ledger {
 public:
  Ledger(StoreBuilder& builder, Random& random, const SampleOptions& options)
      : builder_(builder),
        random_(random),
        options_(options),
        chart_(builder.records("CHRTL")),
        details_(builder.records("GLDTL")) {}

  void addAccount(const Account& account, std::string_view kind, std::string_view description) {
    if (random_.chance(8)) chart_.addFreed();
    const std::int32_t record = chart_.add(RecordWriter(chart_.recordLength())
                                               .integer(1, 'J', 1)
                                               .integer(3, 'C', account.company)
                                               .integer(5, 'L', account.number)
                                               .raw(9, 1, kind)
                                               .raw(10, 30, description)
                                               .bytes());
    builder_.index("CHRTI").add(
        RecordWriter(6).integer(1, 'C', account.company).integer(3, 'L', account.number).bytes(),
        record);
  }

  void addPostings(const Account& account, Postings kind) {
    if (kind == Postings::kNone) return;
    const int count = kind == Postings::kSingle ? 1 : random_.between(2, 9);
    for (int i = 0; i < count; ++i)
      addPosting(account, kind);
  }

 private:
  void addPosting(const Account& account, Postings kind) {
    const bool credit = kind == Postings::kCredits || kind == Postings::kCreditMillions ||
                        (kind == Postings::kUsual && random_.chance(35));
    const bool millions = kind == Postings::kMillions || kind == Postings::kCreditMillions ||
                          (kind == Postings::kUsual && random_.chance(10));
    const std::string_view journal = random_.pick(kJournals);
    const std::int32_t record =
        details_.add(RecordWriter(details_.recordLength())
                         .integer(1, 'J', 1)
                         .integer(3, 'C', account.company)
                         .integer(5, 'L', account.number)
                         .raw(9, 2, journal)
                         .integer(11, 'C', random_.between(1, 999))
                         .date(13, 'J', options_.asOf.plusDays(-random_.between(0, 360)))
                         .raw(15, 30, "POSTING " + std::to_string(details_.nextNumber()))
                         .integer(53, 'B', credit ? 1 : 0)
                         .integer(54, 'C', millions ? random_.between(1, 12) : 0)
                         .integer(56, 'L', random_.between(1, 9'999'999))
                         .bytes());
    // Behind the account stand the journal and a running number. A reader asks for the account
    // followed by blanks, which come before any letter.
    builder_.index("GLDTI").add(RecordWriter(10)
                                    .integer(1, 'C', account.company)
                                    .integer(3, 'L', account.number)
                                    .raw(7, 2, journal)
                                    .integer(9, 'C', record % 65'536)
                                    .bytes(),
                                record);
  }

  StoreBuilder& builder_;
  Random& random_;
  const SampleOptions& options_;
  RecordFile& chart_;
  RecordFile& details_;
};

/// `count` account numbers of a section, in random order.
std::vector<std::int32_t> accountNumbers(Random& random, const ChartSection& section, int count) {
  std::vector<std::int32_t> numbers;
  for (std::int32_t number = section.firstAccount; number <= section.lastAccount; ++number)
    numbers.push_back(number);
  random.shuffle(numbers);
  numbers.resize(static_cast<std::size_t>(count));
  return numbers;
}

void saveList(StoreBuilder& builder, Random& random, std::string_view section,
              std::vector<std::string> entries) {
  random.shuffle(entries);
  std::string list;
  for (const std::string& entry : entries) {
    if (!list.empty()) list += ',';
    list += entry;
  }
  builder.saveSetting(section, "Accounts", list);
}

}  // namespace

void addLedger(StoreBuilder& builder, Random& random, const SampleOptions& options, SampleWorld&) {
  Ledger ledger(builder, random, options);
  // Its details end the index; the view shows such an account without a balance.
  const Account last{.company = kCompanies.back(), .number = 99'000};
  for (const ChartSection& section : kSections) {
    std::vector<std::string> saved;
    for (const std::int32_t company : kCompanies) {
      const int count = std::min(options.scale * section.accounts, kMostPerSection);
      std::size_t place = 0;
      for (const std::int32_t number : accountNumbers(random, section, count)) {
        const Account account{.company = company, .number = number};
        ledger.addAccount(account, section.kind, random.pick(kAccountNames));
        ledger.addPostings(account, postingsFor(random, place));
        if (place < kPostingKinds || random.chance(85)) saved.push_back(entryText(account));
        ++place;
      }
    }
    if (section.setting.empty()) continue;
    saved.resize(std::min(saved.size(), kMostSaved));
    saved.emplace_back(kGone);
    if (section.kind == "L") saved.push_back(entryText(last));
    saveList(builder, random, section.setting, std::move(saved));
  }
  ledger.addAccount(last, "L", "SUSPENSE CLEARING");
  ledger.addPostings(last, Postings::kUsual);
}

}  // namespace dg::sample
