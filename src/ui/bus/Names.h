// By what names the desktop knows this program.
#pragma once

namespace zolt::busName {

inline constexpr char16_t application[] = u"org.zolt.Toolkit"; ///< also the name of the desktop entry
inline constexpr char16_t object[] = u"/org/zolt/Toolkit";
inline constexpr char16_t launcherUri[] = u"application://org.zolt.Toolkit.desktop";

} // namespace zolt::busName
