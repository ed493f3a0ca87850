#include "records/ledger.h"

namespace dg {

namespace {

// What both keys begin with.
constexpr NumberField kCompany{'C', 1};
constexpr NumberField kAccount{'L', 3};
constexpr std::size_t kChartKeyLength = 6;
constexpr std::size_t kDetailKeyLength = 10;

std::string accountKey(std::string key, std::int32_t company, std::int32_t account) {
  Pack(kCompany, key, company);
  Pack(kAccount, key, account);
  return key;
}

}  // namespace

std::string chartKey(std::int32_t company, std::int32_t account) {
  return accountKey(std::string(kChartKeyLength, '\0'), company, account);
}

/// Behind the account stand blanks, which no real key has: the walk begins at the next one.
std::string ledgerDetailKey(std::int32_t company, std::int32_t account) {
  return accountKey(std::string(kDetailKeyLength, ' '), company, account);
}

}  // namespace dg
