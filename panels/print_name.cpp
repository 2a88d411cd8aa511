#include "panels/print_name.h"

#include <QFileInfo>
#include <QPrinter>

namespace sbd {

void NamePrint(QPrinter& printer, const QString& proposed)
{
    // The whole base name, without a point: dialogs make their own proposal of what stands ahead of the last one.
    printer.setDocName(QFileInfo(proposed).completeBaseName().replace(u'.', u'_'));
#ifndef Q_OS_WIN
    // The dialog takes the file for its entry that prints into one, and forgets it for a real printer, which is to be
    // the first choice. On Windows the printer that writes files asks for the name itself, beginning with the job's.
    printer.setOutputFileName(proposed);
    printer.setOutputFormat(QPrinter::NativeFormat);
#endif
}

} // namespace sbd
