#include <windows.h>
// windows.h comes first: dwmapi.h needs it
#include <dwmapi.h>

#include "app/title_bar.h"

namespace app {
namespace {

constexpr DWORD kUseImmersiveDarkMode = 20;  // of Windows 10 20H1 and later; older ones refuse it

}  // namespace

void darkenTitleBar(QWindow& window, bool isDark) {
  const BOOL dark = isDark;
  DwmSetWindowAttribute(reinterpret_cast<HWND>(window.winId()), kUseImmersiveDarkMode, &dark,
                        sizeof dark);
}

}  // namespace app
