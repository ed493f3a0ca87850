// docs/records.md against the record classes: each row of their tables is a row there.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>

#include "records/file_names.h"

namespace dg {
namespace {

std::string filesOf(const RecordClass& type) {
  if (type.mainFile.empty()) return "Read from no file of its own.";
  std::string text = "`" + std::string(type.mainFile) + "`";
  if (!type.extensionFile.empty()) text += " + `" + std::string(type.extensionFile) + "`";
  return text;
}

std::string layoutsOf(const RecordClass& type) {
  std::ostringstream out;
  const std::vector<FieldPlace> places = type.make()->places();
  const bool several =
      std::ranges::any_of(places, [](const FieldPlace& place) { return !place.layout.empty(); });
  out << "## " << type.name << "\n\n" << filesOf(type) << "\n\n";
  out << "| Position | Size | Form | Member |" << (several ? " Layout |" : "") << " |\n";
  out << "|---|---|---|---|" << (several ? "---|" : "") << "---|\n";
  for (const FieldPlace& place : places) {
    out << "| " << place.position << " | " << place.width << " | " << place.form << " | "
        << (place.member.empty() ? "" : "`" + place.member + "`") << " |";
    if (several) out << ' ' << place.layout << " |";
    out << (place.reads && place.writes ? ""
            : place.reads               ? " read only"
                                        : " written only")
        << " |\n";
  }
  out << '\n';
  return out.str();
}

TEST(RecordLayouts, AreThoseOfTheDocument) {
  const std::string path = DG_SOURCE_DIR "/docs/records.md";
  std::ifstream file(path);
  const std::string document{std::istreambuf_iterator<char>(file), {}};
  const std::string introduction = document.substr(0, document.find("\n## ") + 1);
  std::string expected = introduction;
  for (const RecordClass& type : recordClasses())
    expected += layoutsOf(type);
  expected.pop_back();
  if (std::getenv("DG_WRITE_FIGURES") != nullptr) {
    std::ofstream(path) << expected;
    GTEST_SKIP() << "written anew";
  }
  std::istringstream told(document);
  std::istringstream are(expected);
  std::string line;
  for (std::string wanted; std::getline(are, wanted);) {
    std::getline(told, line);
    ASSERT_EQ(line, wanted);
  }
  EXPECT_EQ(document.size(), expected.size());
}

}  // namespace
}  // namespace dg
