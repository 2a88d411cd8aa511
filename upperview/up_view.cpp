#include "upperview/up_view.h"

#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/cell_help.h"
#include "upperview/chk_view.h"
#include "upperview/page_font.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 12; // px around the page
constexpr int kFontPixels = 16;

QFont LabelFont()
{
    QFont font = PageFont();
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

CUpView::CUpView(CKELDSectionDoc* doc, QWidget* parent) : QStackedWidget(parent), doc_(doc), chk_(new CChkView(doc))
{
    page_ = CreatePage();
    addWidget(page_);
    addWidget(chk_);
    setFocusPolicy(Qt::NoFocus);
    connect(doc_, &CKELDSectionDoc::helpCellChanged, this, &CUpView::Refresh);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CUpView::Refresh);
    Refresh();
}

QWidget* CUpView::CreatePage()
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

    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setBackgroundRole(QPalette::Base);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(page);
    page->setFont(LabelFont());
    return scroll;
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
    if (IsChkBlock(doc_->CurrentBlock())) {
        setCurrentWidget(chk_);
        chk_->viewport()->update();
        return;
    }
    setCurrentWidget(page_);
    const int block = doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock();
    const std::string_view title = PageTitleOf(block);
    title_->setText(QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size())));
    cell_->setText(toQString(CellTitle(doc_->Data(), CanonicalBlock(block), doc_->HelpRow(), doc_->HelpColumn())));
}

} // namespace sbd
