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
  char type;                   ///< "L" records, "I" index
  int length;                  ///< of a record, or of a key
  bool duplicateKeys = false;  ///< an index only
};

/// All logical files, in the order in which they lie in their data files. A store has every one of
/// them, whether or not a family fills it.
inline constexpr FileLayout kFileLayouts[] = {
    {"LINEL", "PART", 'L', 192},  {"ELINEL", "PART", 'L', 64},     {"LINEI", "PART", 'I', 2},
    {"COMODI", "PART", 'I', 4},   {"PARTL", "PART", 'L', 256},     {"EPARTL", "PART", 'L', 64},
    {"PARTI", "PART", 'I', 14},   {"MANL", "CUST", 'L', 204},      {"EMANL", "CUST", 'L', 200},
    {"MANI", "CUST", 'I', 2},     {"CUSTL", "CUST", 'L', 200},     {"ECUSTL", "CUST", 'L', 100},
    {"CUSTI", "CUST", 'I', 4},    {"CHRTL", "GL", 'L', 64},        {"CHRTI", "GL", 'I', 6},
    {"GLDTL", "GL", 'L', 64},     {"GLDTI", "GL", 'I', 10, true},  {"VNDRL", "GL", 'L', 64},
    {"VNDRI", "GL", 'I', 4},      {"PUTBI", "GL", 'I', 16},        {"RTTBI", "GL", 'I', 16},
    {"INVOL", "INVO", 'L', 1024}, {"TICKI", "INVO", 'I', 4},       {"WARRL", "INVO", 'L', 1024},
    {"WARRI", "INVO", 'I', 4},    {"UNITL", "UNIT", 'L', 512},     {"LUNITL", "UNIT", 'L', 64},
    {"LUNITI", "UNIT", 'I', 10},  {"UNITI", "UNIT", 'I', 8},       {"FPLNL", "UNIT", 'L', 256},
    {"FPEXL", "UNIT", 'L', 32},   {"FPLNI", "UNIT", 'I', 6, true},
};

}  // namespace dg::sample
