// The program's window with an example in it, and commands given as menu and tool bar do.
#pragma once

#include "answers.h"
#include "commands/commands.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "menu_entries.h"
#include "panels/panel.h"

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

/// A user without engines: a run is a line in a list.
struct CommandStation {
    TestFolder folder;
    Answers user;
    Prompts prompts = user.Dialogs();
    std::unique_ptr<CMainFrame> frame;
    CChildFrame* child = nullptr;

    CommandStation()
    {
        prompts.runs.runEngine = [this](QWidget*, const EngineStart& start) {
            engines.append(start.engine);
            return EngineEnd{.started = true};
        };
        Start();
    }
    /// A start of the program with the profile as it stands.
    void Start()
    {
        child = nullptr;
        frame = std::make_unique<CMainFrame>(prompts);
        frame->resize(1366, 768);
        frame->show();
        child = frame->OpenProject(folder.Example(u"plate4"_s));
        QApplication::processEvents();
    }
    [[nodiscard]] QAction* Action(Command command) const { return frame->Actions().Of(command); }
    /// Gives a command as the menu and the tool bar do.
    void Give(Command command) const
    {
        Action(command)->trigger();
        QApplication::processEvents();
    }
    [[nodiscard]] CKELDSectionDoc& Doc() const { return child->Doc(); }
    [[nodiscard]] CGridCtrl& Grid() const { return *child->Panel()->Grid(); }
    [[nodiscard]] QStringList TopItems() const
    {
        QStringList texts;
        for (int i = 0; i < child->Tree().topLevelItemCount(); ++i)
            texts.append(child->Tree().topLevelItem(i)->text(0));
        return texts;
    }

    QStringList engines;
};

/// The entries of the data menu.
[[nodiscard]] inline QStringList DataMenuTexts(const CMainFrame& frame)
{
    QStringList texts;
    for (QAction* top : frame.menuBar()->actions()) {
        if (top->text() == u"データ入力(&I)"_s) {
            for (QAction* entry : Entries(top->menu()))
                texts.append(entry->text());
        }
    }
    return texts;
}

} // namespace sbd
