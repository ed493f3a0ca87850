#include "tests/support/network_folder.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <system_error>

#include "platform/environment.h"

namespace dg::test {

namespace fs = std::filesystem;

#ifdef _WIN32

NetworkFolder::NetworkFolder(const fs::path& servers) {
  const char* network = std::getenv("DG_TEST_NETWORK");
  if (network == nullptr) {
    ADD_FAILURE() << "DG_TEST_NETWORK has to name wine's folder of UNC paths";
    return;
  }
  network_ = network;
  for (const auto& server : fs::directory_iterator(servers)) {
    fs::copy(server.path(), network_ / server.path().filename(), fs::copy_options::recursive);
  }
}

NetworkFolder::~NetworkFolder() {
  if (network_.empty()) return;
  std::error_code ignored;
  for (const auto& server : fs::directory_iterator(network_, ignored))
    fs::remove_all(server.path(), ignored);
}

#else

NetworkFolder::NetworkFolder(const fs::path& servers) {
  environment().shareRoot = servers.string();
}

NetworkFolder::~NetworkFolder() = default;

#endif

}  // namespace dg::test
