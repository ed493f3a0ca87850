#pragma once

#include <CLI/CLI.hpp>
#include <filesystem>
#include <string>

#include "history/kept_figure.h"

namespace dg {

/// The option that names another file for the history.
void addHistoryOption(CLI::App& app, std::string& file);
/// A store as texts name it, fit for a terminal: "SRV1 LNK001".
std::string storeName(const StoreKey& store);
/// The file that it names, else the user's own. Raises UsageError when there is neither.
std::filesystem::path historyFile(const std::string& file);

}  // namespace dg
