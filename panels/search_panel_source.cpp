#include "panels/search_panel_source.h"

#include "panelmodel/panel_parts.h"
#include "search/search_index.h"

#include <QCoreApplication>
#include <QFontMetrics>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineRow = 1;
constexpr int kFirstRow = 2; // of the rows below the line
constexpr int kNumberWidth = 35;
constexpr int kColumnWidth = 600;
constexpr int kHeadHeight = 30;
constexpr QRgb kTitleColor = 0xFF0000FF;

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

/// Where a line may better not begin.
bool StaysBehind(QChar c)
{
    return u"、。，．）)］]」・:：ー行列"_s.contains(c);
}

bool IsWordLetter(QChar c)
{
    return c.unicode() < 0x80 && c.isLetterOrNumber();
}

bool MayBreakBefore(const QString& text, qsizetype i)
{
    return !StaysBehind(text[i]) && !(IsWordLetter(text[i]) && IsWordLetter(text[i - 1]));
}

/// `text` in lines of `width` pixels at most, the widths taken from one narrow and one wide letter. Further lines stand
/// in as the first one does.
QString WrapText(const QString& text, int narrow, int wide, int width)
{
    constexpr qsizetype longestWord = 20; // a longer one is broken
    const QString indent = u"   "_s;
    const auto widthOf = [&](QChar c) { return c.unicode() < 0x100 ? narrow : wide; };
    QString lines;
    qsizetype begin = 0; // of the line
    int used = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        used += widthOf(text[i]);
        if (used <= width || i == begin)
            continue;
        qsizetype end = i;
        while (end > begin + 1 && i - end < longestWord && !MayBreakBefore(text, end))
            --end;
        if (!MayBreakBefore(text, end))
            end = i;
        lines += text.mid(begin, end - begin) + u'\n' + indent;
        begin = end;
        i = end - 1;
        used = int(indent.size()) * narrow;
    }
    return lines + text.mid(begin);
}

} // namespace

CSearchPanelSource::CSearchPanelSource(int block, int mostRows, int rowWidthMode, bool lists)
    : block_(block)
    , rowCount_(mostRows + 1)
    , rowWidthMode_(rowWidthMode)
    , lists_(lists)
{
}

void CSearchPanelSource::KeepLine()
{
    if (earlierLines_.isEmpty() || earlierLines_.last() != line_)
        earlierLines_ << line_;
}

void CSearchPanelSource::SetRows(std::vector<SearchRow> rows)
{
    rows_ = std::move(rows);
    wrapped_.clear();
    for (const SearchRow& row : rows_)
        wrapped_.push_back(row.text);
}

void CSearchPanelSource::Wrap(const QFontMetrics& metrics, int width)
{
    const int narrow = std::max(1, metrics.horizontalAdvance(u'0'));
    const int wide = std::max(1, metrics.horizontalAdvance(QChar(u'桁')));
    for (std::size_t i = 0; i < rows_.size(); ++i)
        wrapped_[i] = WrapText(rows_[i].text, narrow, wide, width);
}

const SearchRow* CSearchPanelSource::RowAt(int row) const
{
    const int i = row - kFirstRow;
    return i >= 0 && i < static_cast<int>(rows_.size()) ? &rows_[static_cast<std::size_t>(i)] : nullptr;
}

const SearchEntry* CSearchPanelSource::Entry(int row) const
{
    const SearchRow* found = RowAt(row);
    return found != nullptr ? found->entry : nullptr;
}

int CSearchPanelSource::ColumnWidth(int column) const
{
    return column == 0 ? kNumberWidth : WidenedWidth(kColumnWidth, rowWidthMode_);
}

int CSearchPanelSource::HeadHeight() const
{
    return kHeadHeight;
}

QString CSearchPanelSource::Head(int column, int) const
{
    if (column == 0)
        return QString::number(block_) + u"\nF1"_s;
    return QCoreApplication::translate("CSearchPanelSource",
                                       "   項目・検索結果(第１行に検索内容を選択して下さい．直接入力も可能です!)"
                                       "\n(複数文字検索する場合，文字間に空白で区別で入力すること)");
}

int CSearchPanelSource::RowLines(int row) const
{
    return RowAt(row) != nullptr ? int(wrapped_[static_cast<std::size_t>(row - kFirstRow)].count(u'\n')) + 1 : 1;
}

QString CSearchPanelSource::Text(int row, int) const
{
    if (row == kLineRow)
        return line_;
    return RowAt(row) != nullptr ? wrapped_[static_cast<std::size_t>(row - kFirstRow)] : QString();
}

bool CSearchPanelSource::HasWords(int row, int) const
{
    return row == kLineRow && lists_;
}

QStringList CSearchPanelSource::Words(int row, int column) const
{
    if (!HasWords(row, column))
        return {};
    QStringList words{Text8(kQuestionsWord)};
    for (const std::string_view word : ReadyMadeWords())
        words << Text8(kSearchPrefix) + Text8(word);
    return words;
}

bool CSearchPanelSource::IsEditable(int row, int) const
{
    return row == kLineRow;
}

QColor CSearchPanelSource::TextColor(int row, int) const
{
    const SearchRow* found = RowAt(row);
    return found != nullptr && found->entry == nullptr ? QColor::fromRgb(kTitleColor) : QColor();
}

GridEffect CSearchPanelSource::SetText(int row, int, const QString& text)
{
    if (row != kLineRow || text == line_)
        return GridEffect::None;
    KeepLine();
    SetLine(text);
    if (onLine)
        onLine();
    return GridEffect::Cell;
}

GridEffect CSearchPanelSource::Clear(const GridRange& range)
{
    return range.top <= kLineRow ? SetText(kLineRow, 1, {}) : GridEffect::None;
}

QString CSearchPanelSource::Copy(const GridRange& range) const
{
    QStringList lines;
    for (int row = std::max(range.top, kLineRow); row <= std::min(range.bottom, ShownRows()); ++row) {
        if (row == kLineRow)
            lines << line_;
        else if (const SearchRow* shown = RowAt(row))
            lines << shown->text;
    }
    return lines.join(u'\n');
}

GridEffect CSearchPanelSource::Paste(int row, int column, const QString& text, GridRange* filled)
{
    if (filled != nullptr)
        *filled = {row, column, row, column};
    return row == kLineRow ? SetText(row, column, text.section(u'\n', 0, 0).simplified()) : GridEffect::None;
}

bool CSearchPanelSource::CanUndo() const
{
    return std::ranges::any_of(earlierLines_, [this](const QString& line) { return line != line_; });
}

std::optional<GridCell> CSearchPanelSource::Undo()
{
    while (!earlierLines_.isEmpty() && earlierLines_.last() == line_)
        earlierLines_.removeLast();
    if (earlierLines_.isEmpty())
        return std::nullopt;
    line_ = earlierLines_.takeLast();
    if (onLine)
        onLine();
    return GridCell{kLineRow, 1};
}

} // namespace sbd
