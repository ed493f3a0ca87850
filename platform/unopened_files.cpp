#include "platform/unopened_files.h"

#include <set>

#include "platform/text.h"
#include "platform/values/run_time_error.h"

namespace dg {

namespace {

struct Noted {
  UnopenedFiles files;
  std::set<std::string> paths;  ///< in lower case
};

Noted& noted() {
  static Noted files;
  return files;
}

}  // namespace

const UnopenedFiles& unopenedFiles() {
  return noted().files;
}

void noteUnopened(const std::string& path, const RunTimeError& error) {
  if (error.number() == kFileNotFound || error.number() == kPathNotFound) return;
  if (!noted().paths.insert(lowerCase(path)).second) return;
  UnopenedFiles& files = noted().files;
  if (files.count++ < UnopenedFiles::kMostNames) {
    files.names.push_back(path.substr(path.find_last_of("\\/") + 1));
  }
}

void forgetUnopenedFiles() {
  noted() = {};
}

}  // namespace dg
