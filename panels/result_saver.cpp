#include "panels/result_saver.h"

#include "document/file_name.h"
#include "document/path.h"
#include "document/result_session.h"
#include "document/section_doc.h"
#include "panels/print_name.h"
#include "panels/result_output.h"
#include "results/result_csv.h"
#include "results/result_title.h"
#include "results/result_workbook.h"
#include "sbdfile/output_file.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QString AskFile(QWidget* parent, const QString& proposal)
{
    const bool isBook = proposal.endsWith(u".xlsx"_s);
    return QFileDialog::getSaveFileName(
        parent, isBook ? CResultSaver::tr("表をExcelに保存") : CResultSaver::tr("表をCSVに保存"), proposal,
        isBook ? CResultSaver::tr("Excel (*.xlsx)") : CResultSaver::tr("CSV (*.csv)"));
}

/// The file that a table is proposed to go into.
QString TableFile(const CKELDSectionDoc& doc, const ResultSelection& selection, const QString& extension)
{
    return ProposedFile(doc, toQString(ShortTableTitle(selection)), extension);
}

bool PrintOnPaper(const CKELDSectionDoc& doc, QWidget* parent, const CResultTable& table,
                  const ResultSelection& selection, const ResultState& state)
{
    QPrinter printer(QPrinter::HighResolution);
    NamePrint(printer, TableFile(doc, selection, u".pdf"_s));
    printer.setPageOrientation(IsWideTable(table) ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted)
        return true;
    COutputProgress progress(parent, CResultSaver::tr("表を印刷しています..."));
    const bool isDone =
        PrintResultTable(printer, table, selection, parent->font(), state, [&progress](int done, int all) {
            return progress(static_cast<std::size_t>(done), static_cast<std::size_t>(all));
        });
    if (!progress.IsCancelled())
        return isDone;
    printer.abort();
    return true;
}

} // namespace

CResultSaver::CResultSaver(CKELDSectionDoc* doc, const std::function<const CResultTable&()>& table, QWidget* parent)
    : QWidget(parent)
    , askFile(&AskFile)
    , print([doc](QWidget* owner, const CResultTable& shown, const ResultSelection& selection) {
        return PrintOnPaper(*doc, owner, shown, selection, ResultSessionOf(*doc).State());
    })
    , warn([](QWidget* owner, const QString& message) {
        QMessageBox::warning(owner, QStringLiteral("KELD section"), message);
    })
    , doc_(doc)
    , session_(ResultSessionOf(*doc))
    , table_(table)
    , csv_(new QPushButton(tr("CSVに保存...")))
    , xlsx_(new QPushButton(tr("Excelに保存...")))
    , print_(new QPushButton(tr("印刷...")))
    , sheets_(new QPushButton(tr("図をPDFに...")))
{
    sheets_->setToolTip(tr("主桁ごとの図をまとめて、しおりの付いた一つのPDFにします。"));
    connect(csv_, &QPushButton::clicked, this, &CResultSaver::SaveCsv);
    connect(xlsx_, &QPushButton::clicked, this, &CResultSaver::SaveXlsx);
    connect(print_, &QPushButton::clicked, this, &CResultSaver::Print);
    connect(sheets_, &QPushButton::clicked, this, [this] { session_.AskForSheets(); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    for (QPushButton* button : {csv_, xlsx_, print_, sheets_})
        row->addWidget(button);
}

bool CResultSaver::HasRows() const
{
    return table_().RowCount() > 0;
}

void CResultSaver::ShowWhatThereIs()
{
    csv_->setEnabled(HasRows());
    xlsx_->setEnabled(HasRows());
    print_->setEnabled(HasRows());
    const AnalysisModel& model = doc_->Results().model;
    sheets_->setEnabled(!model.loadCaseNames.empty() && !model.girderNames.empty());
}

void CResultSaver::SaveCsv()
{
    Save(u".csv"_s, tr("表をCSVにしています..."), [](const Content& content, const std::filesystem::path& path) {
        const std::optional<std::string> csv =
            CsvOfTable(content.table, content.selection, content.state, content.progress);
        return csv ? WriteOutputFile(path, *csv) : FileResult();
    });
}

void CResultSaver::SaveXlsx()
{
    Save(u".xlsx"_s, tr("表をExcelのファイルにしています..."),
         [](const Content& content, const std::filesystem::path& path) {
             return SaveResultWorkbook(path, content.table, content.selection, content.state, content.progress);
         });
}

void CResultSaver::Save(const QString& extension, const QString& what, const Write& write)
{
    const QString path = askFile(this, TableFile(*doc_, session_.selection, extension));
    if (path.isEmpty())
        return;
    // The window lives on meanwhile, and an analysis may end.
    bool areOthers = false;
    QObject here;
    connect(doc_, &CKELDSectionDoc::resultsRead, &here, [&areOthers] { areOthers = true; });
    connect(doc_, &CKELDSectionDoc::reloaded, &here, [&areOthers] { areOthers = true; });
    FileResult result;
    bool isCancelledNow = false;
    {
        COutputProgress progress(this, what, isCancelled);
        result = write({table_(), session_.selection, session_.State(),
                        [&](std::size_t done, std::size_t all) { return progress(done, all) && !areOthers; }},
                       ToPath(path));
        isCancelledNow = progress.IsCancelled();
    }
    if (areOthers)
        warn(this, tr("表を保存している間に計算結果が読み直されたので、保存を中止しました。%1\n"
                      "元のファイルがあれば、そのまま残っています。もう一度保存してください。")
                       .arg(QDir::toNativeSeparators(path)));
    else if (isCancelledNow)
        emit ended(tr("表の保存を中止しました。元のファイルがあれば、そのまま残っています。"));
    else
        TellSaved(path, result);
}

void CResultSaver::TellSaved(const QString& path, const FileResult& result)
{
    if (result.Ok())
        emit ended(tr("表を保存しました: %1").arg(QDir::toNativeSeparators(path)));
    else
        warn(this, tr("表を保存できませんでした。%1\n元のファイルがあれば、そのまま残っています。\n"
                      "保存先の空きと権限を確かめるか、別の場所に保存してください。\n\n(詳細: %2)")
                       .arg(QDir::toNativeSeparators(path), QString::fromStdString(result.detail)));
}

void CResultSaver::Print()
{
    if (!print(this, table_(), session_.selection))
        warn(this, tr("表を印刷できませんでした。データは変わっていません。\n"
                      "プリンターの状態を確かめて、もう一度印刷してください。"));
}

} // namespace sbd
