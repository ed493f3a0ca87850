#pragma once

namespace dg {

/// Makes pictures and the users' guide available under ":/icons" and ":/guide". They lie in a
/// static library, which does not do so by itself.
void initializeResources();

}  // namespace dg
