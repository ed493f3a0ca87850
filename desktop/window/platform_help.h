#pragma once

class QWidget;

namespace dg {

/// Opens the installed help file with the platform's help viewer. False where the platform has
/// neither: the program's own guide serves then.
bool showPlatformHelp(const QWidget& owner);

}  // namespace dg
