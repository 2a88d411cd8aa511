#include "check/doubt_tables.h"

namespace sbd {

namespace {

// Only blocks whose help page calls the columns a range. Not 573: its four names say where one brace begins and ends.
constexpr std::array<RangeColumns, 2> kGirdersFirst = {{{1, true}, {3, false}}};
constexpr std::array<RangeColumns, 2> kBeamsFirst = {{{1, false}, {3, true}}};
constexpr RangeBlock kRangeBlocks[] = {
    {307, kGirdersFirst, false, {}, "支承条件を外す格点の範囲です"},
    {312, kGirdersFirst, false, {}, "地覆高などを使う格点の範囲です"},
    {313, kGirdersFirst, true, {5}, "垂直補剛材の区間の範囲です"},
    {314, kGirdersFirst, true, {5}, "格点上の補剛材の範囲です"},
    {315, kGirdersFirst, false, {}, "水平補剛材の区間の範囲です"},
    {333, kGirdersFirst, true, {5}, "箱桁の断面寸法の区間の範囲です"},
    {352, kGirdersFirst, true, {5}, "横桁の取付け高さの範囲です"},
    {353, kGirdersFirst, true, {5, 6}, "ガセットの取付け位置の範囲です"},
    {354, kGirdersFirst, true, {5}, "吊金具の取付け位置の範囲です"},
    {405, kGirdersFirst, true, {}, "ソールプレートの支点の範囲です"},
    {512, kGirdersFirst, true, {}, "主桁断面の範囲です"},
    {514, kGirdersFirst, true, {5}, "格点上の補剛材の範囲です"},
    {523, kBeamsFirst, true, {}, "横桁(対傾構)の種別の範囲です"},
    {533, kBeamsFirst, true, {}, "横桁の断面の範囲です"},
    {542, kBeamsFirst, false, {}, "対傾構の範囲です"},
    {551, kBeamsFirst, true, {5}, "連結形式の範囲です"},
    {562, kBeamsFirst, false, {}, "対傾構の範囲です"},
};

constexpr std::string_view kSides[] = {"I",       "I桁",     "左腹板", "右腹板", "両腹板", "I桁左側",
                                       "I桁右側", "I桁両側", "左側",   "右側",   "両側"};
constexpr std::string_view kParts[] = {"UFLG", "LFLG", "FLG", "URIB",   "LRIB",   "RIB",   "LWEB",
                                       "RWEB", "WEB",  "I桁", "左腹板", "右腹板", "両腹板"};
constexpr std::string_view kBeamKinds[] = {"端横桁",         "中間支点横桁", "荷重分配横桁", "中間対傾構",
                                           "中間支点対傾構", "端対傾構",     "要素無し"};
constexpr std::string_view kMemberSides[] = {"要素左側", "要素右側", "要素両側"};
constexpr std::string_view kBraceEnds[] = {"B", "C", "E"};
constexpr std::string_view kStiffenerSteps[] = {"1段目", "2段目"};
constexpr ClosedWords kClosedWords[] = {
    {kSides, "どのウェブのどちら側かを示す語です"},
    {kParts, "フランジ、ウェブ、リブのどれかを示す語です"},
    {kBeamKinds, "横桁(対傾構)の種別です。種別により設計方法が決まります"},
    {kMemberSides, "部材のどちらの端かを示す語です"},
    {kBraceEnds, "下横構の端の位置です"},
    {kStiffenerSteps, "水平補剛材の段です"},
};

constexpr MixedColumn kMixedColumns[] = {
    {344, 12, "「17@105」のように個数と間隔でも書きます"},
};

constexpr NeededBlock kNeededBlocks[] = {
    {304, NeededBy::Girders, "断面を決める最小値と最大値です"},
    {311, NeededBy::Girders, "桁高がないと断面を計算できません"},
    {313, NeededBy::Girders, "垂直補剛材の配置は腹板の照査に使います"},
    {321, NeededBy::Girders, "継手の位置がないと継手を設計できません"},
    {324, NeededBy::BoxGirders, "箱桁のフランジは横リブの配置で照査します"},
    {352, NeededBy::SeveralGirders, "横桁の取付け高さは疲労照査に使います"},
};

} // namespace

std::span<const RangeBlock> RangeBlocks()
{
    return kRangeBlocks;
}

std::span<const ClosedWords> ClosedWordLists()
{
    return kClosedWords;
}

std::span<const MixedColumn> MixedColumns()
{
    return kMixedColumns;
}

std::span<const NeededBlock> NeededBlocks()
{
    return kNeededBlocks;
}

} // namespace sbd
