#include "upperview/up_view.h"

#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/cell_help.h"

#include <QLabel>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 12; // px around the page
constexpr int kFontPixels = 16;

/// The pages align by characters of one width.
QFont PageFont()
{
    QFont font(u"ＭＳ ゴシック"_s);
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(kFontPixels);
    return font;
}

QLabel* MakeLine(QColor colour, QWidget* parent)
{
    auto* label = new QLabel(parent);
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, colour);
    colours.setColor(QPalette::Text, colour); // of text that can be selected
    label->setPalette(colours);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setFocusPolicy(Qt::NoFocus);
    return label;
}

} // namespace

CUpView::CUpView(CKELDSectionDoc* doc, QWidget* parent) : QScrollArea(parent), doc_(doc)
{
    auto* page = new QWidget(this);
    page->setBackgroundRole(QPalette::Base);
    title_ = MakeLine(Qt::blue, page);
    cell_ = MakeLine(Qt::red, page);

    auto* lines = new QVBoxLayout(page);
    lines->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    lines->addWidget(title_);
    lines->addSpacing(kFontPixels); // the blank line below the title
    lines->addWidget(cell_);
    lines->addStretch();

    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setBackgroundRole(QPalette::Base);
    setFocusPolicy(Qt::NoFocus);
    setWidget(page);
    page->setFont(PageFont());

    connect(doc_, &CKELDSectionDoc::helpCellChanged, this, &CUpView::Refresh);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CUpView::Refresh);
    Refresh();
}

QString CUpView::TitleText() const
{
    return title_->text();
}

QString CUpView::CellText() const
{
    return cell_->text();
}

void CUpView::Refresh()
{
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    const std::string_view title = PageTitleOf(block);
    title_->setText(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    cell_->setText(toQString(CellTitle(doc_->Data(), CanonicalBlock(block), doc_->HelpRow(), doc_->HelpColumn())));
}

} // namespace sbd
