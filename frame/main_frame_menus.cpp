// The menus and the tool bar of the top window.
#include "document/engine_command.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/data_menu.h"
#include "frame/main_frame.h"
#include "frame/profile.h"
#include "panelmodel/tree_rows.h"
#include "panels/panel.h"
#include "project/catalogue.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QStyle>
#include <QToolBar>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// A text of the user's or of a table, which may hold "&", as an entry.
QString EntryText(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

QString TitleText(std::string_view title)
{
    return EntryText(QString::fromStdString(TitleIn(TitleLanguage::Japanese, title)).trimmed());
}

/// "&1 ... &9" for the first nine entries of a list.
QString Numbered(qsizetype index, const QString& text)
{
    return (index < 9 ? u"&%1  "_s.arg(index + 1) : u"%1  "_s.arg(index + 1)) + EntryText(text);
}

} // namespace

QAction* CMainFrame::AddAction(QMenu* menu, const QString& text, const QKeySequence& keys, std::function<void()> run)
{
    QAction* action = menu->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, [run = std::move(run)] { run(); });
    return action;
}

QAction* CMainFrame::AddChildAction(QMenu* menu, const QString& text, const QKeySequence& keys,
                                    std::function<void(CChildFrame&)> run)
{
    QAction* action = AddAction(menu, text, keys, [this, run = std::move(run)] {
        if (CChildFrame* child = CurrentChild())
            run(*child);
    });
    childActions_.append(action);
    return action;
}

void CMainFrame::CreateFileMenu()
{
    QMenu* menu = menuBar()->addMenu(u"ファイル(&F)"_s);
    newAction_ = AddAction(menu, u"新規作成(&N)"_s, QKeySequence::New, [this] { files_->New(); });
    openAction_ = AddAction(menu, u"開く(&O)..."_s, QKeySequence::Open, [this] { files_->Open(); });
    AddChildAction(menu, u"閉じる(&C)"_s, QKeySequence(Qt::CTRL | Qt::Key_W),
                   [](CChildFrame& child) { child.close(); });
    menu->addSeparator();
    saveAction_ = AddChildAction(menu, u"上書き保存(&S)"_s, QKeySequence::Save,
                                 [this](CChildFrame& child) { files_->Save(child); });
    AddChildAction(menu, u"名前を付けて保存(&A)..."_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                   [this](CChildFrame& child) { files_->SaveAs(child); });
    menu->addSeparator();
    recentMenu_ = menu->addMenu(u"最近使ったファイル(&R)"_s);
    connect(recentMenu_, &QMenu::aboutToShow, this, &CMainFrame::FillRecentMenu);
    FillRecentMenu();
    menu->addSeparator();
    AddAction(menu, u"終了(&X)"_s, QKeySequence::Quit, [this] { close(); });
}

void CMainFrame::FillRecentMenu()
{
    recentMenu_->clear();
    const QStringList files = CRecentFiles::List();
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString file = files[i];
        AddAction(recentMenu_, Numbered(i, QDir::toNativeSeparators(file)), {}, [this, file] { OpenProject(file); });
    }
    if (files.isEmpty())
        recentMenu_->addAction(u"(なし)"_s)->setEnabled(false);
}

void CMainFrame::CreateEditMenu()
{
    // The keys are the grid's own and an open editor's: with the focus in the tree, Delete must not empty a cell.
    QMenu* menu = menuBar()->addMenu(u"編集(&E)"_s);
    AddEditAction(menu, u"元に戻す(&U)\tCtrl+Z"_s, &QLineEdit::undo, &CPanel::Undo);
    menu->addSeparator();
    AddEditAction(menu, u"切り取り(&T)\tCtrl+X"_s, &QLineEdit::cut, &CPanel::Cut);
    AddEditAction(menu, u"コピー(&C)\tCtrl+C"_s, &QLineEdit::copy, &CPanel::Copy);
    AddEditAction(menu, u"貼り付け(&P)\tCtrl+V"_s, &QLineEdit::paste, &CPanel::Paste);
    AddEditAction(menu, u"削除(&D)\tDel"_s, &QLineEdit::del, &CPanel::Delete);
    menu->addSeparator();
    AddRowAction(menu, u"順序上へ移動(&B)"_s, &CPanel::MoveRowUp, &CPanel::CanMoveRowUp);
    AddRowAction(menu, u"順序下へ移動(&N)"_s, &CPanel::MoveRowDown, &CPanel::CanMoveRowDown);
    AddRowAction(menu, u"挿入行(&I)"_s, &CPanel::InsertRow, &CPanel::CanInsertRow);
}

void CMainFrame::AddEditAction(QMenu* menu, const QString& text, std::function<void(QLineEdit&)> inEditor,
                               std::function<void(CPanel&)> inPanel)
{
    AddChildAction(menu, text, {}, [inEditor = std::move(inEditor), inPanel = std::move(inPanel)](CChildFrame& child) {
        if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            inEditor(*editor);
        else if (child.Panel() != nullptr)
            inPanel(*child.Panel());
    });
}

void CMainFrame::AddRowAction(QMenu* menu, const QString& text, std::function<void(CPanel&)> run,
                              std::function<bool(const CPanel&)> mayRun)
{
    QAction* action = AddAction(menu, text, {}, [this, run = std::move(run)] {
        if (CChildFrame* child = CurrentChild(); child != nullptr && child->Panel() != nullptr)
            run(*child->Panel());
    });
    connect(menu, &QMenu::aboutToShow, action, [this, action, mayRun = std::move(mayRun)] {
        CChildFrame* child = CurrentChild();
        action->setEnabled(child != nullptr && child->Panel() != nullptr && mayRun(*child->Panel()));
    });
}

void CMainFrame::CreateDataMenu()
{
    QMenu* menu = menuBar()->addMenu(u"データ入力(&I)"_s);
    for (const DataMenuPart& part : DataMenuParts()) {
        QMenu* entries = menu;
        if (!part.title.empty())
            entries = menu->addMenu(TitleText(part.title));
        else if (!menu->isEmpty())
            menu->addSeparator();
        for (const auto& [first, last] : part.ranges) {
            for (int block = first; block <= last; ++block)
                AddDataEntry(entries, block);
        }
        if (part.title.empty())
            menu->addSeparator();
    }
}

void CMainFrame::AddDataEntry(QMenu* menu, int block)
{
    const CatalogueRow* row = FindBlock(block);
    if (row == nullptr || row->menuText.empty())
        return;
    if (const auto run = RunOfBlock(block)) {
        AddAction(menu, TitleText(row->menuText), {}, [this, run] { Run(*run); });
        return;
    }
    const QKeySequence keys = block == 999 ? QKeySequence(Qt::Key_F1) : QKeySequence();
    AddChildAction(menu, TitleText(row->menuText), keys, [block](CChildFrame& child) { child.GoToBlock(block); });
}

void CMainFrame::CreateRunMenu()
{
    constexpr struct {
        EngineRun run;
        QStringView text;
    } entries[] = {
        {EngineRun::Main, u"1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）"},
        {EngineRun::Check, u"2.データをチェック"},
        {EngineRun::Result,
         u"3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)"},
        {EngineRun::Cross,
         u"4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)"},
        {EngineRun::Support,
         u"5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)"},
    };
    QMenu* menu = menuBar()->addMenu(u"解析&&結果(&A)"_s);
    for (const auto& entry : entries)
        AddAction(menu, EntryText(entry.text.toString()), {}, [this, run = entry.run] { Run(run); });
}

void CMainFrame::Run(EngineRun run)
{
    if (CChildFrame* child = CurrentChild())
        files_->Run(*child, run);
}

void CMainFrame::CreateWindowMenu()
{
    windowMenu_ = menuBar()->addMenu(u"ウィンドウ(&W)"_s);
    AddChildAction(windowMenu_, u"ツリーと入力欄の切り替え(&F)"_s, QKeySequence(Qt::Key_F6),
                   [](CChildFrame& child) { child.FocusOtherPane(); });
    windowMenu_->addSeparator();
    AddChildAction(windowMenu_, u"次のウィンドウ(&N)"_s, QKeySequence(Qt::CTRL | Qt::Key_F6),
                   [this](CChildFrame&) { area_->activateNextSubWindow(); });
    AddChildAction(windowMenu_, u"前のウィンドウ(&P)"_s, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F6),
                   [this](CChildFrame&) { area_->activatePreviousSubWindow(); });
    AddChildAction(windowMenu_, u"重ねて表示(&C)"_s, {}, [this](CChildFrame&) { area_->cascadeSubWindows(); });
    AddChildAction(windowMenu_, u"並べて表示(&T)"_s, {}, [this](CChildFrame&) { area_->tileSubWindows(); });
    windowMenu_->addSeparator();
    connect(windowMenu_, &QMenu::aboutToShow, this, &CMainFrame::FillWindowMenu);
}

void CMainFrame::FillWindowMenu()
{
    qDeleteAll(windowEntries_);
    windowEntries_.clear();
    const QList<CChildFrame*> children = Children();
    for (qsizetype i = 0; i < children.size(); ++i) {
        CChildFrame* child = children[i];
        const QString path = child->Doc().PathName();
        const QString name = path.isEmpty() ? child->Title() : QDir::toNativeSeparators(path);
        QAction* entry =
            AddAction(windowMenu_, Numbered(i, name), {}, [this, child] { area_->setActiveSubWindow(child); });
        entry->setCheckable(true);
        entry->setChecked(child == CurrentChild());
        windowEntries_.append(entry);
    }
}

void CMainFrame::CreateHelpMenu()
{
    helpMenu_ = menuBar()->addMenu(u"ヘルプ(&H)"_s);
    AddAction(helpMenu_, u"バージョン情報(&A)"_s, {}, [this] { ShowAbout(); });
    versionAction_ = menuBar()->addAction(QString());
    connect(versionAction_, &QAction::triggered, this, &CMainFrame::ShowAbout);
}

void CMainFrame::ShowAbout()
{
    QMessageBox::about(this, u"バージョン情報"_s,
                       u"KELD section\n鋼橋上部工 自動設計システム 入力ステーション\n\nバージョン %1"_s.arg(
                           QApplication::applicationVersion()));
}

void CMainFrame::CreateToolBar()
{
    QToolBar* bar = addToolBar(u"標準"_s);
    bar->setObjectName(u"standardToolBar"_s);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const struct {
        QAction* action;
        QStyle::StandardPixmap icon;
        QString text;
    } buttons[] = {{newAction_, QStyle::SP_FileIcon, u"新規"_s},
                   {openAction_, QStyle::SP_DialogOpenButton, u"開く"_s},
                   {saveAction_, QStyle::SP_DialogSaveButton, u"保存"_s}};
    for (const auto& button : buttons) {
        button.action->setIcon(style()->standardIcon(button.icon));
        button.action->setIconText(button.text);
        bar->addAction(button.action);
    }
}

} // namespace sbd
