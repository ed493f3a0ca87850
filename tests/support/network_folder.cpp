#include "tests/support/network_folder.h"

#include <cstdlib>
#include <system_error>

#include "platform/environment.h"

namespace dg::test {

namespace fs = std::filesystem;

#ifdef _WIN32

namespace {

constexpr const char* kVariable = "DG_TEST_NETWORK";

}  // namespace

bool NetworkFolder::isPossible() {
  return std::getenv(kVariable) != nullptr;
}

NetworkFolder::NetworkFolder(const fs::path& servers) : network_(std::getenv(kVariable)) {
  for (const auto& server : fs::directory_iterator(servers)) {
    fs::copy(server.path(), network_ / server.path().filename(), fs::copy_options::recursive);
  }
}

NetworkFolder::~NetworkFolder() {
  std::error_code ignored;
  for (const auto& server : fs::directory_iterator(network_, ignored))
    fs::remove_all(server.path(), ignored);
}

#else

bool NetworkFolder::isPossible() {
  return true;
}

NetworkFolder::NetworkFolder(const fs::path& servers) {
  environment().shareRoot = servers.string();
}

NetworkFolder::~NetworkFolder() = default;

#endif

}  // namespace dg::test
