#include "tools/sample/sample_store.h"

namespace dg {

void writeSampleStore(const std::string&, const SampleOptions&) {}

}  // namespace dg
