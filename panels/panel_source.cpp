#include "panels/panel_source.h"

#include "document/section_doc.h"
#include "panelmodel/range_summary.h"

#include <QCoreApplication>
#include <QHash>

namespace sbd {

namespace {

QString Tr(const char* text)
{
    return QCoreApplication::translate("CPanelSource", text);
}

GridEffect ToGrid(CellEffect effect)
{
    switch (effect) {
    case CellEffect::None:
        return GridEffect::None;
    case CellEffect::Cell:
        return GridEffect::Cell;
    case CellEffect::Panel:
        break;
    }
    return GridEffect::All;
}

CellRange ToModel(const GridRange& range)
{
    return {range.top, range.left, range.bottom, range.right};
}

GridPaste ToGrid(const PasteOutcome& outcome)
{
    GridPaste paste;
    paste.effect = ToGrid(outcome.effect);
    paste.filled = {outcome.range.top, outcome.range.left, outcome.range.bottom, outcome.range.right};
    paste.keptCells = outcome.kept;
    paste.firstKept = {outcome.firstKept.row, outcome.firstKept.column};
    paste.notNumbers = outcome.notNumbers;
    paste.firstNotNumber = {outcome.firstNotNumber.row, outcome.firstNotNumber.column};
    paste.notNumber = toQString(outcome.notNumber);
    paste.locked = outcome.locked;
    paste.firstLocked = {outcome.firstLocked.row, outcome.firstLocked.column};
    paste.beyond = outcome.beyond;
    paste.put = outcome.put;
    return paste;
}

QColor ToColor(CellColor color)
{
    return color ? QColor::fromRgb(*color) : QColor();
}

/// Code units of the character at `pos`.
qsizetype CharacterSize(const QString& text, qsizetype pos)
{
    return text[pos].isHighSurrogate() && pos + 1 < text.size() && text[pos + 1].isLowSurrogate() ? 2 : 1;
}

/// A clipboard text in CP932; the mark for a kept cell stands for each character that CP932 has not.
std::string PasteBytes(const QString& text, QStringList& refused)
{
    if (std::optional<std::string> bytes = fromQString(text))
        return *std::move(bytes);
    QHash<QString, std::string> known;
    std::string bytes;
    for (qsizetype pos = 0; pos < text.size();) {
        const QString character = text.mid(pos, CharacterSize(text, pos));
        pos += character.size();
        if (character.size() == 1 && character[0].isSurrogate()) {
            // A byte that is no character stays one only if it makes none with the byte behind it.
            const QString next = pos < text.size() ? text.mid(pos, CharacterSize(text, pos)) : QString();
            const std::optional<std::string> byte = fromQString(character);
            bytes += byte && fromQString(character + next) ? *byte : std::string(1, kKeepCell);
            continue;
        }
        auto place = known.constFind(character);
        if (place == known.constEnd()) {
            const std::optional<std::string> encoded = fromQString(character);
            if (!encoded)
                refused << character;
            place = known.insert(character, encoded.value_or(std::string(1, kKeepCell)));
        }
        bytes += *place;
    }
    return bytes;
}

} // namespace

CPanelSource::CPanelSource(CPanelModel& model) : model_(model), editor_(model) {}

int CPanelSource::RowCount() const
{
    return model_.GridRows();
}

int CPanelSource::UsedRows() const
{
    return model_.BlockRows();
}

int CPanelSource::ColumnCount() const
{
    return model_.ColumnCount() - 1;
}

int CPanelSource::ColumnWidth(int column) const
{
    return model_.ColumnWidth(column);
}

int CPanelSource::HeadHeight() const
{
    return model_.HeadHeight();
}

int CPanelSource::NameColumns() const
{
    return model_.NameColumns();
}

QString CPanelSource::Head(int column, int focusRow) const
{
    return toQString(model_.Head(column, focusRow));
}

QColor CPanelSource::HeadColor(int column, int focusRow) const
{
    return ToColor(model_.HeadColor(column, focusRow));
}

QString CPanelSource::RowNumber(int row) const
{
    return toQString(model_.RowNumber(row));
}

QString CPanelSource::RowTitle(int row) const
{
    return model_.IsEditable(row, 1) ? QString() : Text(row, 1);
}

/// Of the head, or of the label beside the value.
QString CPanelSource::Unit(int row, int column) const
{
    if (!model_.IsEditable(row, column))
        return {};
    std::string unit = UnitIn(model_.Head(column, row));
    if (unit.empty() && column > 1 && !model_.IsEditable(row, 1))
        unit = UnitIn(model_.Text(row, 1));
    return toQString(unit);
}

int CPanelSource::RowLines(int row) const
{
    return model_.RowLines(row);
}

QString CPanelSource::Text(int row, int column) const
{
    return toQString(model_.Text(row, column));
}

bool CPanelSource::HasWords(int row, int column) const
{
    return !model_.Words(row, column).empty();
}

QStringList CPanelSource::Words(int row, int column) const
{
    QStringList words;
    for (const std::string& word : model_.Words(row, column))
        words << toQString(word);
    return words;
}

bool CPanelSource::IsLocked(int row, int column) const
{
    return model_.IsLocked(row, column);
}

bool CPanelSource::IsEditable(int row, int column) const
{
    return model_.IsEditable(row, column);
}

QString CPanelSource::WhyLocked(int row, int column) const
{
    return toQString(model_.WhyLocked(row, column));
}

QColor CPanelSource::TextColor(int row, int column) const
{
    return ToColor(model_.TextColor(row, column));
}

bool CPanelSource::IsRightAligned(int row, int column) const
{
    return model_.IsRightAligned(row, column);
}

std::optional<QString> CPanelSource::RefusedCharacter(const QString& text) const
{
    QString refused;
    return fromQString(text, &refused) ? std::nullopt : std::optional(refused);
}

/// The minus sign of some input methods is not that of CP932.
QString CPanelSource::Folded(int row, int column, const QString& text) const
{
    constexpr char16_t minus = 0x2212;
    return model_.TakesNumbers(row, column) ? QString(text).replace(QChar(minus), u'-') : text;
}

std::optional<GridRefusal> CPanelSource::WhyNot(int row, int column, const QString& text) const
{
    const std::optional<std::string> bytes = fromQString(text);
    const auto why = bytes ? model_.WhyNot(row, column, *bytes) : std::nullopt;
    if (!why)
        return std::nullopt;
    const QString part = toQString(why->part);
    switch (why->takes) {
    case CellTakes::Count:
        return GridRefusal{part, Tr("「%1」は個数として読めません。").arg(part),
                           Tr("0 以上の整数を入力してください。")};
    case CellTakes::Numbers:
        return GridRefusal{part, Tr("「%1」は数値として読めません。").arg(part),
                           Tr("数値をコンマか空白で区切って入力するか、一覧の語を選んでください。")};
    default:
        return GridRefusal{part, Tr("「%1」は数値として読めません。").arg(part),
                           Tr("数値（2.5、-1 など）を１つだけ入力してください。")};
    }
}

GridEffect CPanelSource::SetText(int row, int column, const QString& text)
{
    const std::optional<std::string> bytes = fromQString(text);
    return bytes ? ToGrid(editor_.SetCell(row, column, *bytes)) : GridEffect::None;
}

GridEffect CPanelSource::Clear(const GridRange& range)
{
    return ToGrid(editor_.Clear(ToModel(range)));
}

QString CPanelSource::Copy(const GridRange& range) const
{
    return toQString(editor_.Copy(ToModel(range)));
}

GridEffect CPanelSource::Paste(int row, int column, const QString& text, GridRange* filled)
{
    const GridPaste paste = PasteChecked(row, column, text);
    if (filled != nullptr)
        *filled = paste.filled;
    return paste.effect;
}

GridPaste CPanelSource::PasteChecked(int row, int column, const QString& text)
{
    return PasteOver({row, column, row, column}, text);
}

GridPaste CPanelSource::PasteOver(const GridRange& range, const QString& text)
{
    QStringList refused;
    GridPaste paste = ToGrid(editor_.PasteOver(ToModel(range), PasteBytes(text, refused)));
    paste.refused = refused;
    return paste;
}

GridPaste CPanelSource::Fill(const GridFill& fill)
{
    const CellRange range = ToModel(fill.range);
    switch (fill.kind) {
    case GridFill::Down:
        return ToGrid(editor_.FillDown(range));
    case GridFill::Right:
        return ToGrid(editor_.FillRight(range));
    case GridFill::Text:
        if (const std::optional<std::string> bytes = fromQString(fill.text))
            return ToGrid(editor_.FillWith(range, *bytes));
        return {};
    default:
        break;
    }
    return ToGrid(
        editor_.FillFrom(ToModel(fill.from), range, fill.kind == GridFill::Count ? FillOn::Count : FillOn::Repeat));
}

bool CPanelSource::MovesRows() const
{
    return model_.MovesRows();
}

std::optional<GridCell> CPanelSource::Undo()
{
    if (const std::function<void()> step = undo) // a copy: the panel that is shown behind it has another source
        step();
    return std::nullopt;
}

} // namespace sbd
