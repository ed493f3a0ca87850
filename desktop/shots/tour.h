#pragma once

#include <QString>

#include "shell/surroundings.h"

namespace dg {

/// Starts the program, goes through all its windows, and saves a picture of each into a folder.
/// Returns whether all could be saved.
bool takeTour(const QString& folder, Surroundings& surroundings);

}  // namespace dg
