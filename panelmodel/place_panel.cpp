#include "panelmodel/place_panel.h"

#include "panelmodel/panel_parts.h"
#include "project/text.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

using namespace literals;

constexpr int kMethodRow = 2;
constexpr int kFirstPlaceRow = 3;
constexpr int kWebColumn = 2;
constexpr int kPlaceColumn = 5; // cross beam, or length in m

const WordList& JointKinds()
{
    static const WordList words{"ボルト継手(省略可)"_cp932, "溶接継手"_cp932,        "UFLG溶接継手"_cp932,
                                "LFLG溶接継手"_cp932,       "FLG溶接継手"_cp932,     "WEB溶接継手"_cp932,
                                "UFLG&WEB溶接継手"_cp932,   "LFLG&WEB溶接継手"_cp932};
    return words;
}

const WordList& Center()
{
    static const WordList words{"CENTER"};
    return words;
}

const WordList& LastSection()
{
    static const WordList words{"終断面"_cp932};
    return words;
}

const WordList& Webs()
{
    static const WordList words{"I桁"_cp932, "左腹板"_cp932, "右腹板"_cp932, "両腹板"_cp932};
    return words;
}

WordList BeamWords(const CSbdData& data, const PanelSettings& settings)
{
    const WordList words{"@beams"};
    return settings.names != nullptr ? ResolveWords(words, *settings.names)
                                     : ResolveWords(words, data, settings.listNames);
}

} // namespace

CPlacePanelModel::CPlacePanelModel(const CSbdData& data, int block, const PanelSettings& settings)
    : CTablePanelModel(data, block, settings)
    , beams_(BeamWords(data, settings))
    , methods_(FindPanelTable(block)->columns[kWebColumn].words)
{
    TouchMasked();
}

bool CPlacePanelModel::ByLength() const
{
    static const std::array<std::string, 4> lengths{"継手長"_cp932, "断面長"_cp932, "自動_継手長"_cp932,
                                                    "自動_断面長"_cp932};
    const std::string_view method = Cell(kMethodRow, 2);
    return std::ranges::any_of(lengths, [method](const std::string& word) { return method.starts_with(word); });
}

bool CPlacePanelModel::IsMasked(int row, int column) const
{
    const int firstUnused = Block() == 321 ? 7 : 6;
    return row >= kFirstPlaceRow && column >= firstUnused && ByLength();
}

bool CPlacePanelModel::IsRightAligned(int row, int column) const
{
    return row >= kFirstPlaceRow && column == kPlaceColumn && ByLength();
}

const WordList& CPlacePanelModel::DoWords(int row, int column) const
{
    if (row == kMethodRow && column == kWebColumn)
        return methods_;
    if (row < kFirstPlaceRow)
        return kFreeText;
    if (column == kWebColumn)
        return Webs();
    if (column < kPlaceColumn)
        return CTablePanelModel::DoWords(row, column);
    const bool joints = Block() == 321;
    if (ByLength())
        return column == kPlaceColumn ? LastSection() : joints && column == 6 ? JointKinds() : kFreeText;
    return column == kPlaceColumn ? beams_ : column == 7 ? Center() : joints && column == 8 ? JointKinds() : kFreeText;
}

CellEffect CPlacePanelModel::DoSetCell(int row, int column, std::string_view text)
{
    const bool byLength = ByLength();
    const CellEffect effect = CTablePanelModel::DoSetCell(row, column, text);
    if (ByLength() == byLength)
        return effect;
    TouchAll();
    return CellEffect::Panel;
}

} // namespace sbd
