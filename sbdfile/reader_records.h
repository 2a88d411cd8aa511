// Readers of the blocks that are no plain tables. Each takes its lines up to and including the end line.
#pragma once

#include "sbdfile/line_reader.h"
#include "sbdfile/reader.h"

namespace sbd {

class CSbdData;

/// The lines of a text, and the observer who is told what becomes of them, if there is one.
struct ReadSource {
    CLineReader lines;
    CReadObserver* observer = nullptr;

    void Tell(ReadStep step, int block, int row = -1, std::string_view text = {}) const
    {
        if (observer != nullptr)
            observer->Met({step, lines.Number(), lines.Offset(), block, row, text});
    }
};

void ReadHGirder(ReadSource& source, CSbdData& data);          // 311
void ReadCrossRibs(ReadSource& source, CSbdData& data);        // 324
void ReadLRibs(ReadSource& source, CSbdData& data);            // 325
void ReadUnusedLines(ReadSource& source, CSbdData& data);      // 412
void ReadNames(ReadSource& source, int block, CSbdData& data); // 501, 702

} // namespace sbd
