#pragma once

/// Part of a file name: letters beyond ASCII and what a command processor would act on, as far as
/// this system's file names may hold it.
#ifdef _WIN32
inline constexpr char kAwkwardName[] = "émilie & %co% ^'日本' ";
#else
inline constexpr char kAwkwardName[] = "émilie & %co% ^\"日本\" ";
#endif
