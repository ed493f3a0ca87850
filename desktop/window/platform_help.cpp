#include "desktop/window/platform_help.h"

#include <QWidget>

#ifdef Q_OS_WIN
#include <QFileInfo>
#include <QLibrary>
#include <cstdint>

#include "shell/main_window.h"
#endif

namespace dg {

#ifdef Q_OS_WIN

bool showPlatformHelp(const QWidget& owner) {
  if (!QFileInfo::exists(QString::fromLatin1(kHelpFile))) return false;
  constexpr unsigned kDisplayTopic = 0;  // HH_DISPLAY_TOPIC
  using HtmlHelp =
      void*(__stdcall*)(void* owner, const char* file, unsigned command, std::uintptr_t data);
  const auto show =
      reinterpret_cast<HtmlHelp>(QLibrary::resolve(QStringLiteral("hhctrl.ocx"), "HtmlHelpA"));
  return show != nullptr &&
         show(reinterpret_cast<void*>(owner.winId()), kHelpFile, kDisplayTopic, 0) != nullptr;
}

#else

bool showPlatformHelp(const QWidget&) {
  return false;
}

#endif

}  // namespace dg
