// Every panel in the real window: what it shows against the tables, and what is typed in it on its way to the file.
#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_head.h"
#include "grid/grid_style.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/text.h"
#include "tests/share.h"

#include <QApplication>
#include <QHeaderView>
#include <QTest>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A cell of a block.
struct Place {
    int block;
    int row;
    int column;
};

/// A project on the screen. What differs is collected, so that one run names every block at fault.
struct Station {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};
    QStringList faults;

    Station()
    {
        frame.resize(1366, 900);
        frame.show();
        frame.activateWindow();
        QTest::qWaitForWindowActive(&frame) ? void() : (void)faults.append(u"the window is not active"_s);
    }

    /// `what`: parts of a text, put together for a fault alone.
    template <typename T, typename U, typename... What>
    void Compare(const T& shown, const U& expected, const What&... what)
    {
        if (!(shown == expected))
            faults << (QString() + ... + Text(what)) + u": %1 instead of %2"_s.arg(Show(shown), Show(expected));
    }
    template <typename... What>
    void Expect(bool holds, const What&... what)
    {
        if (!holds)
            faults << (QString() + ... + Text(what));
    }

    [[nodiscard]] bool WithoutFault() const
    {
        for (const QString& fault : faults)
            qWarning("%s", qPrintable(fault));
        return faults.isEmpty();
    }

private:
    static QString Text(const QString& text) { return text; }
    static QString Text(QLatin1StringView text) { return text; }
    static QString Text(const Place& place)
    {
        return u"block %1 cell (%2, %3)"_s.arg(place.block).arg(place.row).arg(place.column);
    }
    static QString Show(const QString& text) { return u'"' + text + u'"'; }
    static QString Show(const QStringList& texts) { return u'[' + texts.join(u", "_s) + u']'; }
    static QString Show(int number) { return QString::number(number); }
    static QString Show(const QColor& color) { return color.isValid() ? color.name() : u"default"_s; }
};

/// Blocks with a grid of their own, in order of number.
std::vector<int> PanelBlocks()
{
    std::vector<int> blocks;
    for (int block = 252; block <= 999; ++block)
        if (PanelBlock(block) == block && test::IsOfThisShare(block))
            blocks.push_back(block);
    return blocks;
}

QStringList Texts(const WordList& words)
{
    QStringList texts;
    for (const std::string& word : words)
        texts << toQString(word);
    return texts;
}

QColor Color(CellColor color)
{
    return color ? QColor::fromRgb(*color) : QColor();
}

/// What the tables say of the columns of a block.
struct Columns {
    std::vector<int> widths;
    std::vector<QString> heads;
    std::vector<WordList> words; ///< of the data rows, marks not resolved; empty for option blocks
    int headHeight = 30;
};

Columns ColumnsOf(int block, bool sections)
{
    Columns columns;
    if (const OptionPanel* option = FindOptionPanel(block)) {
        columns.widths = {35, option->labelWidth, option->valueWidth};
        for (const std::string& head : option->heads)
            columns.heads.push_back(toQString(head));
    } else if (const RecordPanel* record = FindRecordPanel(block)) {
        columns.widths = record->widths;
        for (const std::string& head : sections && !record->sectionHeads.empty() ? record->sectionHeads : record->heads)
            columns.heads.push_back(toQString(head));
        columns.headHeight = record->headHeight;
    } else if (const PanelTable* table = FindPanelTable(block)) {
        for (const PanelColumn& column : table->columns) {
            const bool second = sections && table->hasSectionHeads && &column != &table->columns.front();
            columns.widths.push_back(column.width);
            columns.heads.push_back(toQString(second ? column.sectionHead : column.head));
            columns.words.push_back(column.words);
        }
        columns.headHeight = table->headHeight;
    }
    return columns;
}

/// Blocks 301 and 302 write other heads over those of the table.
bool HasOwnHeads(int block)
{
    return block == 301 || block == 302;
}

void CompareColumns(Station& station, CGridCtrl& grid, int block, bool sections)
{
    const Columns columns = ColumnsOf(block, sections);
    const QString name = u"block %1 "_s.arg(block);
    station.Compare(grid.model()->columnCount() + 1, int(columns.widths.size()), name + u"columns"_s);
    station.Compare(grid.verticalHeader()->width(), columns.widths[0], name + u"width of column 0"_s);
    int height = columns.headHeight;
    for (int column = 1; column <= grid.model()->columnCount(); ++column) {
        const std::size_t index = std::size_t(column);
        const QString head = grid.model()->headerData(column - 1, Qt::Horizontal).toString();
        if (!HasOwnHeads(block))
            station.Compare(head, columns.heads[index], name + u"head %1"_s.arg(column));
        // A section of no width cannot be shown; a width of 1 and less hides the column.
        station.Compare(grid.columnWidth(column - 1),
                        std::max(columns.widths[index], grid.horizontalHeader()->minimumSectionSize()),
                        name + u"width %1"_s.arg(column));
        height = std::max(height, HeadTextHeight(grid.fontMetrics(), head));
    }
    station.Compare(grid.horizontalHeader()->height(), height, name + u"height of the head"_s);
}

/// All cells against a panel model of their own, made from the same document.
void CompareCells(Station& station, CGridCtrl& grid, const CPanelModel& model)
{
    const CGridSource& source = *grid.Source();
    station.Compare(source.RowCount(), model.GridRows(), u"block %1 rows"_s.arg(model.Block()));
    for (int row = 1; row <= std::min(source.RowCount(), model.GridRows()); ++row) {
        for (int column = 1; column <= source.ColumnCount(); ++column) {
            const Place place{model.Block(), row, column};
            const QModelIndex index = grid.model()->index(row - 1, column - 1);
            station.Compare(index.data().toString(), toQString(model.Text(row, column)), place, " text"_L1);
            station.Compare(source.Words(row, column), Texts(model.Words(row, column)), place, " words"_L1);
            station.Compare(int(source.IsLocked(row, column)), int(model.IsLocked(row, column)), place, " lock"_L1);
            station.Compare(int(index.flags().testFlag(Qt::ItemIsEditable)), int(model.IsEditable(row, column)), place,
                            " takes text"_L1);
            station.Compare(source.TextColor(row, column), Color(model.TextColor(row, column)), place, " colour"_L1);
            station.Compare(int(index.data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight),
                            model.IsRightAligned(row, column) ? int(Qt::AlignRight) : 0, place, " alignment"_L1);
        }
    }
}

/// Word lists and locks of a table block against its table.
void CompareWithTable(Station& station, CGridCtrl& grid, int block, const CSbdData& data)
{
    const PanelTable* table = FindPanelTable(block);
    if (table == nullptr || FindOptionBlock(block) != nullptr || block == 321
        || block == 322) // those two change with their second row
        return;
    const int dataRow = table->automaticRows + 4; // behind rows whose first cell is a word of the file
    for (int column = 1; column < int(table->columns.size()); ++column) {
        const Place place{block, dataRow, column};
        const PanelColumn& definition = table->columns[std::size_t(column)];
        station.Compare(grid.Source()->Words(dataRow, column),
                        Texts(ResolveWords(definition.words, data, ListNames::OfTheProject)), place,
                        " words of the table"_L1);
        station.Expect(!grid.Source()->IsLocked(dataRow, column), place, " is locked"_L1);
        for (int row = 1; row <= table->automaticRows; ++row)
            station.Compare(int(grid.Source()->IsLocked(row, column)), int(column >= table->usable),
                            Place{block, row, column}, " lock of the table"_L1);
    }
}

/// The grounds of the cells that are seen, as they are painted while no cell has the focus.
void CompareGrounds(Station& station, CGridCtrl& grid, int block)
{
    const QImage image = grid.viewport()->grab().toImage();
    for (int row = 1; row <= 12; ++row) {
        for (int column = 1; column <= grid.model()->columnCount(); ++column) {
            const QRect rect = grid.visualRect(grid.model()->index(row - 1, column - 1));
            const QPoint corner = rect.topLeft() + QPoint(1, 1);
            if (rect.width() < 6 || !image.rect().contains(rect))
                continue;
            const QRgb ground =
                grid.Source()->IsLocked(row, column) ? gridstyle::kLight.locked : gridstyle::kLight.cell;
            const auto mark = grid.Marks().Of(row, column); // its corner lies on the ground
            station.Compare(QColor(image.pixel(corner)), mark ? SignColorOf(*mark, grid.palette()) : QColor(ground),
                            Place{block, row, column}, " ground"_L1);
        }
    }
}

/// The editor that opens in each column offers the words of the cell.
void CompareEditors(Station& station, CGridCtrl& grid, int block)
{
    const int row = std::min(8, grid.Source()->RowCount());
    for (int column = 1; column <= grid.Source()->ColumnCount(); ++column) {
        if (!grid.Source()->IsEditable(row, column))
            continue;
        grid.SetFocusCell(row, column);
        QTest::keyClick(&grid, Qt::Key_F2);
        const QComboBox* combo = qobject_cast<QComboBox*>(grid.indexWidget(grid.currentIndex()));
        QStringList offered;
        for (int i = 0; combo != nullptr && i < combo->count(); ++i)
            offered << combo->itemText(i);
        QStringList expected = grid.Source()->Words(row, column);
        expected.removeDuplicates();
        station.Compare(offered, expected, Place{block, row, column}, " list"_L1);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        station.Expect(!grid.IsEditing(), Place{block, row, column}, " Esc does not close the editor"_L1);
    }
}

void CompareEveryBlock(Station& station, const QString& project)
{
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(project));
    const bool sections = child->Doc().Data().Type().starts_with(Cp932("断面"));
    child->GoToBlock(255);
    for (const int block : PanelBlocks()) {
        child->Tree().setFocus(); // no cell of the new panel gets the focus
        child->Doc().MemoryOf(block) = {};
        child->GoToBlock(block);
        station.Expect(child->Panel() != nullptr && child->Panel()->Block() == block, u"block %1 opens"_s.arg(block));
        QApplication::processEvents(); // the panel gets its place
        CGridCtrl& grid = *child->Panel()->Grid();
        CSbdData data = child->Doc().Data();
        CompareColumns(station, grid, block, sections);
        CompareCells(station, grid, *MakePanelModel(data, block));
        CompareWithTable(station, grid, block, data);
        CompareGrounds(station, grid, block);
        CompareEditors(station, grid, block);
    }
    station.Expect(!child->Doc().IsModified(), project + u" is modified"_s);
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

void Type(const QString& text)
{
    for (const QChar c : text)
        QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
}

/// A row of a block as it was typed, by column; the cells that take no text are left out.
struct Typed {
    int block;
    int row; ///< 0: the last row of the block, which moves as rows close up and the reader puts rows in
    std::vector<std::pair<int, QString>> cells;
};

/// Rows of option blocks whose value stands in no other block: what is typed in them stays.
int UnlinkedOptionRow(int block)
{
    constexpr std::pair<int, int> rows[] = {{301, 1}, {302, 6}, {303, 9}, {308, 6},  {309, 17}, {310, 1},
                                            {401, 1}, {421, 2}, {521, 7}, {522, 12}, {531, 4},  {541, 4},
                                            {571, 4}, {601, 2}, {701, 6}, {721, 11}, {801, 13}};
    const auto* const place = std::ranges::find(rows, block, &std::pair<int, int>::first);
    return place == std::end(rows) ? 1 : place->second;
}

/// False for cells that the file has no field for.
bool HasField(int block, int column)
{
    return !(block == 659 && column > 14) && !(block == 324 && column == 13); // 324: one rib has no further sizes
}

bool IsNameBlock(int block)
{
    return block == 501 || block == 702;
}

/// Types all cells of a row of the panel on show, the last one left too.
Typed TypeRow(CChildFrame& child, int block, int row)
{
    CGridCtrl& grid = *child.Panel()->Grid();
    const bool option = FindOptionBlock(block) != nullptr;
    Typed typed{block, option || IsNameBlock(block) ? row : 0, {}};
    child.FocusPanel();
    for (int column = 1; column <= grid.Source()->ColumnCount(); ++column) {
        if (!grid.Source()->IsEditable(row, column))
            continue;
        grid.SetFocusCell(row, column);
        // One of everything in the blocks of records, so that counts and lists of numbers agree.
        const QString text = column == 1 && !option              ? u"T%1"_s.arg(block)
                             : FindRecordPanel(block) != nullptr ? u"1"_s
                                                                 : QString::number(block % 10 + column);
        Type(text);
        Press(Qt::Key_Tab);
        if (HasField(block, column))
            typed.cells.emplace_back(column, text);
    }
    grid.SetFocusCell(1, 1);
    return typed;
}

/// The free value of an option block, the first names of a list, or a new row below the others.
Typed TypeIn(CChildFrame& child, int block)
{
    const CPanelModel& model = *child.Panel()->Model();
    if (FindOptionBlock(block) != nullptr)
        return TypeRow(child, block, UnlinkedOptionRow(block));
    if (IsNameBlock(block))
        return TypeRow(child, block, 2);
    if (model.BlockRows() == 0)
        TypeRow(child, block, 1); // in some blocks the first row has a form of its own
    int row = model.BlockRows() + 1;
    while (!model.IsEditable(row, 1)) // words that the file knows a row by
        ++row;
    return TypeRow(child, block, row);
}

void CompareTyped(Station& station, const Typed& typed, CSbdData& data, const QString& where)
{
    const std::unique_ptr<CPanelModel> model = MakePanelModel(data, typed.block);
    const int row = typed.row == 0 ? model->BlockRows() : typed.row;
    for (const auto& [column, text] : typed.cells)
        station.Compare(toQString(model->Text(row, column)), text, Place{typed.block, row, column}, where);
}

} // namespace

class PanelProofTest : public QObject {
    Q_OBJECT

private slots:
    void everyPanelShowsWhatTheTablesSay();
    void everyPanelShowsTheHeadsOfSingleSections();
    void whatIsTypedInAnyPanelIsInTheDocumentAndInTheFile();
    void plainCellsEverywhereIfTheSettingSaysSo();
    void theRowWidthModeWidensAndNarrowsEveryPanel();
    void theRowHeightHoldsInEveryPanel();
};

void PanelProofTest::everyPanelShowsWhatTheTablesSay()
{
    Station station;
    QVERIFY(PanelBlocks().size() > 200 / 4); // a share of them is a third
    CompareEveryBlock(station, u"box2"_s);
    QVERIFY(station.WithoutFault());
}

void PanelProofTest::everyPanelShowsTheHeadsOfSingleSections()
{
    Station station;
    CompareEveryBlock(station, u"single1"_s);
    QVERIFY(station.WithoutFault());
}

void PanelProofTest::whatIsTypedInAnyPanelIsInTheDocumentAndInTheFile()
{
    Station station;
    const QString path = station.folder.Example(u"box2"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    std::vector<Typed> rows;
    for (const int block : PanelBlocks()) {
        child->GoToBlock(block);
        rows.push_back(TypeIn(*child, block));
        station.Expect(!rows.back().cells.empty(), u"block %1 takes nothing"_s.arg(block));
        CSbdData data = child->Doc().Data();
        CompareTyped(station, rows.back(), data, u" in the document"_s);
    }
    station.Expect(child->Doc().IsModified(), u"not modified"_s);
    Press(Qt::Key_S, Qt::ControlModifier);
    station.Expect(!child->Doc().IsModified(), u"not saved: "_s + station.user.warned.join(u' '));
    QVERIFY(child->close());

    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the closed window lets go of the file
    CChildFrame* again = station.frame.OpenProject(path);
    QVERIFY2(again != nullptr, qPrintable(station.user.warned.join(u' ')));
    CSbdData data = again->Doc().Data();
    for (const Typed& row : rows)
        CompareTyped(station, row, data, u" in the file"_s);
    QVERIFY(station.WithoutFault());
}

void PanelProofTest::plainCellsEverywhereIfTheSettingSaysSo()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    child->Doc().comboOrList = 2;
    child->GoToBlock(255);
    for (const int block : PanelBlocks()) {
        child->GoToBlock(block);
        const CGridSource& source = *child->Panel()->Grid()->Source();
        CSbdData data = child->Doc().Data();
        const std::unique_ptr<CPanelModel> with = MakePanelModel(data, block);
        for (int row = 1; row <= source.RowCount(); ++row) {
            for (int column = 1; column <= source.ColumnCount(); ++column) {
                station.Expect(!source.HasWords(row, column), Place{block, row, column}, " has a list"_L1);
                station.Compare(int(source.IsLocked(row, column)), int(with->IsLocked(row, column)),
                                Place{block, row, column}, " lock"_L1);
            }
        }
    }
    QVERIFY(station.WithoutFault());
}

void PanelProofTest::theRowWidthModeWidensAndNarrowsEveryPanel()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    for (const int mode : {40, -60, 300, -2000}) {
        child->Doc().rowWidthMode = mode;
        child->GoToBlock(255);
        for (const int block : PanelBlocks()) {
            child->GoToBlock(block);
            CGridCtrl& grid = *child->Panel()->Grid();
            const Columns columns = ColumnsOf(block, false);
            const OptionPanel* option = FindOptionPanel(block);
            for (int column = 1; column <= grid.model()->columnCount(); ++column) {
                const int base = columns.widths[std::size_t(column)];
                const int width = grid.columnWidth(column - 1);
                const QString name = u"block %1 mode %2 width %3"_s.arg(block).arg(mode).arg(column);
                if (option != nullptr && column == 1)
                    station.Compare(width, base + std::clamp(mode, 0, 100), name);
                else if (option != nullptr)
                    station.Compare(width, base + std::max(mode, option->lowerLimit), name);
                else if (FindPanelTable(block) != nullptr)
                    station.Compare(width, std::max(base + mode, 10), name);
                else
                    station.Expect(width >= 10, name);
            }
        }
    }
    QVERIFY(station.WithoutFault());
}

void PanelProofTest::theRowHeightHoldsInEveryPanel()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    child->Doc().display.rowHeight = 27;
    child->GoToBlock(255);
    for (const int block : PanelBlocks()) {
        child->GoToBlock(block);
        CGridCtrl& grid = *child->Panel()->Grid();
        for (const int row : {1, 2, 20})
            if (grid.Source()->RowLines(row) == 1)
                station.Compare(grid.rowHeight(row - 1), 27, u"block %1 row %2"_s.arg(block).arg(row));
    }
    QVERIFY(station.WithoutFault());
}

QTEST_MAIN(PanelProofTest)
#include "panel_proof_test.moc"
