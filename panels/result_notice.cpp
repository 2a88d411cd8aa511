#include "panels/result_notice.h"

#include "document/result_session.h"
#include "document/section_doc.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <chrono>

namespace sbd {

using namespace std::chrono_literals;

namespace {

constexpr auto kPause = 2s;
constexpr int kMargin = 4;

/// Waits with the pointer of a long task until it goes.
class WaitPointer {
public:
    WaitPointer() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;
    ~WaitPointer() { QGuiApplication::restoreOverrideCursor(); }
};

QString NewerText(const CKELDSectionDoc& doc)
{
    return doc.Results().model.loadCaseNames.empty()
               ? CResultNotice::tr("骨組解析の結果ファイルができています。読み込むと表と図に表示されます。")
               : CResultNotice::tr("骨組解析の結果ファイルが、読み込んだ後に更新されました。表と図は更新前の結果です。"
                                   "読み込むと新しい結果に替わります。");
}

} // namespace

CResultNotice::CResultNotice(CKELDSectionDoc* doc, QWidget* panel)
    : QWidget(panel)
    , doc_(doc)
    , text_(new QLabel)
    , read_(new QPushButton(tr("結果を読み込む(&R)")))
{
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    text_->setForegroundRole(QPalette::ToolTipText);
    text_->setWordWrap(true);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(2 * kMargin, kMargin, 2 * kMargin, kMargin);
    line->addWidget(text_, 1);
    line->addWidget(read_);
    hide();
    read_->setEnabled(false);
    connect(read_, &QPushButton::clicked, this, &CResultNotice::ReadAgain);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CResultNotice::Check);
    connect(doc_, &CKELDSectionDoc::resultsRead, this, &CResultNotice::Check);
    connect(doc_, &CKELDSectionDoc::pathChanged, this, &CResultNotice::Check);
    timer_.setInterval(kPause);
    connect(&timer_, &QTimer::timeout, this, &CResultNotice::Check);
    panel->installEventFilter(this);
    Check();
}

void CResultNotice::Check()
{
    ResultSessionOf(*doc_).RefreshState();
    const bool newer = doc_->HasNewerResults();
    if (newer == read_->isEnabled())
        return;
    text_->setText(NewerText(*doc_));
    read_->setEnabled(newer);
    setVisible(newer);
}

bool CResultNotice::eventFilter(QObject* panel, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        Check();
        timer_.start();
    } else if (event->type() == QEvent::Hide) {
        timer_.stop();
    } else if (event->type() == QEvent::WindowActivate) {
        Check();
    }
    return QWidget::eventFilter(panel, event);
}

void CResultNotice::ReadAgain()
{
    const WaitPointer wait;
    doc_->ReadResults(doc_->PathName());
    if (read_->isEnabled()) // still other files on the disk than in memory
        text_->setText(tr(
            "読み込めなかったか、読み込みの途中で更新された結果ファイルがあります。解析プログラムが動いている場合は、"
            "終わってからもう一度読み込んでください。"));
}

} // namespace sbd
