#pragma once

#include <optional>
#include <string>

#include "shell/main_window.h"

namespace dg {

/// Why the program shows no figures after its start, for the one who sits before it. Texts are
/// Windows-1252 bytes.
struct StartProblem {
  std::string missing;  ///< what is not there: a sentence
  std::string looked;   ///< where it was looked for: a path
  std::string advice;   ///< what can be done: sentences
};

/// The first of the things a start needs that is not there; nothing when the views are loaded.
std::optional<StartProblem> startProblem(const frmTRVN& main);

}  // namespace dg
