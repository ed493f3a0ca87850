// Writes the seed corpora of the fuzz targets, a folder each, from an example store: inputs that
// reach far on their own, for the fuzzer to change. The same bytes at every run.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/codec.h"
#include "fuzz/fuzz_store.h"
#include "platform/ini_file.h"
#include "records/file_names.h"
#include "tools/sample/index_writer.h"
#include "tools/sample/random.h"

namespace dg::fuzz {

namespace {

class SeedWriter {
 public:
  explicit SeedWriter(std::filesystem::path root) : root_(std::move(root)) {}

  void write(const std::string& target, const std::string& bytes) {
    const std::filesystem::path folder = root_ / target;
    std::filesystem::create_directories(folder);
    std::ofstream(folder / ("seed-" + std::to_string(++count_)), std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path root_;
  int count_ = 0;
};

std::string number(char opcode, std::int32_t value) {
  std::string bytes(static_cast<std::size_t>(opcodeWidth(opcode)), '\0');
  Pack(opcode, bytes, value, 1);
  return bytes;
}

std::string block(const std::string& bytes) {
  return number('C', static_cast<std::int32_t>(bytes.size())) + bytes;
}

const std::string& contentOf(std::string_view end) {
  for (const SampleFile& file : baseStore()) {
    if (file.path.ends_with(end)) return file.content;
  }
  throw RunTimeError(kFileNotFound);
}

void writeCodecSeeds(SeedWriter& seeds) {
  for (const char opcode : std::string_view("BCDIJKLR")) {
    for (const char* mask : {"$#,###,###.00", "##/##/##", "00.00%", "000-0000"}) {
      const std::string text(mask);
      seeds.write("codec", std::string(1, opcode) + number('L', 1) + number('L', -12345) +
                               number('B', static_cast<std::int32_t>(text.size())) + text + " ,-." +
                               "DENVER, CO 80202-1234");
    }
  }
}

void writeIndexSeeds(SeedWriter& seeds) {
  for (const int count : {0, 1, 40, 700}) {
    std::vector<sample::IndexEntry> entries;
    for (std::int32_t i = 1; i <= count; ++i)
      entries.push_back({number('L', i * 3), i});
    const sample::IndexImage image =
        sample::buildIndex(entries, {.keyLength = 4, .fillPercent = 50});
    for (const std::int32_t wanted : {0, count, count * 3 + 5}) {
      seeds.write("index", number('B', 4) + number('L', wanted) + image.bytes);
    }
  }
}

void writeDirectorySeeds(SeedWriter& seeds) {
  seeds.write("directory",
              block(contentOf("/ttymap")) + block(contentOf("/LINKSFILE")) + contentOf("/PARTLK"));
}

/// Bytes from the store's data files serve every class: some are records of its own.
void writeRecordSeeds(SeedWriter& seeds) {
  constexpr std::size_t kLength = 512;
  for (std::size_t i = 0; i < recordClasses().size(); ++i) {
    for (const char* file : {"/PARTDB", "/CUSTDB", "/INVODB"}) {
      const std::string& data = contentOf(file);
      const std::string first = data.substr(0, kLength);
      const std::string second = data.size() > 2 * kLength ? data.substr(kLength, kLength) : first;
      seeds.write("record", number('B', static_cast<std::int32_t>(i)) + block(first) + second);
    }
  }
}

/// A chain of three pages, met from the last one, each with two lines.
void writePageChainSeeds(SeedWriter& seeds) {
  constexpr std::size_t kLength = 512;
  std::string records(kLength, '\0');
  for (std::int32_t page = 1; page <= 3; ++page) {
    std::string record(kLength, '\0');
    Pack('J', record, 1, 1);
    Pack('K', record, page - 1, 110);
    Pack('B', record, page, 115);
    Pack('B', record, 2, 146);
    record.replace(160, 2, packText(page == 2 ? "REM" : "500"));
    records += record;
  }
  seeds.write("page_chain", number('B', 3) + records);
  seeds.write("page_chain", number('B', 1) + records);
}

void writeSettingsSeeds(SeedWriter& seeds) {
  const std::string section("Asset");
  const std::string key("Accounts");
  const std::string value("0112345,0299");
  for (const std::string& content :
       {contentOf("/cQTCatalog.ini"), withIniValue("", section, key, value)}) {
    seeds.write("settings", number('B', 5) + section + number('B', 8) + key + number('B', 12) +
                                value + content);
  }
}

void writeLoadSeeds(SeedWriter& seeds) {
  seeds.write("load", std::string());
  sample::Random random(3, "load seeds");
  constexpr int kSeeds = 40;
  for (int i = 0; i < kSeeds; ++i) {
    const auto file = random.between(0, static_cast<std::int32_t>(baseStore().size()) - 1);
    const auto size =
        static_cast<std::int32_t>(baseStore()[static_cast<std::size_t>(file)].content.size());
    const std::string bytes(static_cast<std::size_t>(random.between(1, 4)),
                            static_cast<char>(random.between(0, 255)));
    seeds.write("load", number('B', file) + number('D', random.between(0, std::max(size - 1, 0))) +
                            number('B', static_cast<std::int32_t>(bytes.size())) + bytes);
  }
}

}  // namespace

}  // namespace dg::fuzz

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: fuzz_seeds FOLDER\n";
    return 2;
  }
  dg::fuzz::SeedWriter seeds(argv[1]);
  dg::fuzz::writeCodecSeeds(seeds);
  dg::fuzz::writeIndexSeeds(seeds);
  dg::fuzz::writeDirectorySeeds(seeds);
  dg::fuzz::writeRecordSeeds(seeds);
  dg::fuzz::writePageChainSeeds(seeds);
  dg::fuzz::writeSettingsSeeds(seeds);
  dg::fuzz::writeLoadSeeds(seeds);
  return 0;
}
