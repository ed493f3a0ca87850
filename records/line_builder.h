#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/values/variant.h"
#include "records/page_record.h"

namespace dg {

/// A line of a document as its detail window shows it, by index: 0 line code, 1 part number or
/// remark, 2 description, 3 quantity in whole units, 4 net price and 5 cost in hundredths, 6
/// request number of the page from 0 (shop jobs only).
using DisplayLine = std::array<Variant, 7>;
using DisplayLines = std::vector<DisplayLine>;

/// The totals that a line's code can add to.
enum class LineTotal { kPart, kLabor, kFreight, kMisc };
inline constexpr std::size_t kDetailTotals = 4;

/// What differs between the builders, as data.
struct LineFormat {
  struct Code {
    std::string_view code;
    LineTotal total;
  };
  const char* file;             ///< logical file of the pages
  std::string_view tag;         ///< what the log calls the builder
  std::span<const Code> codes;  ///< line codes with a total of their own; all others are parts
  bool hasRequest;              ///< lines carry the request number of their page
  bool remarkClears;            ///< a remark empties what it does not set; else it carries it over
};

/// The codes of shop jobs and orders.
inline constexpr LineFormat::Code kInvoiceCodes[] = {
    {"500", LineTotal::kLabor},
    {"502", LineTotal::kFreight},
    {"550", LineTotal::kMisc},
};

/// Puts dashes into a part number by its line's mask; the first argument is changed as well.
std::string FormatPartNumber(std::string& part, const std::string& mask);

/// Turns a document's chain of page records into display lines in page order, and sums them. The
/// three builders derive from it and add how they find the first record.
class LineBuilder {
 public:
  /// The lines; they stay valid after the builder is gone. Raises 91 while there are none: before
  /// GetDetail, and for a job or order whose first record could not be read.
  std::shared_ptr<const DisplayLines> DetailReturn() const;
  /// Whether anything failed. What had been collected by then stays.
  bool DetailError() const { return error_; }

 protected:
  explicit LineBuilder(const LineFormat& format) : format_(format) {}
  ~LineBuilder() = default;

  /// Runs a routine under its trap: a failure goes to the log as one line, and marks the builder.
  void runTrapped(std::string_view routine, const std::function<void()>& body);
  /// Walks the chain from `record`, which changes, back to page 1.
  void BuildPage(std::int32_t& record);
  /// Reads the pages found, in page order, into display lines.
  void BuildDetail();

  void clearError() { error_ = false; }
  void clearLines() { lines_ = std::make_shared<DisplayLines>(); }
  double total(LineTotal kind) const { return totals_[static_cast<std::size_t>(kind)]; }

 private:
  std::int32_t& pageEntry(std::int32_t page);
  void addPage(const PageRecord& page, DisplayLine& line);
  void decodeLine(std::string_view text, std::int32_t request, DisplayLine& line);

  const LineFormat& format_;
  std::shared_ptr<DisplayLines> lines_;
  /// Record number of each page; entry 0 is the highest page number met.
  std::array<std::int32_t, page_record::kHighestPage + 1> PageList_{};
  std::array<double, kDetailTotals> totals_{};  ///< hundredths
  bool error_ = false;
};

}  // namespace dg
