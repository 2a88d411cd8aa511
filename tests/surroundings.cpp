#include "tests/surroundings.h"

namespace sbd::test {

const char* TestDataFolder()
{
    return TEST_DATA_DIR;
}

const char* ExamplesFolder()
{
    return EXAMPLES_DIR;
}

const char* SbdTool()
{
    return SBDTOOL;
}

const char* EngineFolder()
{
    return ENGINE_FOLDER;
}

} // namespace sbd::test
