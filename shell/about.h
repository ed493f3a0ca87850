#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/form.h"

namespace dg {

/// What the system information button needs of the platform; tests put their own in its place.
struct SystemInformation {
  /// A value of the machine's registry; see readMachineRegistry.
  std::function<bool(const std::string& key, const std::string& name, std::uint32_t& type,
                     std::string& bytes)>
      readRegistry;
  std::function<bool(const std::string& path)> fileExists;
  std::function<bool(const std::string& path)> start;
};

SystemInformation platformSystemInformation();

/// A registry value's bytes as text, cut at the first NUL: a 32-bit number (type 4, low byte first)
/// in decimal, other types as their bytes stand.
std::string registryText(std::uint32_t type, std::string bytes);

/// Version, notice, and the way to the platform's system information.
class frmAbout final : public Form {
 public:
  frmAbout();

  void Form_Load();
  /// The text of a registry value; false when it cannot be got.
  bool GetKeyValue(const std::string& key, const std::string& name, std::string& value) const;
  /// Starts the platform's system information program, or shows a message where there is none.
  void StartSysInfo();

  Label& lblTitle;
  Label& lblVersion;
  Label& lblDisclaimer;
  Button& cmdOk;
  Button& cmdSysInfo;

  SystemInformation systemInformation = platformSystemInformation();
};

/// Loads the About dialog and shows it until the user has closed it.
void showAbout();

}  // namespace dg
