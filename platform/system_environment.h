#pragma once

#include "platform/environment.h"

namespace dg {

/// What the environment variables and the system say at this moment; see environment().
Environment environmentFromSystem();

}  // namespace dg
