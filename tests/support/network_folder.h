#pragma once

#include <filesystem>

namespace dg::test {

/// Lets the folders in a folder stand for the network's servers until the end of a test:
/// "SRV/SHARE/FILE" in it is "\\SRV\SHARE\FILE".
///
/// On Windows the network is a folder of wine's, named by the variable DG_TEST_NETWORK, and the
/// servers are copied there; processes that run tests side by side would meet in it.
class NetworkFolder {
 public:
  /// Whether there is a place for it; a test that finds none has to be skipped.
  static bool isPossible();

  /// To stand within an EnvironmentScope.
  explicit NetworkFolder(const std::filesystem::path& servers);
  ~NetworkFolder();
  NetworkFolder(const NetworkFolder&) = delete;
  NetworkFolder& operator=(const NetworkFolder&) = delete;

 private:
  std::filesystem::path network_;  ///< where copies stand that have to go at the end
};

}  // namespace dg::test
