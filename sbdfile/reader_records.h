// Readers of the blocks that are no plain tables. Each takes its lines up to and including the end line.
#pragma once

namespace sbd {

class CSbdData;
class LineReader;

void ReadHGirder(LineReader& lines, CSbdData& data);          // 311
void ReadCrossRibs(LineReader& lines, CSbdData& data);        // 324
void ReadLRibs(LineReader& lines, CSbdData& data);            // 325
void ReadUnusedLines(LineReader& lines, CSbdData& data);      // 412
void ReadNames(LineReader& lines, int block, CSbdData& data); // 501, 702

} // namespace sbd
