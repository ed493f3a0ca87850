#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/values/run_time_error.h"
#include "tests/support/error_number.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/random.h"

namespace dg::sample {
namespace {

/// Keys of `length` bytes in order.
std::vector<IndexEntry> makeEntries(int count, int length) {
  std::vector<IndexEntry> entries;
  for (int i = 0; i < count; ++i) {
    std::string key(static_cast<std::size_t>(length), '\0');
    int value = i;
    for (auto byte = key.rbegin(); byte != key.rend() && value > 0; ++byte, value /= 256)
      *byte = static_cast<char>(value % 256);
    entries.push_back({key, i + 1});
  }
  return entries;
}

int raisedBy(const std::vector<IndexEntry>& entries, const IndexShape& shape) {
  return errorNumber([&] { buildIndex(entries, shape); });
}

// That an index is sound and holds its entries is tested where the engine and the check read it.

TEST(SampleIndexWriter, LeavesSpareBlocksAndScattersTheNodesBeforeThem) {
  const std::vector<IndexEntry> entries = makeEntries(2000, 14);
  Random random(1, "scatter");
  IndexShape shape{.keyLength = 14, .fillPercent = 70};
  const IndexImage plain = buildIndex(entries, shape);
  shape.spareBlocks = 5;
  const IndexImage spare = buildIndex(entries, shape);
  EXPECT_EQ(spare.lastBlock, plain.lastBlock + 5);
  EXPECT_EQ(spare.bytes.size(), (static_cast<std::size_t>(spare.lastBlock) + 1) * 512);
  shape.scatter = &random;
  EXPECT_NE(buildIndex(entries, shape).bytes, spare.bytes);
}

TEST(SampleIndexWriter, FillsNodesFurtherWhereTheirNumbersWouldRunOut) {
  const IndexImage image =
      buildIndex(makeEntries(400'000, 14), {.keyLength = 14, .fillPercent = 1});
  EXPECT_LT(image.lastBlock, 65'535);
}

TEST(SampleIndexWriter, RefusesKeysThatNoIndexHolds) {
  EXPECT_EQ(raisedBy({}, {.keyLength = 251}), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({}, {.keyLength = 0}), kInvalidProcedureCall);
  const IndexShape shape{.keyLength = 1};
  EXPECT_EQ(raisedBy({{"b", 1}, {"a", 2}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"a", 1}, {"a", 2}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"ab", 1}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"\xff", 1}}, shape), kInvalidProcedureCall);
  EXPECT_EQ(raisedBy({{"\x7f", 1}, {"\x80", 2}}, shape), 0) << "bytes count as unsigned";
  EXPECT_EQ(raisedBy(makeEntries(140'000, 250), {.keyLength = 250}), kOverflow);
}

}  // namespace
}  // namespace dg::sample
