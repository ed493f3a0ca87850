#pragma once

class QIcon;

namespace dg {

/// Makes pictures and the users' guide available under ":/icons" and ":/guide". They lie in a
/// static library, which does not do so by itself.
void initializeResources();

/// The program's icon, in the format that Qt reads on this system without further plug-ins.
QIcon programIcon();

}  // namespace dg
