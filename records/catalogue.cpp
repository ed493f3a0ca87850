#include "records/catalogue.h"

#include "platform/text.h"
#include "records/lines.h"

namespace dg {

namespace {

template <class R>
std::unique_ptr<Record> make() {
  return std::make_unique<R>();
}

constexpr RecordClass kRecordClasses[] = {
    {"clsLines", files::kLines, files::kLineExtension, &make<clsLines>},
};

}  // namespace

std::span<const RecordClass> recordClasses() {
  return kRecordClasses;
}

const RecordClass* findRecordClass(std::string_view name) {
  for (const RecordClass& known : kRecordClasses) {
    if (equalIgnoringCase(known.name, name)) return &known;
  }
  return nullptr;
}

}  // namespace dg
