// Word lists that several columns and rows offer, each written once.
//
// A list is one text: its words divided by "|", which no word holds. The words "@girders" and "@beams" stand for the
// name lists of the project.
#pragma once

#include <cstddef>
#include <string_view>

namespace sbd::word_lists {

/// Two texts put behind each other when compiling. `N` counts the final zero.
template <std::size_t N>
struct Joined {
    char text[N] = {};
    constexpr operator std::string_view() const { return {text, N - 1}; }
};

template <std::size_t A, std::size_t B>
consteval Joined<A + B - 1> Join(const char (&first)[A], const char (&second)[B])
{
    Joined<A + B - 1> joined;
    for (std::size_t i = 0; i + 1 < A; ++i)
        joined.text[i] = first[i];
    for (std::size_t i = 0; i < B; ++i)
        joined.text[A - 1 + i] = second[i];
    return joined;
}

// Materials and bolts.
inline constexpr char kMaterials[] =
    "SS400|SM400|SM490Y|SM570|SM400-H|SM490Y-H|SM570-H|SM490|SMA400W|SMA490W|SMA570W|SM490-H|SMA400W-H|SMA490W-H|"
    "SMA570W-H";
inline constexpr auto kZeroOrMaterials = Join("0|", kMaterials);
inline constexpr char kBolts[] =
    "M20(S10T)|M20(F10T)|M20(F8T)|M22(S10T)|M22(F10T)|M22(F8T)|M24(S10T)|M24(F10T)|M24(F8T)";
inline constexpr auto kNoneOrBolts = Join("なし|", kBolts);
inline constexpr char kBoltsM22First[] =
    "M22(S10T)|M20(S10T)|M24(S10T)|M22(F8T)|M20(F8T)|M24(F8T)|M22(F10T)|M20(F10T)|M24(F10T)";
inline constexpr char kHolePatterns[] = "全孔引き|24孔引き|46孔引き|68孔引き|2孔引き|4孔引き|6孔引き|千鳥_外|千鳥_内";

// Welds and studs.
inline constexpr char kWelds[] = "完全溶込み|部分溶込み|すみ肉";
inline constexpr char kSizedWelds[] =
    "完全|すみ肉_4|すみ肉_5|すみ肉_6|すみ肉_7|すみ肉_8|すみ肉_9|部分_6|部分_7|部分_8|部分_9";
inline constexpr auto kContactOrSizedWelds = Join(kSizedWelds, "|メタルタッチ|間隔_30|間隔_35|間隔_40");
inline constexpr char kStudPatterns[] = "15C,16,15C|35R,16,40R";

// Rules and figures. Seven is followed by nine in kRounding.
inline constexpr char kRegions[] = "一般|東北|北海道25|北海道35|北海道36";
inline constexpr char kSpliceRules[] = "半面積|面積|半応力75|応力75|半応力軸力|応力軸力|半応力|応力";
inline constexpr char kPercent[] = "NO|10%|20%|30%|40%|50%|10|20|30|40|50|60|70|80|90|100";
inline constexpr char kSizesFrom75[] = "75|80|85|90|95|100|105|110|115|120";
inline constexpr auto kAutoSizes = Join("自動|", kSizesFrom75);
inline constexpr auto kAutoSizes2 = Join("自動|第１第２に同じ|", kSizesFrom75);
inline constexpr char kRounding[] =
    "切り上げ|切り捨て|１捨２入|２捨３入|３捨４入|４捨５入|５捨６入|６捨７入|７捨８入|９捨10入";
inline constexpr char kFatigueClasses[] = "0|なし|A(190)|B(155)|C(125)|D(100)|E(80)|F(65)|G(50)|H(40)|I(30)";

// Sides and parts of girders.
inline constexpr char kGirderWebs[] = "I桁|左腹板|右腹板|両腹板";
inline constexpr auto kGirderWebsThenSides = Join(kGirderWebs, "|I桁左側|I桁右側|I桁両側");
inline constexpr char kGirderSidesAndWebs[] = "I桁左側|I桁右側|I桁両側|左腹板|右腹板|両腹板";
inline constexpr auto kGirderOrSidesAndWebs = Join("I桁|", kGirderSidesAndWebs);
inline constexpr auto kPlainGirderOrSidesAndWebs = Join("I|", kGirderSidesAndWebs);
inline constexpr char kSplicedParts[] = "UFLG|LFLG|FLG|URIB|LRIB|RIB|LWEB|RWEB|WEB|I桁|左腹板|右腹板|両腹板";
inline constexpr char kFlangesOrWeb[] = "FLG|UFLG|LFLG|WEB";
inline constexpr char kHStiffenerCounts[] = "0|L1|L2|L3|L4|L5|L6|L7|L8|L9|R1|R2|R3|R4|R5|R6|R7|R8|R9";
inline constexpr char kSupportStiffenerSwitch[] = "YES|NO|YES314|RESET|NO-WELD";

// Slab.
inline constexpr char kSlabCheckPoints[] = "断面左側|断面右側|断面中(曲げ最大)|@beams";
inline constexpr char kBarSpacings[] = "100|125|150|175|200";

// Cross beams, sway bracing, stringers and brackets.
inline constexpr char kCrossBeamTypes[] = "端横桁|中間支点横桁|荷重分配横桁|中間対傾構|中間支点対傾構|端対傾構";
inline constexpr auto kCrossBeamTypesOrNone = Join(kCrossBeamTypes, "|要素無し");
inline constexpr char kMemberSides[] = "要素左側|要素右側|要素両側";
inline constexpr char kFlangeConnections[] = "W1|W2|C1|C2|C3|C4|C5";
inline constexpr char kSwayMembers[] = "上|下|斜|上下|上斜|下斜|上斜下";
inline constexpr char kUprightOrCount[] = "鉛直|直角|1|2|3|4|5|6|7|8|9|10|11|12";
inline constexpr char kBracketLoads[] = "高覧|遮音壁|地覆|雪荷重|側縦桁ハンチ";

} // namespace sbd::word_lists
