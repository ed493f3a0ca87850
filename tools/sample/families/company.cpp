#include <array>
#include <string_view>

#include "engine/open_file.h"
#include "tools/sample/families/families.h"
#include "tools/sample/names.h"
#include "tools/sample/random.h"
#include "tools/sample/record_writer.h"
#include "tools/sample/store_builder.h"

namespace dg::sample {

namespace {

// Blocks of the control file and where in them the fields lie.
constexpr int kCompanyBlock = 0;
constexpr int kCompanyMonth = 11;
constexpr int kStoreNameBlock = 1;
constexpr int kStoreNamePosition = 151;
constexpr int kStoreNameWidth = 35;
constexpr int kCaptionBlock = 4;
constexpr int kCaptionWidth = 8;
constexpr std::array kCaptionPositions = {433, 453, 473, 493};
constexpr int kOptionBlock = 401;
constexpr std::array kWarrantySegmentOptions = {317, 320};
constexpr int kCallResultBlock = 446;
constexpr int kCallResultWidth = 12;
constexpr int kStatusBlock = 450;
constexpr int kStatusPosition = 432;
constexpr int kStatusWidth = 15;

constexpr std::array<std::string_view, 4> kCaptions = {"Hull ID", "Trailer", "Hours", "Key No."};
constexpr std::array<std::string_view, 5> kCallResults = {"No answer", "Left message", "Will call",
                                                          "Approved", "Declined"};
constexpr std::array<std::string_view, 5> kStatuses = {"Waiting parts", "Estimate", "In process",
                                                       "On hold", "Call customer"};

/// Writes names of one width one behind the other.
template <class Names>
void putList(RecordWriter& block, int position, int width, const Names& names) {
  for (const std::string_view name : names) {
    block.raw(position, width, name);
    position += width;
  }
}

std::string optionBlock(bool warrantySegments) {
  RecordWriter block(kBlockSize, 'N');
  for (const int position : kWarrantySegmentOptions)
    block.raw(position, 1, warrantySegments ? "Y" : "N");
  return block.bytes();
}

}  // namespace

void addCompany(StoreBuilder& builder, Random& random, const SampleOptions& options, SampleWorld&) {
  ControlFile& control = builder.controlFile();
  control.setBlock(
      kCompanyBlock,
      RecordWriter(kBlockSize).integer(kCompanyMonth, 'B', options.asOf.month()).bytes());
  control.setBlock(kStoreNameBlock,
                   RecordWriter(kBlockSize)
                       .raw(kStoreNamePosition, kStoreNameWidth, dealershipName(random))
                       .bytes());

  RecordWriter captions(kBlockSize);
  for (std::size_t i = 0; i < kCaptions.size(); ++i)
    captions.raw(kCaptionPositions[i], kCaptionWidth, kCaptions[i]);
  control.setBlock(kCaptionBlock, captions.bytes());

  control.setBlock(kOptionBlock, optionBlock(options.warrantySegments));

  RecordWriter callResults(kBlockSize);
  putList(callResults, 1, kCallResultWidth, kCallResults);
  control.setBlock(kCallResultBlock, callResults.bytes());

  RecordWriter statuses(kBlockSize);
  putList(statuses, kStatusPosition, kStatusWidth, kStatuses);
  control.setBlock(kStatusBlock, statuses.bytes());
}

}  // namespace dg::sample
