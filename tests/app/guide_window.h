// The program's window as the hand that goes through the guide finds its places and touches them.
#pragma once

#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "guide_eyes.h"
#include "panels/panel.h"
#include "upperview/chk_view.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QInputMethodEvent>
#include <QMenu>
#include <QPointer>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>

namespace sbd {

class CGuideWindow {
public:
    explicit CGuideWindow(CMainFrame& frame) : frame_(frame) {}

    /// Keys pressed and clicks made.
    [[nodiscard]] int Strokes() const { return strokes_; }

protected:
    void Click(QWidget& widget, QPoint at, Qt::KeyboardModifiers modifiers = {})
    {
        ++strokes_;
        QTest::mouseMove(&widget, at);
        QTest::mouseClick(&widget, Qt::LeftButton, modifiers, at);
    }

    /// Where keys go. A desktop gives them back to the window when a box over it has gone.
    [[nodiscard]] QWindow* Focused() const
    {
        if (QGuiApplication::focusWindow() == nullptr) {
            frame_.activateWindow();
            static_cast<void>(QTest::qWaitForWindowActive(&frame_));
        }
        return QGuiApplication::focusWindow();
    }

    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        ++strokes_;
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QTest::keyClick(Focused(), key, modifiers);
    }

    /// Letters by keys, what has none as an input method brings it.
    void TypeText(const QString& text)
    {
        strokes_ += int(text.size());
        const bool keys = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
        if (!keys) {
            static_cast<void>(Focused());
            QInputMethodEvent composing(text, {}); // opens the editor, to which the text that is done goes
            QApplication::sendEvent(QApplication::focusWidget(), &composing);
            QInputMethodEvent done;
            done.setCommitString(text);
            QApplication::sendEvent(QApplication::focusWidget(), &done);
            return;
        }
        for (const QChar c : text)
            QTest::keyClick(Focused(), c.toLatin1());
    }

    [[nodiscard]] CChildFrame& Child() const { return *frame_.CurrentChild(); }
    [[nodiscard]] CGridCtrl& Grid() const { return *Child().Panel()->Grid(); }

    [[nodiscard]] QAbstractButton* ButtonOver(const QString& text) const
    {
        for (QWidget* window : eyes::WindowsOver(frame_))
            for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
                if (button->isVisible() && button->isEnabled() && Plain(button->text()).startsWith(text))
                    return button;
        return nullptr;
    }

    [[nodiscard]] QTreeWidgetItem* ItemOf(const QString& number) const
    {
        for (QTreeWidgetItemIterator it(&Child().Tree()); *it != nullptr; ++it)
            if ((*it)->text(0).startsWith(number + u'.') && (*it)->childCount() == 0)
                return *it;
        return nullptr;
    }

    /// The column whose head, or a line of it, begins so; 0: none.
    [[nodiscard]] int ColumnOf(int row, const QString& head) const
    {
        const CGridSource& source = *Grid().Source();
        for (int column = 1; column <= source.ColumnCount(); ++column)
            for (const QString& line : source.Head(column, row).split(u'\n'))
                if (line.trimmed().startsWith(head))
                    return column;
        return 0;
    }

    void ClickCell(int row, int column, Qt::KeyboardModifiers modifiers = {})
    {
        const QModelIndex index = Grid().model()->index(row - 1, column - 1);
        Grid().scrollTo(index);
        Click(*Grid().viewport(), Grid().visualRect(index).center(), modifiers);
    }

    /// "ROW HEAD" of a line of words, from a word on.
    struct Place {
        int row = 0;
        int column = 0;
    };
    [[nodiscard]] Place PlaceIn(const QString& what, int word)
    {
        const QStringList words = what.split(u' ');
        const int row = words.value(word).toInt();
        const int column = ColumnOf(row, words.value(word + 1));
        if (row == 0 || column == 0)
            lastTrouble_ = u"no such column: "_s + words.value(word + 1);
        return {row, column};
    }

    [[nodiscard]] bool IsMarked(const Place& place) const
    {
        return Grid().Marks().Of(place.row, place.column).has_value()
               && !Grid().Marks().ToolTip(place.row, place.column).isEmpty();
    }
    /// tree NUMBER, cells ROW HEAD ROW HEAD, figure, help, drawing, report, panel, findings, dialog, counts,
    /// status TEXT, button TEXT, entry TEXT; empty: there is no such place.
    [[nodiscard]] QRect PlaceOf(const QString& what)
    {
        const QString kind = what.section(u' ', 0, 0);
        const QString rest = what.section(u' ', 1);
        const auto whole = [this](const QWidget& widget) { return InPicture(frame_, widget, widget.rect()); };
        CUpView& view = Child().UpView();
        if (kind == u"tree")
            if (const QTreeWidgetItem* item = ItemOf(rest))
                return InPicture(frame_, *Child().Tree().viewport(),
                                 Child().Tree().visualItemRect(item) & Child().Tree().viewport()->rect());
        if (kind == u"cells") {
            const Place from = PlaceIn(rest, 0);
            const Place to = PlaceIn(rest, 2);
            if (from.column > 0 && to.column > 0)
                return InPicture(frame_, *Grid().viewport(),
                                 Grid().RectOf({from.row, from.column, to.row, to.column}) & Grid().viewport()->rect());
        }
        if (kind == u"dialog" && QApplication::activeModalWidget() != nullptr)
            return whole(*QApplication::activeModalWidget());
        if (kind == u"button" && ButtonOver(rest) != nullptr)
            return whole(*ButtonOver(rest));
        if (kind == u"entry" && open_ != nullptr)
            for (QAction* action : open_->actions())
                if (Plain(action->text()).startsWith(rest))
                    return InPicture(frame_, *open_, open_->actionGeometry(action));
        const std::pair<QString, QWidget*> panes[] = {
            {u"figure"_s, &view.Figure()},   {u"help"_s, &view.Help()},
            {u"drawing"_s, &view.Drawing()}, {u"report"_s, &view.Chk()},
            {u"panel"_s, Child().Panel()},   {u"findings"_s, reinterpret_cast<QWidget*>(FindingPane())}};
        for (const auto& pane : panes)
            if (pane.first == kind && pane.second != nullptr && pane.second->isVisible())
                return whole(*pane.second).adjusted(3, 3, -3, -3);
        if (kind == u"status" || kind == u"counts")
            for (const QWidget* widget : frame_.statusBar()->findChildren<QWidget*>()) {
                const auto* label = qobject_cast<const QLabel*>(widget);
                const auto* counts = qobject_cast<const QToolButton*>(widget);
                if (widget->isVisible()
                    && ((kind == u"status" && label != nullptr && label->text().contains(rest))
                        || (kind == u"counts" && counts != nullptr)))
                    return whole(*widget);
            }
        return {};
    }

    [[nodiscard]] QWidget* FindingPane() const
    {
        for (QWidget* widget : Child().findChildren<QWidget*>())
            if (widget->inherits("sbd::CFindingPane"))
                return widget;
        return nullptr;
    }

    CMainFrame& frame_;
    QPointer<QMenu> open_;
    QString lastTrouble_; // why the last thing was not found or done

private:
    int strokes_ = 0;
};

} // namespace sbd
