#include "desktop/recap/todays_work.h"

#include <charconv>

#include "platform/clock.h"
#include "platform/settings.h"

namespace dg {

namespace {

constexpr const char* kApplication = "DealerGauge";
constexpr const char* kSection = "Attention";

std::size_t place(AttentionKind kind) {
  return static_cast<std::size_t>(kind);
}

/// The user's limits; what is no number of days in the settings counts as not set.
AttentionLimits keptLimits() {
  AttentionLimits limits = defaultLimits();
  for (const KindEntry& entry : attentionKinds()) {
    if (!entry.days) continue;
    const std::string text = GetSetting(kApplication, kSection, std::string(entry.name), "");
    int days = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), days);
    if (!text.empty() && error == std::errc() && end == text.data() + text.size() && days >= 0 &&
        days <= kMostDays) {
      limits[place(entry.kind)] = days;
    }
  }
  return limits;
}

}  // namespace

TodaysWork::TodaysWork() : limits_(keptLimits()) {}

void TodaysWork::Items::loadBegins() {
  owner_.items_.loadBegins();
  owner_.customers_.reset();
  owner_.parts_.reset();
}

Date TodaysWork::today() {
  return Date(now().days());
}

std::optional<KindResult> TodaysWork::result(AttentionKind kind) const {
  switch (entryOf(kind).file) {
    case WholeFile::kNone:
      return attentionOf(kind, items_, today(), limits_);
    case WholeFile::kCustomers:
      if (!customers_) return std::nullopt;
      return attentionOf(kind, (*customers_)[kind == AttentionKind::kCustomersPastDue ? 0 : 1],
                         today(), limits_);
    case WholeFile::kParts:
      break;
  }
  if (!parts_) return std::nullopt;
  return attentionOf(kind, *parts_, today(), limits_);
}

bool TodaysWork::read(AttentionKind kind, const ReadProgress& progress) {
  if (entryOf(kind).file == WholeFile::kCustomers && !customers_) {
    customers_ = readCustomers(progress);
    return customers_.has_value();
  }
  if (entryOf(kind).file == WholeFile::kParts && !parts_) {
    parts_ = readIdleParts(today(), limits_[place(kind)], progress);
    return parts_.has_value();
  }
  return true;
}

void TodaysWork::setLimits(const AttentionLimits& limits) {
  // Which parts are kept depends on the limit: they have to be read again.
  if (limits[place(AttentionKind::kPartsIdle)] != limits_[place(AttentionKind::kPartsIdle)])
    parts_.reset();
  limits_ = limits;
  for (const KindEntry& entry : attentionKinds()) {
    if (!entry.days) continue;
    SaveSetting(kApplication, kSection, std::string(entry.name),
                std::to_string(limits_[place(entry.kind)]));
  }
}

std::string TodaysWork::summary() const {
  int count = 0;
  bool failed = false;
  for (const KindEntry& entry : attentionKinds()) {
    const auto kind = result(entry.kind);
    if (!kind) continue;
    if (!kind->rows.empty()) ++count;
    if (!kind->error.empty()) failed = true;
  }
  std::string text = "Today: ";
  if (count == 0) {
    text += failed ? "not all could be read" : "nothing needs attention";
  } else {
    text += std::to_string(count) + (count == 1 ? " kind needs" : " kinds need") + " attention";
    if (failed) text += ", and not all could be read";
  }
  return text;
}

}  // namespace dg
