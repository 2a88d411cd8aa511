#include "frame/box_web_sheet.h"

#include "document/section_doc.h"
#include "frame/box_web_source.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_style.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostRows = 24; // higher than that, the grid scrolls
constexpr int kLeastRows = 6;
constexpr int kLine = 1; // px, right and below the last cells

std::string CellText(const CGridSource& source, std::size_t row, int column)
{
    return fromQString(source.Text(static_cast<int>(row) + 1, column)).value_or(std::string());
}

} // namespace

CInputBoxLRName::CInputBoxLRName(BoxWebNames names, QWidget* parent)
    : QWidget(parent)
    , names_(std::move(names))
    , source_(std::make_unique<CBoxWebSource>(names_))
    , grid_(new CGridCtrl(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(grid_);
    grid_->SetSource(source_.get());
    grid_->SetFocusCell(1, kLeftColumn);
    grid_->installEventFilter(this);
    setFocusProxy(grid_);
}

CInputBoxLRName::~CInputBoxLRName()
{
    grid_->SetSource(nullptr); // goes after the source
}

bool CInputBoxLRName::Commit()
{
    if (!grid_->CommitEditor())
        return false;
    for (std::size_t row = 0; row < names_.girderNames.size(); ++row)
        CommitBoxWebRow(names_, row, CellText(*source_, row, kLeftColumn), CellText(*source_, row, kRightColumn));
    return true;
}

QSize CInputBoxLRName::sizeHint() const
{
    int width = kLine;
    for (int column = 0; column <= kRightColumn; ++column)
        width += source_->ColumnWidth(column);
    const int rows = std::clamp(source_->RowCount(), kLeastRows, kMostRows);
    if (source_->RowCount() > rows)
        width += style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {width, source_->HeadHeight() + rows * gridstyle::kRowHeight + kLine};
}

bool CInputBoxLRName::eventFilter(QObject* object, QEvent* event)
{
    if (object != grid_ || event->type() != QEvent::KeyPress || grid_->IsEditing())
        return QWidget::eventFilter(object, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const GridCell cell = grid_->FocusCell();
    const bool atEnd = cell.row == source_->RowCount() && cell.column == kRightColumn;
    const bool atStart = cell.row <= 1 && cell.column <= kLeftColumn;
    const bool forward = key == Qt::Key_Tab;
    if ((forward && (atEnd || cell.row == 0)) || (key == Qt::Key_Backtab && atStart)) {
        emit leftByTab(forward);
        return true;
    }
    return QWidget::eventFilter(object, event);
}

CBoxWebSheet::CBoxWebSheet(BoxWebNames names, QWidget* parent)
    : QDialog(parent)
    , page_(new CInputBoxLRName(std::move(names)))
    , ok_(new QPushButton(u"OK"_s))
    , cancel_(new QPushButton(u"キャンセル"_s))
{
    setWindowTitle(u"箱桁腹板名を入力してください"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(page_, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton* button : {ok_, cancel_})
        buttons->addWidget(button);
    layout->addLayout(buttons);

    connect(ok_, &QPushButton::clicked, this, &CBoxWebSheet::accept);
    connect(cancel_, &QPushButton::clicked, this, &CBoxWebSheet::reject);
    connect(page_, &CInputBoxLRName::leftByTab, this,
            [this](bool forward) { (forward ? ok_ : cancel_)->setFocus(Qt::TabFocusReason); });
    for (const int enter : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(QKeySequence(Qt::CTRL | enter), this), &QShortcut::activated, this, [this] { accept(); });
    page_->setFocus(Qt::OtherFocusReason);
}

void CBoxWebSheet::accept()
{
    if (page_->Commit())
        QDialog::accept();
}

bool ShowBoxWebSheet(QWidget* parent, BoxWebNames& names)
{
    CBoxWebSheet sheet(names, parent);
    if (sheet.exec() != QDialog::Accepted)
        return false;
    names = sheet.Page().Names();
    return true;
}

} // namespace sbd
