#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/sample/random.h"
#include "tools/sample/sample_store.h"

namespace dg::test {

/// A logical file of a store, and where its directory and its bytes are among the store's files.
struct PlacedFile {
  std::string name;
  char type = 'L';
  std::int32_t startBlock = 0;
  std::int32_t recordLength = 0;
  std::int32_t lastRecord = 0;
  std::size_t directory = 0;       ///< the directory file, by its place in the list of files
  std::size_t directoryEntry = 0;  ///< offset of its entry there
  std::size_t data = 0;            ///< the data file
};

/// Reads the directories of a sound store.
std::vector<PlacedFile> placedFiles(const std::vector<SampleFile>& files);

/// A store after something happened to it.
struct DamagedStore {
  std::vector<SampleFile> files;
  std::string story;  ///< what was done, for messages
};

/// Makes damaged copies of a sound store: what broken disks, half-finished copies, interrupted
/// writes, wrong tools and ill will leave behind. The same number gives the same copy.
class Damager {
 public:
  explicit Damager(std::vector<SampleFile> sound);

  /// The kinds of damage in their order; copy `number` has at least the kind
  /// `number % kinds().size()`, and every other copy has more.
  static std::vector<std::string_view> kinds();
  DamagedStore make(std::uint64_t number) const;

 private:
  std::vector<SampleFile> sound_;
  std::vector<PlacedFile> placed_;
};

}  // namespace dg::test
