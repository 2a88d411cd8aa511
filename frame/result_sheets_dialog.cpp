#include "frame/result_sheets_dialog.h"

#include "document/file_name.h"
#include "document/path.h"
#include "document/result_session.h"
#include "document/section_doc.h"
#include "panels/output_progress.h"
#include "panels/print_name.h"
#include "project/text.h"
#include "results/result_title.h"
#include "sbdfile/output_file.h"
#include "upperview/display_look.h"
#include "upperview/result_sheets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The girder whose figure is on show.
std::string GirderOnShow(const AnalysisModel& model, const ResultSelection& selection)
{
    const bool isThere = std::ranges::find(model.girderNames, selection.girder) != model.girderNames.end();
    return isThere || model.girderNames.empty() ? selection.girder : model.girderNames.front();
}

/// What each figure has laid over it, in a line of its own; empty: nothing.
QString OverText(const ResultSelection& selection)
{
    QStringList parts;
    for (const std::string& part : {ShownLoad(selection.overLoad), selection.overGirder})
        if (!selection.envelope && !part.empty())
            parts << toQString(part);
    return parts.isEmpty() ? QString() : u"\n重ね描き: "_s + parts.join(u'　');
}

} // namespace

CResultSheetsDialog::CResultSheetsDialog(CKELDSectionDoc* doc, QWidget* parent)
    : QDialog(parent)
    , askFile([](QWidget* owner, const QString& proposal) {
        return QFileDialog::getSaveFileName(owner, u"図をPDFに保存"_s, proposal, u"PDF (*.pdf)"_s);
    })
    , choosePrinter([](QWidget* owner, QPrinter& printer) {
        QPrintDialog dialog(&printer, owner);
        return dialog.exec() == QDialog::Accepted;
    })
    , warn([](QWidget* owner, const QString& message) {
        QMessageBox::warning(owner, QStringLiteral("KELD section"), message);
    })
    , doc_(doc)
    , allGirders_(new QRadioButton(u"すべての主桁 (1枚に1主桁、しおり付き)(&A)"_s))
    , paper_(new QComboBox)
    , orientation_(new QComboBox)
{
    setObjectName(u"resultSheets"_s);
    setWindowTitle(u"主桁ごとの図"_s);
    const AnalysisModel& model = doc_->Results().model;
    const ResultSelection& selection = ResultSessionOf(*doc_).selection;
    oneGirder_ = new QRadioButton(u"表示中の主桁 %1 だけ(&O)"_s.arg(toQString(GirderOnShow(model, selection))));
    allGirders_->setChecked(true);

    auto* what = new QLabel(toQString(selection.envelope ? ShortTableTitle(selection) : ShownLoad(selection.load))
                            + OverText(selection));
    what->setTextFormat(Qt::PlainText);
    what->setWordWrap(true);
    auto* items = new QGroupBox(u"1枚に上から並べる図"_s);
    auto* grid = new QGridLayout(items);
    const std::vector<SheetItem> usual = UsualItems();
    for (const ResultKindInfo& info : ResultKinds()) {
        const int row = static_cast<int>(info.kind);
        grid->addWidget(new QLabel(Text8(info.word)), row, 0);
        for (std::size_t i = 0; i < kNodeComponents; ++i) {
            auto* box = new QCheckBox(Text8(info.components[i]));
            box->setAccessibleName(Text8(info.word) + u' ' + box->text());
            box->setChecked(std::ranges::find(usual, SheetItem{info.kind, i}) != usual.end());
            connect(box, &QCheckBox::toggled, this, &CResultSheetsDialog::ShowState);
            grid->addWidget(box, row, static_cast<int>(i) + 1);
            items_[static_cast<std::size_t>(row)][i] = box;
        }
    }
    paper_->addItem(u"A4"_s, int(QPageSize::A4));
    paper_->addItem(u"A3"_s, int(QPageSize::A3));
    orientation_->addItem(u"自動 (図が2つまでは横)"_s);
    orientation_->addItem(u"横"_s, int(QPageLayout::Landscape));
    orientation_->addItem(u"縦"_s, int(QPageLayout::Portrait));

    auto* form = new QFormLayout;
    form->addRow(u"荷重"_s, what);
    form->addRow(allGirders_);
    form->addRow(oneGirder_);
    form->addRow(items);
    form->addRow(u"用紙(&P)"_s, paper_);
    form->addRow(u"向き(&D)"_s, orientation_);
    auto* buttons = new QDialogButtonBox;
    save_ = buttons->addButton(u"PDFに保存(&S)..."_s, QDialogButtonBox::ActionRole);
    print_ = buttons->addButton(u"印刷(&R)..."_s, QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(u"閉じる"_s, QDialogButtonBox::RejectRole);
    save_->setDefault(true);
    connect(save_, &QPushButton::clicked, this, &CResultSheetsDialog::SavePdf);
    connect(print_, &QPushButton::clicked, this, &CResultSheetsDialog::Print);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
    ShowState();
}

void CResultSheetsDialog::ShowState()
{
    const bool any = std::ranges::any_of(items_, [](const auto& kind) {
        return std::ranges::any_of(kind, [](const QCheckBox* box) { return box->isChecked(); });
    });
    save_->setEnabled(any);
    print_->setEnabled(any);
}

std::vector<ResultSheet> CResultSheetsDialog::Sheets() const
{
    const AnalysisModel& model = doc_->Results().model;
    const ResultSelection& selection = ResultSessionOf(*doc_).selection;
    std::vector<SheetItem> items;
    // In the order in which engineers lay them: forces, then displacements, then reactions; the usual ones first.
    for (const SheetItem& item : UsualItems())
        if (items_[static_cast<std::size_t>(item.kind)][item.component]->isChecked())
            items.push_back(item);
    for (const ResultKind kind : {ResultKind::Force, ResultKind::Displacement, ResultKind::Reaction})
        for (std::size_t i = 0; i < kNodeComponents; ++i)
            if (items_[static_cast<std::size_t>(kind)][i]->isChecked()
                && std::ranges::find(items, SheetItem{kind, i}) == items.end())
                items.push_back({kind, i});
    const std::vector<std::string> one{GirderOnShow(model, selection)};
    return SheetsOfGirders(selection, oneGirder_->isChecked() ? one : model.girderNames, items);
}

QPageLayout CResultSheetsDialog::Layout() const
{
    const QVariant chosen = orientation_->currentData();
    return SheetLayout(static_cast<QPageSize::PageSizeId>(paper_->currentData().toInt()),
                       chosen.isValid() ? static_cast<QPageLayout::Orientation>(chosen.toInt())
                                        : OrientationOf(Sheets()));
}

template <typename Work>
bool CResultSheetsDialog::WithProgress(const Work& work)
{
    COutputProgress progress(this, u"図を作成しています..."_s,
                             [this](std::size_t done) { return isCancelled && isCancelled(static_cast<int>(done)); });
    work([&progress](int done, int all) {
        return progress(static_cast<std::size_t>(done), static_cast<std::size_t>(all));
    });
    return progress.IsCancelled();
}

void CResultSheetsDialog::SavePdf()
{
    const QString title =
        u"主桁図 "_s + toQString(ShortTableTitle(ResultSessionOf(*doc_).selection)).replace(u'　', u' ');
    const QString path = askFile(this, ProposedFile(*doc_, title, u".pdf"_s));
    if (path.isEmpty())
        return;
    QByteArray pdf;
    const bool cancelled = WithProgress([&](const SheetProgress& progress) {
        pdf = SheetsPdf(Layout(), doc_->Results(), Sheets(), FigureFont(doc_->display), ResultSessionOf(*doc_).State(),
                        progress);
    });
    if (cancelled)
        return;        // the file, if there is one, is as it was
    FileResult result; // nothing takes no file's place
    if (!pdf.isEmpty())
        result = WriteOutputFile(ToPath(path), {pdf.constData(), static_cast<std::size_t>(pdf.size())});
    if (pdf.isEmpty() || !result.Ok())
        warn(this, u"図を保存できませんでした。%1\n元のファイルがあれば、そのまま残っています。\n"
                   u"保存先の空きと権限を確かめるか、別の場所に保存してください。\n\n(詳細: %2)"_s.arg(
                       path, QString::fromStdString(result.detail)));
    else
        accept();
}

void CResultSheetsDialog::Print()
{
    QPrinter printer(QPrinter::HighResolution);
    NamePrint(printer, ProposedFile(*doc_, u"主桁図"_s, u".pdf"_s));
    printer.setPageLayout(Layout());
    if (!choosePrinter(this, printer))
        return;
    bool isDone = false;
    const bool cancelled = WithProgress([&](const SheetProgress& progress) {
        isDone = PaintSheets(printer, doc_->Results(), Sheets(), FigureFont(doc_->display),
                             ResultSessionOf(*doc_).State(), progress);
    });
    if (cancelled)
        printer.abort();
    else if (!isDone)
        warn(this, u"図を印刷できませんでした。データは変わっていません。\n"
                   u"プリンターの状態を確かめて、もう一度印刷してください。"_s);
    else
        accept();
}

} // namespace sbd
