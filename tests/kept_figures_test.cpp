// What the program shows of example stores, column by column, against what it showed before.
//
// tests/data/figures.txt holds a line for each column, label and member: how many texts there were
// and their digest. A change that is meant is written with DG_WRITE_FIGURES=1 in the environment of
// this test, and looked at in the difference of the file.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>

#include "engine/codec.h"
#include "engine/state.h"
#include "records/file_names.h"
#include "tests/support/dgtool_run.h"
#include "tools/sample/random.h"
#include "tools/sample/sample_store.h"
#include "views/view_catalogue.h"

namespace dg::test {
namespace {

using nlohmann::json;

/// The texts of a place, as their count and a digest (FNV-1a).
class Digest {
 public:
  void add(const std::string& text) {
    ++count_;
    for (const char c : text + '\n')
      hash_ = (hash_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  std::string text() const {
    std::ostringstream out;
    out << count_ << ' ' << std::hex << hash_;
    return out.str();
  }

 private:
  int count_ = 0;
  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

class Figures {
 public:
  /// Every grid's columns, labels and lists of a window and of those that its rows open.
  void addWindow(const std::string& store, const json& window) {
    const std::string name = store + window["name"].get<std::string>();
    digests_[name].add(window["caption"]);
    for (const auto& [label, caption] : window["labels"].items())
      digests_[name + "." + label].add(caption);
    for (const char* list : {"hidden", "combos"})
      digests_[name + "." + list].add(window[list].dump());
    for (const auto& [grid, content] : window["grids"].items()) {
      for (std::size_t column = 0; column < content["columns"].size(); ++column) {
        const json& head = content["columns"][column];
        Digest& digest = digests_[name + "." + grid + "." + head["name"].get<std::string>()];
        digest.add(head.dump());
        for (const json& row : content["rows"])
          digest.add(row[column]);
      }
    }
    for (const json& detail : window["details"])
      addWindow(store, detail["window"]);
  }
  /// Every member of a class, read from records of any bytes.
  void addMembers(const RecordClass& type) {
    sample::Random random(7, "figures");
    for (const std::int32_t kind : {1, 2, 3, 13, 17, 19, 50, 80, 81, 99}) {
      std::string bytes;
      for (int i = 0; i < 600; ++i)
        bytes += static_cast<char>(random.between(0, 255));
      Pack('J', bytes, kind, 1);
      MaskTable = kDefaultMaskTable;
      const auto record = type.make();
      record->Unpack(bytes);
      for (const MemberValue& member : record->members())
        addValue(digests_[std::string(type.name) + "." + member.name], member.value);
      record->Pack(bytes);
      digests_[std::string(type.name)].add(bytes);
    }
    MaskTable = kDefaultMaskTable;
  }
  std::map<std::string, std::string> texts() const {
    std::map<std::string, std::string> result;
    for (const auto& [place, digest] : digests_)
      result[place] = digest.text();
    return result;
  }

 private:
  static void addValue(Digest& digest, const MemberValue::Scalar& value) {
    std::visit([&](const auto& kind) { digest.add(toText(Variant(kind))); }, value);
  }
  static void addValue(Digest& digest, const decltype(MemberValue::value)& value) {
    if (const auto* scalar = std::get_if<MemberValue::Scalar>(&value)) {
      addValue(digest, *scalar);
      return;
    }
    for (const MemberValue::Scalar& each : std::get<std::vector<MemberValue::Scalar>>(value))
      addValue(digest, each);
  }

  std::map<std::string, Digest> digests_;
};

TEST(KeptFigures, AreThoseThatWereShownBefore) {
  Figures figures;
  for (const bool segments : {false, true}) {
    DgtoolRun tool;
    tool.views = viewCatalogue();
    tool.store.openStore(composeSampleStore({.seed = 5, .warrantySegments = segments}));
    tool.useOpenStore();
    ASSERT_EQ(tool.run({"report", "--json", "--details"}), 0) << tool.err;
    const json report = tool.json();
    for (const json& view : report["views"])
      figures.addWindow(segments ? "segments/" : "", view);
  }
  for (const RecordClass& type : recordClasses())
    figures.addMembers(type);

  const std::string path = DG_SOURCE_DIR "/tests/data/figures.txt";
  const auto shown = figures.texts();
  if (std::getenv("DG_WRITE_FIGURES") != nullptr) {
    std::ofstream file(path);
    for (const auto& [place, text] : shown)
      file << place << '\t' << text << '\n';
  }
  std::map<std::string, std::string> kept;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);)
    kept[line.substr(0, line.find('\t'))] = line.substr(line.find('\t') + 1);
  EXPECT_EQ(shown.size(), kept.size());
  for (const auto& [place, text] : shown)
    EXPECT_EQ(text, kept[place]) << place;
}

}  // namespace
}  // namespace dg::test
