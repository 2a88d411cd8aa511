// Writers of the rows of blocks that are no plain tables. Each appends its comment and row lines.
#pragma once

#include "sbdfile/layout.h"

#include <string>

namespace sbd {

class CSbdData;
struct WriteTrace;

inline constexpr std::string_view kLineEnd = "\r\n";

void WriteHGirder(std::string& out, const CSbdData& data, WriteTrace* trace);   // 311
void WriteCrossRibs(std::string& out, const CSbdData& data, WriteTrace* trace); // 324
void WriteLRibs(std::string& out, const CSbdData& data, WriteTrace* trace);     // 325
void WriteNames(std::string& out, int block, const CSbdData& data);             // 501, 702

} // namespace sbd
