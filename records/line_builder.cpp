#include "records/line_builder.h"

#include "engine/business_basic.h"
#include "engine/codec.h"
#include "engine/text_utilities.h"
#include "engine/walk_guard.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "platform/values/checked.h"
#include "platform/values/trap.h"
#include "records/failure_log.h"

namespace dg {

namespace {

constexpr std::string_view kRemark = "REM";
constexpr std::int32_t kLastPage = 1;

/// The part number as it is shown has the mask's own characters behind it.
constexpr TextField kPartAndMask{page_line::kPart.position,
                                 page_line::kPart.width + page_line::kDashMask.width};

std::string decoded(std::string_view line, TextField field) {
  return unpackText(bytesOf(field, line));
}

}  // namespace

std::string FormatPartNumber(std::string& part, const std::string& mask) {
  InsertDashes(part, mask);
  return part;
}

void LineBuilder::runTrapped(std::string_view routine, const std::function<void()>& body) {
  trapErrors(body, [&](const RunTimeError& error) {
    const Date moment = now();
    reportLine(moment.shortDateText() + " : " + moment.longTimeText() + " : " +
               std::string(format_.tag) + " : " + std::string(routine) +
               std::to_string(error.number()) + "  " + error.description() + "  " + error.source());
    error_ = true;
  });
}

std::shared_ptr<const DisplayLines> LineBuilder::DetailReturn() const {
  if (!lines_) throw RunTimeError(kObjectNotSet);
  return lines_;
}

std::int32_t& LineBuilder::pageEntry(std::int32_t page) {
  if (page < 0 || page > page_record::kHighestPage) throw RunTimeError(kSubscriptOutOfRange);
  return PageList_[static_cast<std::size_t>(page)];
}

void LineBuilder::BuildPage(std::int32_t& record) {
  runTrapped("BuildPage", [&] {
    const auto file = LogicalFileArgument(format_.file).resolve();
    WalkGuard guard(*file);
    for (;;) {
      guard.step(record);
      const PageRecord page = PageRecord::read(format_.file, record);
      const std::int32_t number = page.pageNumber();
      const std::int32_t next = checkedAbs(page.link());
      pageEntry(number) = record;
      record = next;
      if (number > pageEntry(0)) pageEntry(0) = number;
      if (number == kLastPage) return;
    }
  });
}

void LineBuilder::BuildDetail() {
  runTrapped("BuildDetail", [&] {
    clearLines();
    totals_[static_cast<std::size_t>(LineTotal::kPart)] = 0;
    totals_[static_cast<std::size_t>(LineTotal::kLabor)] = 0;
    // The last page is read ahead of all others: a chain without one fails here, before any line.
    PageRecord::read(format_.file, pageEntry(pageEntry(0)));
    DisplayLine line;  // lives through all pages: see decodeLine
    for (std::int32_t page = kLastPage; page <= pageEntry(0); ++page) {
      addPage(PageRecord::read(format_.file, pageEntry(page)), line);
    }
  });
}

void LineBuilder::addPage(const PageRecord& page, DisplayLine& line) {
  const std::int32_t count = page.lineCount();
  const std::int32_t request = format_.hasRequest ? page.requestNumber() : 0;
  for (std::int32_t number = 1; number <= count; ++number) {
    decodeLine(page.line(number), request, line);
    // In two steps: a copy that runs out of memory half-way would leave push_back a line to destroy
    // that was never made.
    lines_->emplace_back();
    lines_->back() = line;
  }
}

/// A remark sets its code and text only; unless the format says that it clears the rest, the line
/// before it shows through: description, quantity, price and cost stand again beside the remark.
void LineBuilder::decodeLine(std::string_view text, std::int32_t request, DisplayLine& line) {
  const std::string code = decoded(text, page_line::kCode);
  line[0] = code;
  if (code == kRemark) {
    line[1] = unpackText(middle(text, page_line::kRemark));
    if (format_.remarkClears) {
      line[2] = std::string();
      line[3] = line[4] = line[5] = 0;
    }
    if (format_.hasRequest) line[6] = request;
    return;
  }
  std::string part = decoded(text, kPartAndMask);
  line[1] = FormatPartNumber(part, decoded(text, page_line::kDashMask));
  line[2] = decoded(text, page_line::kDescription);
  // Whole units: the tenths are cut off before anything is multiplied.
  const std::int32_t quantity = Unpack(page_line::kQuantity, text) / 10;
  line[3] = quantity;
  const std::int32_t net = Unpack(page_line::kNet, text);
  line[4] = net;
  line[5] = Unpack(page_line::kCost, text);
  if (format_.hasRequest) line[6] = request;

  LineTotal kind = LineTotal::kPart;
  for (const LineFormat::Code& known : format_.codes) {
    if (known.code == code) kind = known.total;
  }
  totals_[static_cast<std::size_t>(kind)] += static_cast<double>(net) * quantity;
}

}  // namespace dg
