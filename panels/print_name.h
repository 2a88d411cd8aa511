// What a print job is called, and the file that is proposed when it goes into a PDF.
#pragma once

class QPrinter;
class QString;

namespace sbd {

/// Names the job of a printer after the base name of `proposed`, and proposes that path to a print dialog for a PDF.
/// To be called before the dialog is made.
void NamePrint(QPrinter& printer, const QString& proposed);

} // namespace sbd
