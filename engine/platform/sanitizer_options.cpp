// SPDX-License-Identifier: GPL-3.0-or-later

// The leak checker of sanitizer builds calls functions of these names. The font library keeps its tables until the
// process exits.

// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char *__lsan_default_suppressions();
extern "C" const char *__lsan_default_options();

extern "C" const char *__lsan_default_suppressions()
{
    return "leak:libfontconfig\n";
}

extern "C" const char *__lsan_default_options()
{
    return "print_suppressions=0";
}
// NOLINTEND(bugprone-reserved-identifier)
