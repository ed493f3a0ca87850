#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "tools/sample/families/families.h"
#include "tools/sample/families/paged_documents.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kClaimsPerScale = 40;
constexpr int kMostPages = 3;
constexpr std::int32_t kFirstReference = 2'000;
constexpr std::int32_t kMostSegments = 3;
constexpr std::int32_t kSegmentDigits = 100;
/// A claim's own record has room for two lines: what stands behind them is the claim.
constexpr std::size_t kLinesBesideClaim = 2;
/// 1 January 1968 as digits: the empty date.
constexpr std::int32_t kEmptyDateDigits = 10'168;

/// Where a claim stands. Only billed ones are listed; the claims go through all of these.
enum class Stage { kBilled, kDeleted, kOtherKind, kOpen, kBlankDate, kSettled };
constexpr std::array kStages = {
    Stage::kBilled, Stage::kBilled, Stage::kSettled, Stage::kBilled,   Stage::kOpen,
    Stage::kBilled, Stage::kBilled, Stage::kDeleted, Stage::kBilled,   Stage::kBlankDate,
    Stage::kBilled, Stage::kBilled, Stage::kSettled, Stage::kOtherKind};

constexpr std::array<std::string_view, 6> kCauses = {"ENGINE LOST POWER UNDER LOAD",
                                                     "CRACKED WELD AT DECK HANGER",
                                                     "FUEL PUMP LEAKS",
                                                     "STARTER DOES NOT ENGAGE",
                                                     "BEARING SEIZED",
                                                     "IGNITION MODULE FAILED"};

std::int32_t statusOf(Stage stage) {
  if (stage == Stage::kDeleted) return 0;
  return stage == Stage::kOtherKind ? 2 : 1;
}

void putDates(RecordWriter& record, Random& random, Date asOf, Stage stage) {
  const Date failed = asOf.plusDays(-random.between(90, 300));
  const Date billed = failed.plusDays(random.between(5, 80));
  record.date(272, 'D', failed).date(284, 'D', failed.plusDays(-random.between(20, 600)));
  if (stage == Stage::kOpen) return;
  if (stage == Stage::kBlankDate) {
    record.integer(403, 'D', kEmptyDateDigits);
    return;
  }
  record.date(403, 'D', billed).date(406, 'D', billed);
  if (stage == Stage::kSettled) record.date(401, 'J', billed.plusDays(random.between(1, 10)));
}

void putClaim(RecordWriter& record, Random& random, const SampleOptions& options,
              const SampleWorld& world, std::int32_t reference, Stage stage) {
  const SampleCustomer& customer = random.pick(world.customers);
  const std::int32_t account = accountFor(random, world);
  const std::string phone = phoneNumber(random);
  record.integer(1, 'C', statusOf(stage))
      .integer(3, 'C', random.between(1, 60))
      .integer(5, 'L', reference)
      .packed(9, 40, random.pick(kCauses))
      .packed(49, 40, random.chance(40) ? "SEE NOTES" : "")
      .packed(251, 8, partNumber(random, random.between(5, 12)))
      .packed(259, 10, partNumber(random, random.between(5, 15)))
      .integer(269, 'D', random.between(1, 900))
      .integer(276, 'C', std::stoi(phone.substr(0, 3)))
      .integer(278, 'L', std::stoi(phone.substr(3)))
      .integer(282, 'C', random.between(0, 80));
  putDates(record, random, options.asOf, stage);
  record.packed(304, 20, companyName(random))
      .packed(324, 20, streetAddress(random))
      .packed(354, 16, townName(random))
      .packed(370, 2, stateCode(random))
      .packed(372, 6, zipCode(random))
      .integer(409, 'L', random.chance(90) ? customer.account : account)
      .packed(413, 20, customer.name)
      .packed(433, 10, makeName(random))
      .packed(443, 14, machineName(random))
      .packed(457, 12, partNumber(random, random.between(6, 14)))
      .packed(469, 12, random.chance(40) ? partNumber(random, 9) : "")
      .integer(481, 'L', random.between(1'000, 90'000))
      .raw(485, 20, "")
      .integer(505, 'B', random.between(1, 4))
      .integer(507, 'C', random.between(1, 2'000));
}

/// A claim of one to three pages, which stands on the page that a walk starts at.
std::int32_t addClaim(ScatteredRecords& records, Random& random, const SampleOptions& options,
                      const SampleWorld& world, std::size_t place, std::int32_t reference) {
  const Stage stage = kStages[place % kStages.size()];
  PagedDocument document =
      makePagedDocument(random, world, static_cast<int>(place / 2 % kMostPages) + 1);
  std::vector<PageLine>& lines = document.first().lines;
  lines.resize(std::min(lines.size(), kLinesBesideClaim));
  const int claimPage = document.first().number;
  return writePagedDocument(records, random, document, 0,
                            [&](RecordWriter& record, const DocumentPage& page) {
                              if (page.number == claimPage) {
                                putClaim(record, random, options, world, reference, stage);
                              } else {
                                record.integer(1, 'C', 1).integer(5, 'L', reference);
                              }
                            });
}

}  // namespace

void addWarrantyClaims(StoreBuilder& builder, Random& random, const SampleOptions& options,
                       SampleWorld& world) {
  ScatteredRecords records(builder.records("WARRL"), random);
  IndexFile& byReference = builder.index("WARRI");
  const auto count = static_cast<std::size_t>(options.scale) * kClaimsPerScale;
  std::int32_t reference = kFirstReference;
  std::int32_t segment = 0;
  std::int32_t segments = 0;  // of this shop reference
  for (std::size_t place = 0; place < count; ++place) {
    if (segment == segments) {
      reference += random.between(1, 300);
      segment = 0;
      segments = options.warrantySegments ? random.between(1, kMostSegments) : 1;
    }
    ++segment;
    const std::int32_t record = addClaim(records, random, options, world, place, reference);
    const std::int32_t key =
        options.warrantySegments ? reference * kSegmentDigits + segment : reference;
    byReference.add(integerKey('L', key, 4), record);
  }
}

}  // namespace dg::sample
