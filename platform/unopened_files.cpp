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

std::string unopenedWarning() {
  const UnopenedFiles& unopened = unopenedFiles();
  if (unopened.count == 0) return {};
  std::string line = "Left out, since they could not be opened: ";
  for (std::size_t i = 0; i < unopened.names.size(); ++i)
    line += (i > 0 ? ", " : "") + unopened.names[i];
  const std::size_t more = unopened.count - unopened.names.size();
  return line + (more > 0 ? " and " + std::to_string(more) + " more." : ".");
}

}  // namespace dg
