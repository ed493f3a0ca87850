#include "records/order_pages.h"

#include <utility>

#include "engine/business_basic.h"
#include "engine/walk_guard.h"
#include "platform/values/checked.h"
#include "records/file_names.h"

namespace dg {

namespace {

constexpr std::int32_t kFirstFollowingPage = 2;

PageRecord nextPage(const PageRecord& page, WalkGuard& guard) {
  const std::int32_t record = checkedAbs(page.link());
  guard.step(record);
  return PageRecord::read(files::kInvoices, record);
}

}  // namespace

PageRecord firstPage(PageRecord page) {
  const auto file = LogicalFileArgument(files::kInvoices).resolve();
  WalkGuard guard(*file);
  while (page.pageNumber() >= kFirstFollowingPage) {
    page = nextPage(page, guard);
  }
  return page;
}

std::int32_t ItemCount(PageRecord page) {
  const auto file = LogicalFileArgument(files::kInvoices).resolve();
  WalkGuard guard(*file);
  std::int32_t count = page.lineCount();
  while (page.pageNumber() >= kFirstFollowingPage) {
    page = nextPage(page, guard);
    count = checkedAdd(count, page.lineCount());
  }
  return count;
}

}  // namespace dg
