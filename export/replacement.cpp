#include "export/replacement.h"

#include <random>
#include <system_error>

namespace dg {

namespace fs = std::filesystem;

Replacement::Replacement(const fs::path& file) : file_(file), temporary_(file) {
  temporary_ += "." + std::to_string(std::random_device{}()) + ".part";
}

Replacement::~Replacement() {
  std::error_code ignored;
  fs::remove(temporary_, ignored);
}

void Replacement::commit() const {
  std::error_code error;
  fs::rename(temporary_, file_, error);
  if (error) throw ExportError("cannot write " + file_.string() + ": " + error.message());
}

}  // namespace dg
