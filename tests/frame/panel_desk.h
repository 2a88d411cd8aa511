// A project on the screen and the hands at its grid: keys, mouse, clipboard, input method.
#pragma once

#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>

namespace sbd {

using namespace Qt::StringLiterals;

/// Keys come from the window system, so that shortcuts, editors and open lists get theirs.
inline void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QApplication::processEvents(); // a list that has closed no longer takes keys
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

inline void Type(const QString& text)
{
    QApplication::processEvents();
    for (const QChar c : text)
        QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
}

/// A project on the screen, with the cursor in the grid.
struct Desk {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};
    CChildFrame* child = nullptr;
    QStringList told; ///< by the grid
    bool isActive = false;

    Desk()
    {
        frame.resize(1366, 800);
        frame.show();
        frame.activateWindow();
        isActive = QTest::qWaitForWindowActive(&frame);
    }

    void Open(const QString& path, int block)
    {
        child = frame.OpenProject(path);
        Go(block);
    }
    /// A copy of an example; no where the window has not become the active one, to which keys go.
    [[nodiscard]] bool OpenExample(const QString& name, int block)
    {
        Open(folder.Example(name), block);
        return isActive;
    }
    void Go(int block)
    {
        child->GoToBlock(block);
        QApplication::processEvents(); // the panel gets its place
        Grid().showMessage = [this](const QString& message) { told << message; };
        child->FocusPanel();
    }
    /// An empty project with the names of the example bridge beside it.
    [[nodiscard]] QString EmptyProject() const
    {
        const QString path = folder.Path(u"new.sbd"_s);
        CKELDSectionDoc doc;
        if (!doc.SaveDocument(path).Ok())
            return {};
        QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.abd"_s, folder.Path(u"new.abd"_s));
        return path;
    }

    [[nodiscard]] CPanel& Panel() const { return *child->Panel(); }
    [[nodiscard]] CGridCtrl& Grid() const { return *child->Panel()->Grid(); }
    [[nodiscard]] QWidget* Editor() const
    {
        return Grid().IsEditing() ? Grid().indexWidget(Grid().currentIndex()) : nullptr;
    }
    [[nodiscard]] QModelIndex Index(int row, int column) const { return Grid().model()->index(row - 1, column - 1); }
    [[nodiscard]] QString Cell(int row, int column) const { return Index(row, column).data().toString(); }
    [[nodiscard]] QPoint Middle(int row, int column) const { return Grid().visualRect(Index(row, column)).center(); }
    [[nodiscard]] QStringList Row(int row) const
    {
        QStringList cells;
        for (int column = 1; column <= Grid().model()->columnCount(); ++column)
            cells << Cell(row, column);
        return cells;
    }
    [[nodiscard]] QString Stored(int block, int row, int column) const
    {
        return toQString(child->Doc().Data().Table(block)->columns[std::size_t(column) - 1][std::size_t(row) - 1]);
    }
    [[nodiscard]] QString Option(int block, int row) const
    {
        return toQString(child->Doc().Data().Option(block, std::size_t(row) - 1));
    }
    void Click(int row, int column, Qt::KeyboardModifiers modifiers = {}) const
    {
        Grid().scrollTo(Index(row, column));
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, modifiers, Middle(row, column));
    }
    /// Puts a text on the clipboard as LibreOffice does: with the table as a page beside it.
    static void CopyFromLibreOffice(const QString& text)
    {
        auto* data = new QMimeData;
        data->setText(text);
        data->setHtml(u"<html><body><table><tr><td>not this</td></tr></table></body></html>"_s);
        data->setData(u"application/x-openoffice-embed-source-xml"_s, "not this");
        QApplication::clipboard()->setMimeData(data);
    }
};

inline void SendMouse(QWidget& widget, QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}

inline void Drag(QWidget& widget, QPoint from, QPoint to)
{
    SendMouse(widget, QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
    SendMouse(widget, QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
}

inline void Wheel(QWidget& widget, int steps)
{
    const QPointF at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}

/// What an input method sends: a composition that stands (`preedit`), or a text that is done (`commit`).
inline void Compose(const QString& preedit, const QString& commit = {})
{
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(QApplication::focusWidget(), &event);
}

[[nodiscard]] inline QString FocusText(const CGridCtrl& grid)
{
    const GridCell focus = grid.FocusCell();
    return u"%1,%2"_s.arg(focus.row).arg(focus.column);
}

[[nodiscard]] inline QString RangeText(const GridRange& range)
{
    return u"%1,%2-%3,%4"_s.arg(range.top).arg(range.left).arg(range.bottom).arg(range.right);
}

} // namespace sbd
