// The program's window in the tests of a document's life: a user with answers, real engines.
#pragma once

#include "answers.h"
#include "document/kept_inputs.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QDir>
#include <QTest>

#include <functional>

namespace sbd {

using namespace Qt::StringLiterals;

struct LifeStation {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};

    LifeStation()
    {
        user.engines = QString::fromUtf8(test::EngineFolder());
        frame.resize(1366, 768);
        frame.show();
        frame.NewProject(); // as at the start of the program
    }

    /// A folder with the analysis input of an example under the name "bridge"; the path of that file.
    [[nodiscard]] QString AnalysisInput(const QString& example = u"box2"_s)
    {
        const QString file = folder.Path(u"bridge.abd"_s);
        QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u'/' + example + u'/' + example + u".abd"_s, file);
        return file;
    }
    [[nodiscard]] QString Project() const { return folder.Path(u"bridge.sbd"_s); }

    /// A new project by a choice of the chooser.
    CChildFrame* Begin(int choice, int girderType = 0)
    {
        user.start = {choice, girderType};
        user.newProjectFile = folder.Path(u"bridge.abd"_s);
        return frame.NewProject();
    }

    /// The next engines do this, one verb a line (tests/engine/engine.cpp).
    void Engine(const QString& base, const QByteArray& verbs) const
    {
        QFile file(folder.Path(base + u".engine"_s));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(verbs);
    }

    [[nodiscard]] QAction* Command(const QString& text) const
    {
        for (QAction* action : frame.findChildren<QAction*>()) {
            if (action->text().startsWith(text))
                return action;
        }
        return nullptr;
    }
    void Trigger(const QString& text) const
    {
        QAction* action = Command(text);
        QVERIFY2(action != nullptr, qPrintable(text));
        action->trigger();
        QApplication::processEvents();
    }
};

/// What the user enters.
inline void Enter(CChildFrame& child, const char* title)
{
    child.SwitchToBlock(302); // the panel of 301 would write its own
    test::DataOf(child.Doc()).SetOption(301, 0, title);
    test::TellChanged(child.Doc(), {301, 0});
    child.Doc().SetModifiedFlag(true);
}

inline QPoint PlaceInTree(CLeftView& tree, int block)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        if (!(*it)->text(0).startsWith(QString::number(block)) || (*it)->childCount() > 0)
            continue;
        if ((*it)->parent() != nullptr)
            (*it)->parent()->setExpanded(true);
        tree.scrollToItem(*it);
        const QRect place = tree.visualItemRect(*it);
        return {place.left() + 20, place.center().y()};
    }
    return {};
}

inline void Click(CChildFrame& child, int block)
{
    QTest::mouseClick(child.Tree().viewport(), Qt::LeftButton, {}, PlaceInTree(child.Tree(), block));
    QApplication::processEvents();
}

inline void DoubleClick(CChildFrame& child, int block)
{
    Click(child, block);
    QTest::mouseDClick(child.Tree().viewport(), Qt::LeftButton, {}, PlaceInTree(child.Tree(), block));
}

inline QByteArray TitleLine(const QString& path)
{
    const QByteArray bytes = Bytes(path);
    return bytes.left(bytes.indexOf('\r'));
}

inline std::string_view TypeOf(CChildFrame& child)
{
    return child.Doc().Data().Option(301, 2);
}

/// The recovery copies and kept inputs of earlier tests are not those of this one.
inline void RemoveAllCopies()
{
    QDir(KeptFolder()).removeRecursively();
    for (const RecoveryCopy& copy : FindRecoveryCopies())
        RemoveRecoveryCopy(copy);
}

/// What another process does until it is killed: opens a project and changes it again and again. Ends, as an exit code
/// that is not 0, where the project does not open or a `change` (with its number, from 1) fails.
inline int ChangeUntilKilled(const QString& project, const std::function<bool(CMainFrame&, CChildFrame&, int)>& change)
{
    Answers user;
    CMainFrame frame(user.Dialogs());
    CChildFrame* child = frame.OpenProject(project);
    if (child == nullptr)
        return 1;
    for (int number = 1; change(frame, *child, number);)
        ++number;
    return 2;
}

} // namespace sbd
