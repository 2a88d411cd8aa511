#include "frame/main_frame.h"

#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/finding_pane.h"
#include "frame/finding_text.h"
#include "frame/left_view.h"
#include "frame/profile.h"
#include "frame/program_icon.h"
#include "frame/project_findings.h"
#include "frame/project_replace.h"
#include "frame/run_changes.h"
#include "frame/settings.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>

#include <chrono>

namespace sbd {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const auto kGeometryKey = u"Window Size/Frame"_s;
constexpr QSize kFirstSize{1280, 800};
constexpr int kMargin = 4;              // px
constexpr int kNoticeTime = 30'000;     // ms, a line in the status bar
constexpr auto kRecoveryInterval = 15s; // between copies of what is not saved; an edit is copied within 20 s

/// The project files among what is dragged.
QStringList ProjectFiles(const QMimeData* dragged)
{
    QStringList files;
    for (const QUrl& url : dragged->urls()) {
        if (url.isLocalFile() && url.toLocalFile().endsWith(u".sbd"_s, Qt::CaseInsensitive))
            files.append(url.toLocalFile());
    }
    return files;
}

/// Gives a project the user's display settings.
void SetUpDocument(CKELDSectionDoc& doc)
{
    const CSettings settings;
    doc.display = settings.Display();
    doc.rowWidthMode = settings.RowWidthMode();
    doc.comboOrList = settings.ComboOrList();
}

} // namespace

CMainFrame::CMainFrame(Prompts prompts, QWidget* parent)
    : QMainWindow(parent)
    , area_(new QMdiArea(this))
    , prompts_(std::move(prompts))
{
    setWindowTitle(u"KELD section"_s);
    setWindowIcon(ProgramIcon());
    setAcceptDrops(true);
    setCentralWidget(area_);
    files_ = std::make_unique<CFileCommands>(*area_, prompts_);
    files_->setUpDocument = SetUpDocument;
    files_->setUpChild = [this](CChildFrame& child) { SetUpChild(child); };
    files_->saved = [this](CChildFrame& child) {
        if (const QString line = child.Findings().LineBehindSave(); !line.isEmpty())
            statusBar()->showMessage(line, kNoticeTime);
    };
    treeView_.language = CSettings().Language();

    CreateHandlers();
    CreateMenus();
    CreateStatusBar();
    actions_->Of(Command::Search)->setAutoRepeat(false); // held is not pressed twice
    connect(&files_->Runner(), &CEngineRunner::begun, this, &CMainFrame::ShowIndicators);
    connect(&files_->Runner(), &CEngineRunner::finished, this, &CMainFrame::ShowIndicators);
    connect(&files_->Runner(), &CEngineRunner::projectIsBack, this, &CMainFrame::ShowIndicators);
    SetTabbed(CSettings().TabbedWindows());

    auto* recovery = new QTimer(this);
    connect(recovery, &QTimer::timeout, this, [this] { files_->KeepRecoveryCopies(); });
    recovery->start(kRecoveryInterval);

    QCoreApplication::instance()->installEventFilter(this);
    connect(area_, &QMdiArea::subWindowActivated, this, &CMainFrame::OnChildActivated);
    OnChildActivated();
    resize(kFirstSize);
}

void CMainFrame::SetUpChild(CChildFrame& child)
{
    child.SetTreeView(treeView_);
    connect(&child, &CChildFrame::blockShown, this, &CMainFrame::UpdateCommands);
    child.ShowHelpBeside(CSettings().HelpBeside());
    child.Tree().addToMenu = [this](QMenu& menu) { menu.addActions(actions_->Menu(MenuId::TreeItems)->actions()); };
    connect(&child, &CChildFrame::placesChanged, this, &CMainFrame::UpdateCommands);
    connect(&child, &CChildFrame::blockShown, this, &CMainFrame::UpdateStatus); // behind the panel's own signals
    connect(&child, &CChildFrame::undoChanged, this, &CMainFrame::ShowHistory);
    connect(&child, &CChildFrame::displayChanged, this, [this, &child] {
        const DisplaySettings& display = child.Doc().display;
        CSettings().SetGrids(display);
        for (CChildFrame* other : Children())
            other->Doc().display.grids = display.grids;
        UpdateMarks();
    });
    connect(&child.Findings(), &CProjectFindings::countsChanged, this, &CMainFrame::ShowFindingCounts);
    connect(&child.Findings(), &CProjectFindings::told, this,
            [this](const QString& text) { statusBar()->showMessage(text, kNoticeTime); });
    connect(&child.RunChanges(), &CRunChanges::told, this,
            [this](const QString& text) { statusBar()->showMessage(text, kNoticeTime); });
    connect(&child.Replace(), &CProjectReplace::told, this,
            [this](const QString& text) { statusBar()->showMessage(text, kNoticeTime); });
    connect(&child.Findings(), &CProjectFindings::listWanted, this, [this] { ShowFindingList(true); });
    connect(child.Findings().Pane(), &CFindingPane::silentChosen, this, [this](const SilentKinds& kinds) {
        CSettings().SetSilentFindings(kinds);
        for (CChildFrame* other : Children())
            other->Findings().SetSilent(kinds);
    });
    connect(child.Findings().Pane(), &CFindingPane::closeWanted, this, [this] { ShowFindingList(false); });
}

CMainFrame::~CMainFrame()
{
    // The windows go before what they call.
    for (CChildFrame* child : Children())
        delete child;
}

CChildFrame* CMainFrame::CurrentChild() const
{
    return qobject_cast<CChildFrame*>(area_->currentSubWindow());
}

QList<CChildFrame*> CMainFrame::Children() const
{
    QList<CChildFrame*> children;
    for (QMdiSubWindow* window : area_->subWindowList()) {
        if (auto* child = qobject_cast<CChildFrame*>(window))
            children.append(child);
    }
    return children;
}

void CMainFrame::ShowAtStart()
{
    const QByteArray geometry = CProfile().value(kGeometryKey).toByteArray();
    if (geometry.isEmpty() || !restoreGeometry(geometry)) // which leaves out what the screens have no room for
        resize(kFirstSize);
    if (!isMaximized())
        resize(size().boundedTo(screen()->availableSize()));
    showMaximized();
}

void CMainFrame::closeEvent(QCloseEvent* event)
{
    // All questions first: a "cancel" leaves every project open.
    for (CChildFrame* child : Children()) {
        if (!asksNothing_ && !files_->MayClose(*child)) {
            event->ignore();
            return;
        }
    }
    CProfile().setValue(kGeometryKey, saveGeometry());
    KeepSessionPlaces();
    for (CChildFrame* child : Children()) {
        child->mayClose = nullptr;
        child->close();
    }
    event->accept();
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event)
{
    if (!ProjectFiles(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    for (const QString& file : ProjectFiles(event->mimeData()))
        OpenProject(file);
}

void CMainFrame::CreateStatusBar()
{
    pathLabel_ = new QLabel(this);
    pathLabel_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long path does not widen the window
    pathLabel_->setContentsMargins(kMargin, 0, kMargin, 0);
    cellLabel_ = new QLabel(this);
    cellLabel_->setContentsMargins(kMargin, 0, kMargin, 0);
    statusBar()->addWidget(pathLabel_, 1);
    summaryLabel_ = new QLabel(this); // of the selected cells
    summaryLabel_->setContentsMargins(kMargin, 0, kMargin, 0);
    statusBar()->addPermanentWidget(summaryLabel_);
    statusBar()->addPermanentWidget(cellLabel_);
    // The four indicators: what the cell takes, whether all is saved, the engine, the findings.
    for (QLabel** label : {&expectsLabel_, &savedLabel_, &engineLabel_}) {
        *label = new QLabel(this);
        (*label)->setContentsMargins(kMargin, 0, kMargin, 0);
        statusBar()->addPermanentWidget(*label);
    }
    findingsButton_ = new QToolButton(this);
    findingsButton_->setAutoRaise(true);
    findingsButton_->setFocusPolicy(Qt::NoFocus); // a click goes to a cell
    findingsButton_->setToolTip(tr("クリックか F8 で次の指摘へ、Shift+F8 で前の指摘へ移動します。一覧は Ctrl+F8。"));
    connect(findingsButton_, &QToolButton::clicked, this, [this] { RunCommand(Command::NextFinding); });
    findingsButton_->hide();
    statusBar()->addPermanentWidget(findingsButton_);
}

/// The severity that weighs most stands first, with its sign.
void CMainFrame::ShowFindingCounts()
{
    CChildFrame* child = CurrentChild();
    const QString text = child == nullptr ? QString() : CountsText(child->Findings().Check().Counts());
    findingsButton_->setText(text);
    findingsButton_->setAccessibleName(text.isEmpty() ? QString() : tr("データの指摘: %1").arg(text));
    findingsButton_->setVisible(!text.isEmpty());
}

void CMainFrame::ShowFindingList(bool show)
{
    CSettings().SetShowsFindings(show);
    for (CChildFrame* child : Children())
        child->Findings().ShowPane(show);
    if (CChildFrame* child = CurrentChild(); child != nullptr && show)
        child->Findings().FocusPane();
    UpdateMarks();
}

void CMainFrame::OnChildActivated()
{
    for (const QMetaObject::Connection& connection : docConnections_)
        disconnect(connection);
    docConnections_.clear();
    summaryLabel_->clear();
    CChildFrame* child = CurrentChild();
    if (child != nullptr) {
        const CKELDSectionDoc* doc = &child->Doc();
        docConnections_ = {connect(doc, &CKELDSectionDoc::pathChanged, this, &CMainFrame::UpdateStatus),
                           connect(doc, &CKELDSectionDoc::helpCellChanged, this, &CMainFrame::UpdateStatus),
                           connect(child, &CChildFrame::summaryChanged, summaryLabel_, &QLabel::setText),
                           connect(child, &CChildFrame::titleShown, this, &CMainFrame::ShowTitle),
                           connect(child, &QMdiSubWindow::windowStateChanged, this, &CMainFrame::ShowTitle),
                           connect(child, &CChildFrame::titleShown, this, &CMainFrame::UpdateStatus)};
    }
    UpdateCommands();
    UpdateStatus();
    ShowFindingCounts();
    ShowTitle();
}

void CMainFrame::UpdateStatus()
{
    CChildFrame* child = CurrentChild();
    ShowIndicators();
    if (child == nullptr) {
        pathLabel_->clear();
        cellLabel_->clear();
        return;
    }
    const CKELDSectionDoc& doc = child->Doc();
    const QString path = doc.PathName().isEmpty() ? child->NameWithoutPath() : QDir::toNativeSeparators(doc.PathName());
    pathLabel_->setText(path);
    pathLabel_->setToolTip(path);
    const bool inCell = doc.HelpBlock() >= 0 && doc.HelpRow() > 0;
    cellLabel_->setText(inCell ? u"%1　%2 行　%3 列"_s.arg(doc.HelpBlock()).arg(doc.HelpRow()).arg(doc.HelpColumn())
                               : QString());
}

} // namespace sbd
