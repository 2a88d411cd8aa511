// A user who goes through the guide: each act of its steps by mouse and keys in the window, what the guide says looked
// for on the screen, and a picture of each step.
//
//   open MENU; choose ENTRY; menu MENU > ENTRY    of the menu bar
//   press TEXT                 a button of what lies over the window, once it is there
//   close                      closes the guide's own window
//   file NAME                  what the next file dialog is answered with, in the folder to practise in
//   key KEYS
//   block NUMBER               a click in the tree
//   cell ROW HEAD              a click in the grid; HEAD is how the head of the column, or a line of it, begins
//   select ROW HEAD ROW HEAD   a range of cells
//   table                      types the next table of the step
//   helps BLOCK ROW            the help page is that of the row
//   marked ROW HEAD, clean ROW HEAD    the quiet check marks the cell, or does not
//   nofindings                 it has nothing to say
//   drawn                      the drawing of the bridge is on show and leaves nothing out
//   saved                      the project was saved
//   engine LINE                from here on an engine is installed; it writes the line into its report
//   wait TEXT                  until it is on the screen
//   written NAME               the file is there, and the window says so
//   mark WHAT                  a place of the picture (CGuideWindow::PlaceOf)
//   picture
#pragma once

#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/guide.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "frame/notice_bar.h"
#include "frame/project_findings.h"
#include "grid/grid_ctrl.h"
#include "guide_window.h"
#include "panels/panel.h"
#include "tests/frame/answers.h"
#include "tests/surroundings.h"
#include "upperview/chk_view.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QDir>
#include <QElapsedTimer>
#include <QKeySequence>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <functional>
#include <map>

namespace sbd {

class CGuideHand : private CGuideWindow {
public:
    /// `practice` is the folder of the files to practise with, once they are there.
    CGuideHand(CMainFrame& frame, Answers& user, const Guide& guide, QString practice)
        : CGuideWindow(frame)
        , user_(user)
        , guide_(guide)
        , practice_(std::move(practice))
    {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Next(); });
        using H = CGuideHand;
        verbs_ = {{u"open"_s, &H::OpenMenu},  {u"choose"_s, &H::Choose},   {u"menu"_s, &H::Menu},
                  {u"press"_s, &H::Press},    {u"close"_s, &H::Close},     {u"file"_s, &H::File},
                  {u"key"_s, &H::Key},        {u"block"_s, &H::Block},     {u"cell"_s, &H::Cell},
                  {u"select"_s, &H::Select},  {u"table"_s, &H::Table},     {u"helps"_s, &H::Helps},
                  {u"marked"_s, &H::Marked},  {u"clean"_s, &H::Clean},     {u"nofindings"_s, &H::NoFindings},
                  {u"drawn"_s, &H::Drawn},    {u"saved"_s, &H::Saved},     {u"engine"_s, &H::Engine},
                  {u"wait"_s, &H::Wait},      {u"written"_s, &H::Written}, {u"mark"_s, &H::Mark},
                  {u"picture"_s, &H::Picture}};
    }

    /// Goes through all steps; what was not as the guide says, with its step. Empty: the guide is true.
    [[nodiscard]] QStringList GoThrough()
    {
        constexpr int most = 200'000; // ms, of a busy machine
        QTimer::singleShot(most, &timer_, [this] { GiveUp(u"it does not end"_s); });
        QTimer boxes; // which a step has not foreseen would keep it for ever
        QObject::connect(&boxes, &QTimer::timeout, &timer_, [this] {
            if (typing_ && QApplication::activeModalWidget() != nullptr)
                GiveUp(u"a box: "_s + TextsOnScreen(*QApplication::activeModalWidget()).join(u' '));
        });
        boxes.start(kPause);
        timer_.start(0);
        static_cast<void>(QTest::qWaitFor([this] { return finished_; }, 2 * most));
        timer_.stop();
        return faults_;
    }

    /// How long a step may take to come true, ms.
    int patience = 30'000;
    /// Called for the picture of a step.
    std::function<void(const QString& name, const QImage& picture)> taken = [](const QString&, const QImage&) {};
    /// Called when the project was saved.
    std::function<void()> saved = [] {};

    using CGuideWindow::Strokes;

private:
    enum class Outcome { Done, NotYet, Wrong };
    using Verb = Outcome (CGuideHand::*)(const QString& what);
    static constexpr int kPause = 10; // ms

    // --- step by step --------------------------------------------------------------------------------

    void Fault(const QString& text)
    {
        const QString step = step_ < guide_.steps.size() ? guide_.steps[step_].name : QString();
        const QString act = Act() == nullptr ? QString() : Act()->verb + u' ' + Act()->what;
        faults_ += u"%1 (%2): %3"_s.arg(step, act.trimmed(), text);
    }

    [[nodiscard]] const GuideAct* Act() const
    {
        return step_ < guide_.steps.size() && act_ < guide_.steps[step_].acts.size() ? &guide_.steps[step_].acts[act_]
                                                                                     : nullptr;
    }

    /// An act may open a dialog and come back only when that is closed, by the acts behind it: they come from its event
    /// loop. So the next act is under way before this one is done.
    void Next()
    {
        if (finished_ || inAct_ > kMostNested)
            return;
        if (step_ >= guide_.steps.size()) {
            finished_ = true;
            return;
        }
        const GuideAct* act = Act();
        if (act == nullptr) {
            EndStep();
            timer_.start(kPause);
            return;
        }
        const auto verb = verbs_.find(act->verb);
        if (verb == verbs_.end()) {
            GiveUp(u"no such act"_s);
            return;
        }
        if (!since_.isValid())
            since_.start();
        if (!IsReady(*act)) {
            Later();
            return;
        }
        const qsizetype step = step_;
        const qsizetype number = act_;
        const bool opens = act->verb == u"menu" || act->verb == u"choose" || act->verb == u"press";
        if (opens) { // what it opens is for the next one
            Advance();
            timer_.start(kPause);
        }
        ++inAct_;
        typing_ = !opens;
        const Outcome outcome = (this->*verb->second)(act->what);
        typing_ = false;
        --inAct_;
        if (finished_)
            return;
        if (!opens)
            After(outcome);
        else if (outcome != Outcome::Done) {
            step_ = step;
            act_ = number;
            GiveUp(lastTrouble_);
        }
        Look();
    }

    void After(Outcome outcome)
    {
        if (outcome == Outcome::NotYet) {
            Later();
            return;
        }
        if (outcome == Outcome::Wrong)
            Fault(lastTrouble_);
        Advance();
        timer_.start(kPause);
    }

    void Advance()
    {
        ++act_;
        since_.invalidate();
    }

    void Later()
    {
        if (since_.elapsed() > patience)
            GiveUp(lastTrouble_.isEmpty() ? u"the window is not ready"_s : lastTrouble_);
        else
            timer_.start(kPause);
    }

    /// Boxes that stand in front would keep the test for ever.
    void GiveUp(const QString& text)
    {
        if (finished_)
            return;
        Fault(text);
        finished_ = true;
        auto* close = new QTimer(&timer_);
        QObject::connect(close, &QTimer::timeout, &timer_, [] {
            if (QWidget* popup = QApplication::activePopupWidget())
                popup->close();
            if (QWidget* box = QApplication::activeModalWidget())
                box->close();
        });
        close->start(kPause);
    }

    /// What is not for a dialog waits until there is none.
    [[nodiscard]] bool IsReady(const GuideAct& act)
    {
        lastTrouble_.clear();
        if (act.verb == u"press")
            return ButtonOver(act.what) != nullptr;
        if (act.verb == u"mark" || act.verb == u"picture")
            return true;
        if (QApplication::activeModalWidget() == nullptr)
            return true;
        lastTrouble_ = u"a box stands in front: "_s + QApplication::activeModalWidget()->windowTitle();
        return false;
    }

    void EndStep()
    {
        Look();
        using enum GuideLine::Kind;
        for (const GuideLine::Kind kind : {Do, Note})
            for (const QString& text : Missing(seen_, kind))
                Fault(u"not seen: "_s + text);
        const auto isTable = [](const GuideLine& line) { return line.kind == Table_; };
        if (tables_ != std::count_if(guide_.steps[step_].lines.begin(), guide_.steps[step_].lines.end(), isTable))
            Fault(u"a table was not typed"_s);
        if (!marks_.isEmpty())
            Fault(u"marks without a picture"_s);
        ++step_;
        act_ = 0;
        tables_ = 0;
        seen_.clear();
        since_.invalidate();
    }

    /// The words in brackets of the lines of a kind that are not among the texts.
    [[nodiscard]] QStringList Missing(const QStringList& texts, GuideLine::Kind kind) const
    {
        static const QRegularExpression quoted(u"［([^］]+)］|「([^」]+)」"_s);
        QStringList missing;
        for (const GuideLine& line : guide_.steps[step_].lines) {
            if (line.kind != kind)
                continue;
            for (auto match = quoted.globalMatch(line.text); match.hasNext();) {
                const QRegularExpressionMatch found = match.next();
                const QString text = found.captured(1) + found.captured(2);
                const bool isThere =
                    std::any_of(texts.begin(), texts.end(), [&text](const QString& on) { return on.contains(text); });
                if (!isThere)
                    missing << text;
            }
        }
        return missing;
    }

    void Look()
    {
        for (const QString& text : TextsOnScreen(frame_))
            if (!seen_.contains(text))
                seen_ << text;
    }

    Outcome Wrong(const QString& text)
    {
        lastTrouble_ = text;
        return Outcome::Wrong;
    }
    Outcome NotYet(const QString& text)
    {
        lastTrouble_ = text;
        return Outcome::NotYet;
    }

    // --- menus and boxes -----------------------------------------------------------------------------

    Outcome OpenMenu(const QString& what)
    {
        QMenuBar& bar = *frame_.menuBar();
        for (QAction* action : bar.actions()) {
            if (Plain(action->text()) != what || action->menu() == nullptr)
                continue;
            Click(bar, bar.actionGeometry(action).center());
            if (!action->menu()->isVisible())
                return Wrong(u"the menu does not open"_s);
            Look();
            open_ = action->menu();
            return Outcome::Done;
        }
        return Wrong(u"no such menu: "_s + what);
    }

    Outcome Choose(const QString& what)
    {
        for (QAction* action : open_ == nullptr ? QList<QAction*>() : open_->actions()) {
            if (!Plain(action->text()).startsWith(what))
                continue;
            if (!action->isEnabled())
                return Wrong(u"it may not be given: "_s + what);
            Click(*open_, open_->actionGeometry(action).center());
            return Outcome::Done;
        }
        return Wrong(u"no such entry: "_s + what);
    }

    Outcome Menu(const QString& what)
    {
        const Outcome opened = OpenMenu(what.section(u" > "_s, 0, 0));
        return opened == Outcome::Done ? Choose(what.section(u" > "_s, 1)) : opened;
    }

    Outcome Press(const QString& what)
    {
        QAbstractButton* button = ButtonOver(what);
        Look();
        Click(*button, button->rect().center());
        return Outcome::Done;
    }

    Outcome Close(const QString&)
    {
        QWidget* window = GuideWindow();
        if (window == nullptr)
            return Wrong(u"the guide is not open"_s);
        window->close();
        return Outcome::Done;
    }

    Outcome File(const QString& what)
    {
        const QString path = QDir(practice_).filePath(what);
        user_.newProjectFile = path;
        user_.reportFile = path;
        return Outcome::Done;
    }

    Outcome Key(const QString& what)
    {
        const QKeyCombination keys = QKeySequence(what)[0];
        PressKey(keys.key(), keys.keyboardModifiers());
        return Outcome::Done;
    }

    // --- tree and cells ------------------------------------------------------------------------------

    Outcome Block(const QString& what)
    {
        CLeftView& tree = Child().Tree();
        QTreeWidgetItem* item = ItemOf(what);
        if (item == nullptr)
            return Wrong(u"the tree has no such block"_s);
        if (item->parent() != nullptr)
            item->parent()->setExpanded(true);
        tree.scrollToItem(item);
        const QRect place = tree.visualItemRect(item);
        Click(*tree.viewport(), {place.left() + 20, place.center().y()});
        QApplication::processEvents(QEventLoop::ExcludeUserInputEvents); // the panel gets its place
        return Child().CurrentBlock() == what.toInt() ? Outcome::Done : Wrong(u"its panel does not open"_s);
    }

    Outcome Cell(const QString& what)
    {
        const Place place = PlaceIn(what, 0);
        if (place.column == 0)
            return Outcome::Wrong;
        ClickCell(place.row, place.column);
        return Outcome::Done;
    }

    Outcome Select(const QString& what)
    {
        const Place from = PlaceIn(what, 0);
        const Place to = PlaceIn(what, 2);
        if (from.column == 0 || to.column == 0)
            return Outcome::Wrong;
        ClickCell(from.row, from.column);
        ClickCell(to.row, to.column, Qt::ShiftModifier);
        return Outcome::Done;
    }

    Outcome Table(const QString&)
    {
        qsizetype number = 0;
        for (const GuideLine& line : guide_.steps[step_].lines) {
            if (line.kind != Table_ || number++ != tables_)
                continue;
            ++tables_;
            if (Child().CurrentBlock() != line.table.block)
                return Wrong(u"another block is on show"_s);
            for (const GuideTable::Row& row : line.table.rows)
                if (!TypeRow(line.table, row))
                    return Outcome::Wrong;
            return Outcome::Done;
        }
        return Wrong(u"the step has no more table"_s);
    }

    [[nodiscard]] bool TypeRow(const GuideTable& table, const GuideTable::Row& row)
    {
        for (qsizetype i = 0; i < table.heads.size(); ++i) {
            const QString& cell = row.cells[i];
            const int column = ColumnOf(row.row, table.heads[i]);
            if (column == 0) {
                lastTrouble_ = u"no such column: "_s + table.heads[i];
                return false;
            }
            if (!IsGiven(cell)) {
                const GridCell focus = Grid().FocusCell();
                if (focus.row != row.row || focus.column != column || !Grid().hasFocus())
                    ClickCell(row.row, column);
                TypeText(cell);
                const bool goesOn = i + 1 < table.heads.size() && !IsGiven(row.cells[i + 1]);
                PressKey(goesOn ? Qt::Key_Tab : Qt::Key_Return);
            }
            if (cell.isEmpty())
                continue;
            const QString there = Grid().Source()->Text(row.row, column);
            if (there != CellText(cell)) {
                lastTrouble_ =
                    u"row %1, %2 holds \"%3\", not \"%4\""_s.arg(row.row).arg(table.heads[i], there, CellText(cell));
                return false;
            }
        }
        return true;
    }

    // --- what is seen --------------------------------------------------------------------------------

    Outcome Helps(const QString& what)
    {
        CKELDSectionDoc& doc = Child().Doc();
        const QString shown = u"%1 %2"_s.arg(doc.HelpBlock()).arg(doc.HelpRow());
        return shown == what && Child().UpView().Help().isVisible() ? Outcome::Done
                                                                    : Wrong(u"the page is that of "_s + shown);
    }

    Outcome Marked(const QString& what)
    {
        const Place place = PlaceIn(what, 0);
        return place.column > 0 && IsMarked(place) ? Outcome::Done : NotYet(u"the cell has no mark"_s);
    }
    Outcome Clean(const QString& what)
    {
        const Place place = PlaceIn(what, 0);
        return place.column > 0 && !IsMarked(place) ? Outcome::Done : NotYet(u"the cell has a mark"_s);
    }

    Outcome NoFindings(const QString&)
    {
        Child().Findings().Check().LookAtAllNow();
        const FindingList all = Child().Findings().Check().All();
        return all.list.empty() ? Outcome::Done : NotYet(QString::fromStdString(all.list.front().text));
    }

    Outcome Drawn(const QString&)
    {
        CUpView& view = Child().UpView();
        if (view.currentWidget() != &view.Drawing())
            return Wrong(u"the drawing is not on show"_s);
        for (const QString& text : TextsOnScreen(frame_))
            if (text.startsWith(u"図にできないもの"_s))
                return Wrong(text);
        return Outcome::Done;
    }

    Outcome Saved(const QString&)
    {
        if (Child().Doc().IsModified())
            return NotYet(u"it is not saved"_s);
        saved();
        return Outcome::Done;
    }

    Outcome Engine(const QString& what)
    {
        user_.engines = QString::fromUtf8(test::EngineFolder());
        QFile file(QDir(practice_).filePath(u"plate4.engine"_s));
        const std::optional<std::string> line = fromQString(what);
        if (!line || !file.open(QFile::WriteOnly))
            return Wrong(u"no engine"_s);
        file.write("chk " + QByteArray::fromStdString(*line) + "\n");
        return Outcome::Done;
    }

    Outcome Wait(const QString& what)
    {
        const QStringList texts = TextsOnScreen(frame_);
        const bool isThere =
            std::any_of(texts.begin(), texts.end(), [&what](const QString& on) { return on.contains(what); });
        return isThere ? Outcome::Done : NotYet(u"not seen: "_s + what);
    }

    Outcome Written(const QString& what)
    {
        const QString path = QDir(practice_).filePath(what);
        return QFile::exists(path) && Child().Notices().Shows(u"book"_s) ? Outcome::Done
                                                                         : NotYet(u"it is not written"_s);
    }

    // --- pictures ------------------------------------------------------------------------------------

    Outcome Mark(const QString& what)
    {
        const QRect place = PlaceOf(what);
        if (place.isEmpty())
            return NotYet(u"there is no such place"_s);
        marks_ << place;
        return Outcome::Done;
    }

    Outcome Picture(const QString&)
    {
        const QStringList missing = Missing(TextsOnScreen(frame_), GuideLine::Kind::See);
        if (!missing.isEmpty())
            return NotYet(u"not seen: "_s + missing.join(u" / "_s));
        taken(guide_.steps[step_].name, PictureOf(frame_, marks_));
        marks_.clear();
        return Outcome::Done;
    }

    static constexpr GuideLine::Kind Table_ = GuideLine::Kind::Table;
    static constexpr int kMostNested = 8;

    Answers& user_;
    const Guide& guide_;
    QString practice_;
    std::map<QString, Verb> verbs_;
    QStringList faults_;
    qsizetype step_ = 0;
    qsizetype act_ = 0;
    qsizetype tables_ = 0; // typed of the step
    int inAct_ = 0;
    bool typing_ = false; // in an act that opens nothing
    bool finished_ = false;
    QElapsedTimer since_; // when the act was to be done
    QStringList seen_;    // in the course of the step
    QList<QRect> marks_;
    QTimer timer_;
};

} // namespace sbd
