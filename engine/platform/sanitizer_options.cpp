// SPDX-License-Identifier: GPL-3.0-or-later

// Read by the leak checker of sanitizer builds, which asks for these names. The font library keeps its tables until the
// process ends, and says nothing about it.

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
