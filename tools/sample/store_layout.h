#pragma once

#include <string_view>

namespace dg::sample {

inline constexpr std::string_view kServer = "SRV1";
inline constexpr std::string_view kDirectory = "LNK001";  ///< store directory; "001" is the store
inline constexpr std::string_view kWorkstation = "PC7";
inline constexpr std::string_view kTerminal = "12";

/// A logical file of an example store.
struct FileLayout {
  std::string_view name;
  std::string_view dataFile;   ///< stem: "PART" lies in PARTDB, its directory is PARTLK
  int length;                  ///< of a record, or of a key
  char type;                   ///< "L" records, "I" index
  bool duplicateKeys = false;  ///< an index only
};

/// All logical files, in the order in which they lie in their data files. A store has every one of
/// them, whether or not a family fills it.
// clang-format off
inline constexpr FileLayout kFileLayouts[] = {
    {"LINEL", "PART", 192, 'L'},  {"ELINEL", "PART", 64, 'L'},     {"LINEI", "PART", 2, 'I'},
    {"COMODI", "PART", 4, 'I'},   {"PARTL", "PART", 256, 'L'},     {"EPARTL", "PART", 64, 'L'},
    {"PARTI", "PART", 14, 'I'},   {"MANL", "CUST", 204, 'L'},      {"EMANL", "CUST", 200, 'L'},
    {"MANI", "CUST", 2, 'I'},     {"CUSTL", "CUST", 200, 'L'},     {"ECUSTL", "CUST", 100, 'L'},
    {"CUSTI", "CUST", 4, 'I'},    {"CHRTL", "GL", 64, 'L'},        {"CHRTI", "GL", 6, 'I'},
    {"GLDTL", "GL", 64, 'L'},     {"GLDTI", "GL", 10, 'I', true},  {"VNDRL", "GL", 64, 'L'},
    {"VNDRI", "GL", 4, 'I'},      {"PUTBI", "GL", 16, 'I'},        {"RTTBI", "GL", 16, 'I'},
    {"INVOL", "INVO", 1024, 'L'}, {"TICKI", "INVO", 4, 'I'},       {"WARRL", "INVO", 1024, 'L'},
    {"WARRI", "INVO", 4, 'I'},    {"UNITL", "UNIT", 512, 'L'},     {"LUNITL", "UNIT", 64, 'L'},
    {"LUNITI", "UNIT", 10, 'I'},  {"UNITI", "UNIT", 8, 'I'},       {"FPLNL", "UNIT", 256, 'L'},
    {"FPEXL", "UNIT", 32, 'L'},   {"FPLNI", "UNIT", 6, 'I', true},
};
// clang-format on

}  // namespace dg::sample
