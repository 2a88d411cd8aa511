// Where tests find what they do not carry themselves. One object knows the places, so that another clone or another build
// takes the tests themselves from the compiler's cache.
#pragma once

namespace sbd::test {

[[nodiscard]] const char* TestDataFolder();
/// The projects in `examples`.
[[nodiscard]] const char* ExamplesFolder();
/// The built sbdtool.
[[nodiscard]] const char* SbdTool();
/// The engines of the tests, under the names of the real ones.
[[nodiscard]] const char* EngineFolder();

} // namespace sbd::test
