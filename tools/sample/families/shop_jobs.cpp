#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/families/families.h"
#include "tools/sample/families/paged_documents.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/sample_world.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

constexpr int kJobsPerScale = 80;
constexpr int kFreedSlotsPerScale = 20;
constexpr std::int32_t kMostJobs = 5'000;
constexpr int kMostPages = 4;
constexpr std::int32_t kJobType = 80;

/// Jobs go through these states, billed ones and those that no letter stands for included.
constexpr std::string_view kStates = "1O2C3S4B5X C1O2OC3O";
constexpr char kComplete = 'C';
constexpr char kBilled = 'B';

/// What the suite writes for a call date that was blanked.
constexpr std::int32_t kBlankCallDate = 40'699;
constexpr std::int32_t kCallResults = 5;

/// Job numbers of both ranges of the job table, in random order: half of them below 1000, as long
/// as there are so many.
std::vector<std::int32_t> jobNumbers(Random& random, std::int32_t count) {
  constexpr std::int32_t kFirstOfSecondRange = 1'000;
  std::vector<std::int32_t> low(kFirstOfSecondRange - 1);
  std::iota(low.begin(), low.end(), 1);
  std::vector<std::int32_t> high(ControlFile::kHighestJob - kFirstOfSecondRange + 1);
  std::iota(high.begin(), high.end(), kFirstOfSecondRange);
  random.shuffle(low);
  random.shuffle(high);
  const std::size_t half = std::min(static_cast<std::size_t>(count) / 2, low.size());
  low.resize(half);
  high.resize(static_cast<std::size_t>(count) - half);
  low.insert(low.end(), high.begin(), high.end());
  random.shuffle(low);
  return low;
}

/// Day of a call to the customer: none, a blanked one or a real one.
void putCall(RecordWriter& record, Random& random, Date asOf, int call) {
  const int datePosition = 21 + 2 * call;
  const std::int32_t kind = random.between(1, 3);
  if (kind == 1) return;
  if (kind == 2) {
    record.integer(datePosition, 'C', kBlankCallDate);
    return;
  }
  record.date(datePosition, 'J', asOf.plusDays(-random.between(0, 60)))
      .integer(120 + call, 'B', random.between(0, kCallResults));
}

void putEquipment(RecordWriter& record, Random& random) {
  record.integer(14, 'D', random.between(0, 40'000))
      .packed(27, 10, makeName(random))
      .packed(37, 14, machineName(random))
      .packed(51, 12, partNumber(random, random.between(6, 14)));
  if (random.chance(40)) record.packed(63, 12, partNumber(random, random.between(6, 10)));
}

void putJob(RecordWriter& record, Random& random, const SampleOptions& options,
            const SampleWorld& world, std::int32_t job, char state, std::int32_t subTotal) {
  const Date in = options.asOf.plusDays(-random.between(0, 120));
  record.integer(3, 'L', accountFor(random, world))
      .integer(10, 'C', random.chance(10) ? random.between(100, 4'000) : 0)
      .date(17, 'J', in.plusDays(random.between(0, 5)))
      .integer(75, 'L', job * 10 + random.between(0, 9))
      .integer(79, 'B', byteNumber(random.pick(world.countermen).number))
      .integer(81, 'C', random.chance(30) ? random.between(20, 900) : 0)
      .date(83, 'J', in.plusDays(random.between(1, 20)));
  putEquipment(record, random);
  for (int call = 0; call < 3; ++call)
    putCall(record, random, options.asOf, call);
  if (state == kComplete || state == kBilled)
    record.date(93, 'J', in.plusDays(random.between(0, 9)));
  record.date(95, 'J', in)
      .raw(99, 1, std::string_view(&state, 1))
      .integer(101, 'C', job)
      .integer(103, 'C', random.between(8, 17) * 100)
      .integer(113, 'B', byteNumber(random.pick(world.countermen).number))
      .integer(114, 'B', random.between(1, 20))
      .integer(116, 'B', 128)
      .raw(119, 1, "N");
  if (random.chance(25)) record.raw(119, 1, "Y").integer(117, 'C', random.between(1, 999));
  record.integer(123, 'B', random.between(1, 4))
      .integer(125, 'L', subTotal)
      .integer(135, 'C', 650)
      .integer(137, 'L', subTotal / 100 * 65 / 10)
      .raw(147, 2, "RT");
}

/// A job of one to four pages; its header stands on the page that a walk starts at. Returns that
/// page's record.
std::int32_t addJob(ScatteredRecords& records, Random& random, const SampleOptions& options,
                    const SampleWorld& world, std::int32_t job, std::size_t place) {
  const char state = kStates[place % kStates.size()];
  const auto pages = static_cast<int>(place / kStates.size() % kMostPages) + 1;
  const PagedDocument document = makePagedDocument(random, world, pages);
  return writePagedDocument(
      records, random, document, 0, [&](RecordWriter& record, const DocumentPage& page) {
        record.integer(1, 'J', kJobType).integer(97, 'B', page.number - 1);
        if (page.number != document.first().number) return;
        putJob(record, random, options, world, job, state, document.subTotal());
      });
}

}  // namespace

void addShopJobs(StoreBuilder& builder, Random& random, const SampleOptions& options,
                 SampleWorld& world) {
  ScatteredRecords records(builder.records("INVOL"), random);
  const std::int32_t count = std::min(options.scale * kJobsPerScale, kMostJobs);
  const std::int32_t freed = std::min(options.scale * kFreedSlotsPerScale, kMostJobs);
  const std::vector<std::int32_t> numbers = jobNumbers(random, count + freed);
  for (std::size_t place = 0; place < numbers.size(); ++place) {
    const std::int32_t job = numbers[place];
    const bool used = place < static_cast<std::size_t>(count);
    builder.controlFile().setJob(job,
                                 used ? addJob(records, random, options, world, job, place) : -1);
  }
}

}  // namespace dg::sample
