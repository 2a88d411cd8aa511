// Hands that work in the real window without a plan: keys and clicks by lot, in all blocks. Nothing they do may crash the
// program, show what is not so, lose what was entered, or write a file that comes back different.
//   SBD_HANDS=2000     so many strokes instead of a few hundred
//   SBD_TEST_SEED=7    the same hands again
#include "check/read_back.h"
#include "panel_desk.h"
#include "project/catalogue.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

#include <QTimer>

#include <algorithm>
#include <random>
#include <set>

using namespace sbd;

namespace {

/// The first line in which two texts differ, of both.
QString FirstDifference(const std::string& a, const std::string& b)
{
    const QStringList linesA = toQString(a).split(u'\n');
    const QStringList linesB = toQString(b).split(u'\n');
    qsizetype line = 0;
    while (linesA.value(line) == linesB.value(line) && line < linesA.size())
        ++line;
    return u"line %1 \"%2\", \"%3\""_s.arg(line + 1).arg(linesA.value(line).trimmed(), linesB.value(line).trimmed());
}

/// What no file can hold, or the reader puts right, comes back different; the quiet check has to say so beforehand, of what
/// is entered and of what is read.
QString SilentLoss(const CSbdData& data, const std::string& file)
{
    CSbdData read;
    ReadProject(file, read);
    const std::string again = WriteProject(read);
    if (again == file)
        return {};
    if (ReturnedCells(data).empty())
        return u"the file comes back different, and nobody said so: "_s + FirstDifference(file, again);
    CSbdData readAgain;
    ReadProject(again, readAgain);
    const std::string third = WriteProject(readAgain);
    return third == again || !ReturnedCells(read).empty()
               ? QString()
               : u"the file comes back different a second time: "_s + FirstDifference(again, third);
}

class Hands {
public:
    Hands(const QString& example, unsigned seed) : random_(seed), example_(example)
    {
        QObject::connect(&boxes_, &QTimer::timeout, [this] {
            if (QWidget* box = QApplication::activeModalWidget(); box != nullptr) {
                done_ << u"box"_s;
                box->close();
            }
        });
        boxes_.start(30);
        std::set<int> blocks;
        for (const CatalogueRow& row : Catalogue())
            if (const int block = PanelBlock(row.block); block != 0)
                blocks.insert(block);
        blocks_.assign(blocks.begin(), blocks.end());
    }

    /// So many strokes; what is wrong, with the strokes before it, or nothing.
    [[nodiscard]] QString Work(int strokes)
    {
        if (!desk_.OpenExample(example_, 313))
            return u"no active window"_s;
        for (const int block : blocks_) // what a panel puts in by opening, as a missing control row, is there before
            desk_.child->GoToBlock(block);
        desk_.child->GoToBlock(313);
        start_ = WriteProject(Data());
        for (int i = 0; i < strokes; ++i) {
            Stroke();
            Quiet();
            if (QString fault = Fault(); !fault.isEmpty())
                return fault + u"; strokes: "_s + done_.join(u' ');
        }
        return AtTheEnd();
    }

private:
    [[nodiscard]] const CSbdData& Data() const { return desk_.child->Doc().Data(); }
    [[nodiscard]] int UpTo(int last) { return int(random_() % unsigned(last + 1)); }
    [[nodiscard]] bool HasGrid() const
    {
        return desk_.child->Panel() != nullptr && desk_.child->Panel()->Grid() != nullptr;
    }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        done_ << QKeySequence(QKeyCombination(modifiers, key)).toString();
        Press(key, modifiers);
    }
    template <class List>
    const auto& AnyOf(const List& list)
    {
        return list[std::size_t(UpTo(int(std::size(list)) - 1))];
    }

    void Enter()
    {
        static const QString texts[] = {u"1"_s,  u"12.5"_s,   u"-3"_s,  u"G1"_s,    u"C4"_s,      u"YES"_s,
                                        u"NO"_s, u"SM490Y"_s, u"abc"_s, u"1 2 3"_s, u"9999999"_s, u"-"_s};
        const QString& text = AnyOf(texts);
        done_ << u'"' + text + u'"';
        Type(text);
        if (UpTo(20) == 0)
            ThinkWhileTyping();
        static constexpr Qt::Key ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Escape};
        if (UpTo(5) == 0)
            Key(Qt::Key_Return, Qt::ControlModifier);
        else if (UpTo(8) > 0) // else it stays open while the next thing happens
            Key(AnyOf(ends));
    }
    /// The quiet check answers meanwhile; what is being typed stays.
    void ThinkWhileTyping()
    {
        const auto typed = [this] { return HasGrid() ? desk_.Grid().Edited() : std::nullopt; };
        const auto before = typed();
        QTest::qWait(600);
        done_ << u"think"_s;
        if (before && (!typed() || typed()->text != before->text))
            lost_ = u"the text \"%1\" that was being typed is gone"_s.arg(before->text);
    }
    void Move()
    {
        static constexpr Qt::Key keys[] = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Down,
                                           Qt::Key_Home, Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown};
        static constexpr Qt::KeyboardModifiers with[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                                         Qt::ControlModifier, Qt::ControlModifier | Qt::ShiftModifier};
        Key(AnyOf(keys), AnyOf(with));
    }
    void Edit()
    {
        struct Chord {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
        };
        static constexpr Chord chords[] = {
            {Qt::Key_Delete, {}},
            {Qt::Key_Backspace, {}},
            {Qt::Key_F2, {}},
            {Qt::Key_F4, {}},
            {Qt::Key_C, Qt::ControlModifier},
            {Qt::Key_X, Qt::ControlModifier},
            {Qt::Key_V, Qt::ControlModifier},
            {Qt::Key_D, Qt::ControlModifier},
            {Qt::Key_R, Qt::ControlModifier},
            {Qt::Key_Plus, Qt::ControlModifier},
            {Qt::Key_Minus, Qt::ControlModifier},
            {Qt::Key_Up, Qt::AltModifier},
            {Qt::Key_Down, Qt::AltModifier},
            {Qt::Key_Space, Qt::ShiftModifier},
            {Qt::Key_Space, Qt::ControlModifier},
            {Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier},
            {Qt::Key_Z, Qt::ControlModifier},
            {Qt::Key_Z, Qt::ControlModifier},
            {Qt::Key_Y, Qt::ControlModifier},
            {Qt::Key_Escape, {}},
            {Qt::Key_Return, {}},
            {Qt::Key_F7, {}},
            {Qt::Key_F9, {}},
            {Qt::Key_Left, Qt::AltModifier},
            {Qt::Key_Right, Qt::AltModifier},
        };
        const Chord& chord = AnyOf(chords);
        Key(chord.key, chord.modifiers);
    }
    void PointAtACell()
    {
        if (!HasGrid())
            return;
        QWidget* cells = desk_.Grid().viewport();
        const QPoint at(UpTo(std::max(1, cells->width() - 1)), UpTo(std::max(1, cells->height() - 1)));
        done_ << u"click(%1,%2)"_s.arg(at.x()).arg(at.y());
        if (UpTo(5) == 0)
            QTest::mouseDClick(cells, Qt::LeftButton, {}, at);
        else
            QTest::mouseClick(cells, Qt::LeftButton, UpTo(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier, at);
    }
    void GoElsewhere()
    {
        const int block = AnyOf(blocks_);
        done_ << u"go(%1)"_s.arg(block);
        desk_.child->GoToBlock(block);
        QApplication::processEvents();
        desk_.child->FocusPanel();
    }
    void Stroke()
    {
        switch (UpTo(11)) {
        case 0:
        case 1:
        case 2:
            return Enter();
        case 3:
        case 4:
        case 5:
            return Move();
        case 6:
        case 7:
        case 8:
            return Edit();
        case 9:
            return PointAtACell();
        case 10:
            return GoElsewhere();
        default:
            if (UpTo(2) == 0) {
                Key(Qt::Key_S, Qt::ControlModifier);
            } else {
                done_ << u"copy"_s;
                static_cast<void>(desk_.child->KeepRecoveryCopy());
            }
        }
    }
    /// Messages are not waited for, and keys go to the grid again.
    void Quiet()
    {
        QApplication::processEvents();
        if (!HasGrid())
            return;
        desk_.Grid().showMessage = [this](const QString& message) { desk_.told << message; };
        if (!desk_.Grid().IsEditing() && QApplication::activePopupWidget() == nullptr)
            desk_.child->FocusPanel();
    }

    /// What is not as it must be at any moment.
    [[nodiscard]] QString Fault()
    {
        if (!lost_.isEmpty())
            return lost_;
        if (!desk_.user.asked.isEmpty())
            return u"asked: "_s + desk_.user.asked.join(u' ');
        if (HasGrid() && !desk_.Grid().IsEditing()) {
            CGridCtrl& grid = desk_.Grid();
            if (grid.model()->rowCount() != grid.Source()->RowCount())
                return u"%1 rows on show of %2"_s.arg(grid.model()->rowCount()).arg(grid.Source()->RowCount());
            for (int row = 1; row <= std::min(grid.Source()->RowCount(), 40); ++row)
                for (int column = 1; column <= grid.Source()->ColumnCount(); ++column)
                    if (desk_.Cell(row, column) != grid.Source()->Text(row, column))
                        return u"shows %1 in %2,%3 of %4"_s.arg(desk_.Cell(row, column))
                            .arg(row)
                            .arg(column)
                            .arg(desk_.child->CurrentBlock());
        }
        if (done_.endsWith(u"Ctrl+S"_s))
            return FaultOfTheFile();
        return {};
    }
    [[nodiscard]] QString FaultOfTheFile()
    {
        if (HasGrid() && desk_.Grid().IsEditing())
            return {}; // a text that was refused: the save is told so
        if (desk_.child->Doc().IsModified())
            return u"modified after the save"_s;
        QFile file(desk_.child->Doc().PathName());
        if (!file.open(QFile::ReadOnly))
            return u"no file"_s;
        const std::string bytes = file.readAll().toStdString();
        if (bytes != WriteProject(Data()))
            return u"the file is not what the window holds"_s;
        return SilentLoss(Data(), bytes);
    }
    /// All taken back is the beginning, all made again is the end.
    [[nodiscard]] QString AtTheEnd()
    {
        Press(Qt::Key_Escape);
        Press(Qt::Key_Escape);
        Quiet();
        CKELDSectionDoc& doc = desk_.child->Doc();
        desk_.child->GoToBlock(302);
        const std::string end = WriteProject(Data());
        int steps = 0;
        for (; doc.NextUndo() != nullptr; ++steps)
            doc.Undo();
        if (WriteProject(Data()) != start_)
            return Differs(u"%1 steps taken back are not the beginning"_s.arg(steps), start_);
        for (int i = 0; i < steps; ++i) // not what had been taken back before
            doc.Redo();
        if (WriteProject(Data()) != end)
            return Differs(u"%1 steps made again are not the end"_s.arg(steps), end);
        return {};
    }
    [[nodiscard]] QString Differs(const QString& what, const std::string& wanted) const
    {
        const auto linesOf = [](const std::string& bytes) { return toQString(bytes).split(u'\n'); };
        const QStringList is = linesOf(WriteProject(Data()));
        const QStringList was = linesOf(wanted);
        qsizetype line = 0;
        while (line < std::min(is.size(), was.size()) && is[line] == was[line])
            ++line;
        return u"%1: line %2 is \"%3\", not \"%4\"; strokes: %5"_s.arg(what).arg(line + 1).arg(
            is.value(line).trimmed(), was.value(line).trimmed(), done_.join(u' '));
    }

    std::mt19937 random_;
    QString example_;
    Desk desk_;
    QTimer boxes_; // answers what a stroke may ask
    std::vector<int> blocks_;
    std::string start_;
    QString lost_;
    QStringList done_;
};

} // namespace

class RandomHandsTest : public QObject {
    Q_OBJECT

private slots:
    void nothingIsLostWhateverTheHandsDo_data();
    void nothingIsLostWhateverTheHandsDo();
};

void RandomHandsTest::nothingIsLostWhateverTheHandsDo_data()
{
    QTest::addColumn<QString>("example");
    QTest::newRow("plate girders") << u"plate4"_s;
    QTest::newRow("box girders") << u"box2"_s;
}

void RandomHandsTest::nothingIsLostWhateverTheHandsDo()
{
    QFETCH(const QString, example);
    const bool isGiven = qEnvironmentVariableIsSet("SBD_TEST_SEED");
    const unsigned seed = isGiven ? qEnvironmentVariable("SBD_TEST_SEED").toUInt() : 20261122U;
    const int strokes = qEnvironmentVariableIsSet("SBD_HANDS") ? qEnvironmentVariableIntValue("SBD_HANDS") : 400;
    Hands hands(example, seed);
    const QString fault = hands.Work(strokes);
    if (!fault.isEmpty())
        qWarning("%s", qPrintable(fault)); // whole: what a check prints is cut
    QVERIFY2(fault.isEmpty(), qPrintable(u"SBD_TEST_SEED=%1: %2"_s.arg(seed).arg(fault)));
}

QTEST_MAIN(RandomHandsTest)
#include "random_hands_test.moc"
