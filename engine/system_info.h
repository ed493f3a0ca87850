#pragma once

#include <cstdint>
#include <string>

namespace dg {

/// Who this workstation is and where the suite's share lies.
class cSystem {
 public:
  std::string mUNCDrive;     ///< name of the suite's server, without backslashes
  std::string mDirectory;    ///< store directory on the link share
  std::string TerminalID;    ///< "0" until the terminal table gives another
  std::string ComputerName;  ///< this workstation's name
  std::string IP;            ///< its IPv4 address in dotted form

  /// "\\server\VLMRLNK\directory", with no closing backslash.
  std::string VLMRLNK() const { return linkShare() + mDirectory; }
  /// "\\server\VLMRLNK\": the root of the share that has the store directories.
  std::string linkShare() const { return "\\\\" + mUNCDrive + "\\VLMRLNK\\"; }
  /// "\\server\CATCON\".
  std::string CATCON() const { return "\\\\" + mUNCDrive + "\\CATCON\\"; }
};

/// The suite's workstation settings, as the catalog file gives them.
class cEpcInfo {
 public:
  std::string Server;
  std::string DataShare;     ///< kept and never read
  std::string CatalogShare;  ///< kept and never read
  std::string Directory;
  std::string TerminalID;           ///< never read: the terminal table's id is the one in use
  std::int32_t CustomerNumber = 0;  ///< kept and never read
};

}  // namespace dg
