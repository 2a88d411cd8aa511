// What the runs are given: dialogs, folders and processes of the system, and a window's project.
#include "document/analysis_mutex.h"
#include "document/kept_inputs.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/engine_runner.h"
#include "frame/run_notices.h"
#include "panels/panel.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// True: the first answer. Closing the box is the answer that starts nothing.
bool Ask(QWidget* parent, const QString& text, const QString& first, const QString& second, bool startsWithFirst)
{
    QMessageBox box(QMessageBox::Question, u"KELD section"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* yes = box.addButton(first, QMessageBox::YesRole);
    QPushButton* no = box.addButton(second, QMessageBox::NoRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(startsWithFirst ? no : yes);
    box.exec();
    return box.clickedButton() == yes;
}

/// Asked while the analysis program runs, where yes means to stop.
bool AskYesNo(QWidget* parent, const QString& text)
{
    return Ask(parent, text, u"はい(&Y)"_s, u"いいえ(&N)"_s, false);
}

bool AskOkCancel(QWidget* parent, const QString& text)
{
    return Ask(parent, text, u"OK"_s, u"キャンセル"_s, true);
}

void Tell(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, u"KELD section"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    box.exec();
}

AnalysisMutexHandle CreateAnalysisMutex()
{
    auto mutex = std::make_shared<CAnalysisMutex>();
    return {mutex->Existed(), mutex};
}

} // namespace

RunSeams ScreenRunSeams()
{
    return {
        AskYesNo,         AskOkCancel, Tell, [] { return QCoreApplication::applicationDirPath(); }, CreateAnalysisMutex,
        RunEngineProcess, KeptFolder};
}

RunProject RunProjectOf(CChildFrame& child, CProjectLock& lock, std::function<bool()> save)
{
    const QPointer<CChildFrame> frame = &child;
    RunProject project;
    project.doc = &child.Doc();
    project.lock = &lock;
    project.window = child.window();
    project.save = std::move(save);
    project.changeProject = [frame](const std::function<void()>& change) {
        if (frame)
            frame->ChangeByRun(change);
    };
    project.keepRecoveryCopy = [frame] {
        if (frame)
            frame->KeepRecoveryCopy();
    };
    project.show = [frame](const RunReport& report) {
        if (frame)
            ShowRunReport(*frame, report, {});
    };
    return project;
}

} // namespace sbd
