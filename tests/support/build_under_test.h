#ifndef TESTS_SUPPORT_BUILD_UNDER_TEST_H
#define TESTS_SUPPORT_BUILD_UNDER_TEST_H

#include <string>

/// Whether the product under test has AddressSanitizer or ThreadSanitizer: several times slower, so that what is drawn
/// at random is drawn less often, and with symbols of the sanitizer's own.
bool is_sanitized();

/// Whether it has a sanitizer, or counts the lines that are run: with texts of these.
bool is_instrumented();

/// "Release" where what ships is built, else "Debug" or "None".
std::string build_type();
/// What the dynamic linker is to load before a program whose clock a test sets: paths with blanks between them.
std::string clock_preload();

/// The build tree, and what it has built: absolute paths.
std::string build_dir();
std::string plugin_file();
std::string host_file();
std::string vpnval_file();
/// Plug-ins for tests: with fixed answers, with answers that change, one that does what a name tells it, that one
/// without a build id, one that defines names of the real one's; and the folder of those with one fault each.
std::string answering_plugin_file();
std::string unsteady_plugin_file();
std::string scripted_plugin_file();
std::string plugin_without_build_id_file();
std::string same_names_file();
std::string wrong_plugin_dir();
/// The recorder, and the plug-in as it may be linked: with slots that can be written to, and with none that can.
std::string recorder_file();
std::string hookable_file();
std::string bound_file();

#endif
