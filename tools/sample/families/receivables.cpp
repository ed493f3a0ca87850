#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/sample/families/families.h"
#include "tools/sample/random.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

// The balances stand in lines 2 to 29; line 30 is their total, whatever the labels say.
constexpr std::array<std::string_view, 28> kBalances = {"Previous Balance",
                                                        "Todays Charges",
                                                        "Todays Payments",
                                                        "Finance Charges",
                                                        "Adjustments",
                                                        "Current",
                                                        "Over 30 Days",
                                                        "Over 60 Days",
                                                        "Over 90 Days",
                                                        "Over 120 Days",
                                                        "Unapplied Payments",
                                                        "Deposits Held",
                                                        "Open Item Accounts",
                                                        "Balance Fwd Accounts",
                                                        "Retail Accounts",
                                                        "Wholesale Accounts",
                                                        "Government Accounts",
                                                        "Employee Accounts",
                                                        "Installment Contracts",
                                                        "Leases",
                                                        "Credit Cards",
                                                        "Warranty Receivable",
                                                        "Freight Claims",
                                                        "Layaways",
                                                        "Disputed Items",
                                                        "Collections",
                                                        "Legal",
                                                        "Bad Checks"};
constexpr std::string_view kTotal = "Total Receivables";
constexpr int kFuturePeriods = 6;

void addLine(std::string& text, std::string_view label, std::int64_t cents) {
  text.append(label).append(",").append(std::to_string(cents)).append("\r\n");
}

}  // namespace

void addReceivables(StoreBuilder& builder, Random& random, const SampleOptions& options,
                    SampleWorld&) {
  std::string text = "A/R SUMMARY," + options.asOf.shortDateText() + "\r\n";
  std::int64_t total = 0;
  for (const std::string_view label : kBalances) {
    std::int64_t cents = random.between(0, 4'000'000);
    if (random.chance(15)) cents = -cents / 10;
    if (random.chance(10)) cents = 0;
    total += cents;
    addLine(text, label, cents);
  }
  addLine(text, kTotal, total);
  for (int period = 1; period <= kFuturePeriods; ++period)
    addLine(text, "Period " + std::to_string(period), random.between(-5'000, 900'000));
  builder.addFile("DARR.TRVN", text);
}

}  // namespace dg::sample
