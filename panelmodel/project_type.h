// Kinds of project, told by the value of KELD_analysis_used.
#pragma once

#include "project/text.h"

#include <string_view>

namespace sbd {

/// A project of single sections: its type begins with "断面".
[[nodiscard]] inline bool IsSectionType(std::string_view type)
{
    static const std::string section = Cp932("断面");
    return type.starts_with(section);
}

} // namespace sbd
