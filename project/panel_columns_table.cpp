// What the panels show of each block: a record a column.
#include "project/panel_raw_tables.h"
#include "project/word_lists_table.h"

namespace sbd {

namespace {

using namespace word_lists;

// A column: width, head[, name in the file[, word list[, kText or kNumber[, head of a section project]]]].
// In a block that has heads for section projects, a column without one keeps its head there.
// clang-format off

constexpr RawColumn k259[] = {
    {500, "荷重名", "出力分類"},
    {200, "出力分類", "荷重名", "δ1|δ2|δ3|δ4|δ5|δ6|δ7|δ8|δ9"},
};

constexpr RawColumn k291[] = {
    {100, "主桁名\nG(固定)", "主桁名", "@girders|G"},
    {100, "始横桁名\n左(固定)", "横桁始", "@beams|左"},
    {70, "始端最大\n死+活最大", "始端最大"},
    {70, "始端最小\n死+活最小", "始端最小"},
    {70, "始端前死\n前死荷重", "始端前死"},
    {70, "始端後死\n後死荷重", "始端後死"},
    {70, "終端最大\n( <---", "終端最大"},
    {70, "終端最小\n主桁自動", "終端最小"},
    {70, "終端前死\n設計では", "終端前死"},
    {70, "終端後死\nない場合)", "終端後死"},
};

constexpr RawColumn k304[] = {
    {110, "主桁始\n桁名\n桁名", "主桁始", "@girders"},
    {90, "主桁終\n仮想主桁\n縦桁", "主桁終", "仮想主桁|縦桁|設計しない|@girders"},
    {80, "UFLG最大幅\n(mm)", "UFLG最大幅"},
    {80, "LFLG最大幅\n(mm)", "LFLG最大幅"},
    {80, "WEB最大厚\n(mm)", "WEB最大厚"},
    {80, "UFLG最小幅\n(mm)\n0->332使用", "UFLG最小幅"},
    {80, "LFLG最小幅\n(mm)\n0->332使用", "LFLG最小幅"},
    {80, "WEB最小厚\n(mm)\n0->331使用", "WEB最小厚"},
    {100, "最低材質\n0->331,332使用", "最低材質", kZeroOrMaterials},
};

constexpr RawColumn k305[] = {
    {100, "主桁名", "主桁名", "G", kText, "G(固定)\n箱桁入力必須"},
    {100, "左腹板名", "左腹板名", "無", kText, "---\nGだけでOK"},
    {100, "右腹板名", "右腹板名", "無", kText, "---\n2列以降入力不要"},
    {120, "[左腹板名_下側]", "[左腹板名_下側]", "無", kText, "---\n鈑桁入力禁止"},
    {120, "[右腹板名_下側]", "[右腹板名_下側]", "無", kText, "---"},
};

constexpr RawColumn k306[] = {
    {200, "新たな荷重名", "タイプ", "継続行|曲げ最小|曲げ最大|前死荷重|後死荷重|主max＋温度_正|主max＋温度_負"},
    {200, "=荷重名(KELD_analysis)", "荷重名(KELD_analysis)", "YES|NO"},
    {120, "×(÷)", "×(÷)", "×|÷|×活正|×活負|÷活正|÷活負"},
    {120, "係数", "係数"},
};

constexpr RawColumn k307[] = {
    {100, "主桁始\n主桁始\n主桁名・線名", "", "@girders"},
    {100, "主桁終\n主桁終\n主桁名・線名", "", "@girders"},
    {100, "横桁名始\n横桁名始\n横桁名始", "", "@beams"},
    {100, "横桁名終\n横桁名終\n横桁名終", "", "@beams"},
    {170, "(曲げモーメント低減量DM)\n(考慮しない場合0)\n0"},
    {220, "---\n(支点・支承線上点・不連続点追加)\n(Z不連続点・XY不連続点)", "",
     "支点|支承線上点|不連続点追加|Z不連続点|XY不連続点"},
};

constexpr RawColumn k312[] = {
    {90, "主桁始\n腹板名\n縦桁始", "", "@girders"},
    {90, "主桁終\n腹板名\n縦桁終", "", "@girders"},
    {90, "\n横桁始", "", "@beams"},
    {90, "\n横桁終", "", "@beams"},
    {100, "地覆高\n地覆(-9=桁同)\n地覆高\n(m)"},
    {100, "舗装高\n舗装(-9=桁同)\n舗装高\n(m)"},
    {100, "詰材高\n詰材(-9=桁同)\n詰材高\n(m)"},
    {100, "床版高\n床版(-9=桁同)\n床版高\n(m)"},
    {110, "ハンチ高\nハンチ(-1=水平)\nハンチ高\n(m)"},
    {120, "[角度\n(箱桁)]"},
};

constexpr RawColumn k313[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "I左右両", "", kGirderWebsThenSides},
    {80, "幅1\n(mm)"},
    {80, "厚1\n(mm)"},
    {85, "本数n"},
    {860, "間隔(n個,m)  [幅2,厚2,......幅n,厚n(mm)]\n等間隔         [幅2,厚2,......幅n,厚n(mm)]", "", "等間隔"},
};

constexpr RawColumn k314[] = {
    {110, "主桁始", "主桁名", "@girders"},
    {90, "主桁終", "主桁名", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "I左右両", "I左右両", kGirderWebsThenSides},
    {90, "幅\n(mm)", "幅"},
    {90, "厚\n(mm)", "厚"},
    {120, "材質", "材質", kMaterials},
};

constexpr RawColumn k315[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁始", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "I左右両", "", kGirderWebsThenSides},
    {80, "1/2段目", "", "1段目|2段目"},
    {80, "上本数", "", kHStiffenerCounts},
    {80, "下本数", "", kHStiffenerCounts},
    {860, ""},
};

constexpr RawColumn k316[] = {
    {110, "TYPE\n中心線(2行目)", "TYPE", "中心線"},
    {90, "左線名\n中心線名", "左線名", "YES|NO"},
    {90, "右線名\n出力横断1", "右線名", "無し|@beams"},
    {90, "横桁始\n出力横断2", "横桁始", "無し|@beams"},
    {90, "横桁終\n出力横断3", "横桁終", "無し|@beams"},
    {90, "高さ左(mm)\n出力横断4", "高さ左", "無し|@beams"},
    {90, "高さ右(mm)\n出力横断5", "高さ右(mm)", "無し|@beams"},
    {90, "勾配(%)\n出力横断6", "勾配(%)", "無し|@beams"},
    {90, "舗装高\n---", "舗装高"},
    {120, "幅員(幅)", "幅員(幅)"},
};

constexpr RawColumn k321[] = {
    {90, "継手名"},
    {140, "I左右両", "", "横桁と垂直補剛材より|継手長|自動_継手長出力|自動_VS出力"},
    {90, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "左側横桁名\n継手長(m)"},
    {140, "VSTIFF番号\n継手TYPE", "",
     "ボルト継手(省略可)|溶接継手|UFLG溶接継手|LFLG溶接継手|FLG溶接継手|WEB溶接継手|UFLG&WEB溶接継手|"
     "LFLG&WEB溶接継手"},
    {95, "間隔(m)\n---"},
    {140, "継手TYPE\n---"},
};

constexpr RawColumn k322[] = {
    {90, "断面名"},
    {150, "I左右両", "", "横桁と垂直補剛材より|断面長|自動_断面長出力|自動_VS出力"},
    {90, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {120, "左側横桁名\n断面長(m)", "", "終断面"},
    {90, "VSTIFF番号\n---"},
    {90, "間隔(m)\n---"},
};

constexpr RawColumn k323[] = {
    {150, "主桁名", "主桁名", "G|@girders"},
    {150, "同断面したい主桁名", "同断面したい主桁名", "G|@girders"},
};

constexpr RawColumn k326[] = {
    {110, "主桁始", "主桁始", "G|@girders"},
    {90, "主桁終", "主桁終", "G|@girders"},
    {90, "断面始", "断面始", "SEC1|SEC2"},
    {80, "断面終", "断面終", "SEC1|SEC2"},
    {80, "[U][L]FLG", "[U][L]FLG", "UFLG|LFLG|FLG"},
    {80, "Bi\n(mm)", "Bi"},
    {80, "[Hi]\n(mm)", "[Hi]"},
    {80, "Ti\n(mm)", "Ti"},
    {80, "[Ri,Di]\n(mm)", "[Ri]"},
    {80, "左･右･中心", "左･右･中心", "左|右|中心"},
    {100, "距離\n(左右時有効)", "距離"},
};

constexpr RawColumn k327[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "横桁名始", "横桁始", "@beams"},
    {80, "横桁名終", "横桁終", "@beams"},
    {80, "I左右両", "I左右両", kGirderWebs},
    {90, "UFLG固定点\n距離(m)", "UFLG固定点距離", "", kNumber},
    {90, "LFLG固定点\n距離(m)", "LFLG固定点距離", "", kNumber},
    {110, "UFLG固定点\n距離(m曲線I用)", "U曲線付加応力用", "", kNumber},
    {110, "LFLG固定点\n距離(m曲線I用)", "L曲線付加応力用", "", kNumber},
};

constexpr RawColumn k328[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁名始", "横桁始", "@beams"},
    {90, "横桁名終", "横桁終", "@beams"},
    {110, "曲率半径\n(直線=0.0)(m)", "曲率半径(直線=-1)", "", kNumber},
};

constexpr RawColumn k329[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁名始", "横桁始", "@beams"},
    {90, "横桁名終", "横桁終", "@beams"},
    {200, "[垂直補剛材あり(YES_NO)]\nUL横リブあり\n中間ダイヤあり", "[垂直補剛材あり(YES_NO)]",
     "YES|NO|上下横リブあり|上横リブあり|下横リブあり|中間ダイヤあり|横リブダイヤなし"},
};

constexpr RawColumn k331[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {85, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {85, "断面名始", "横桁始", "SEC1|SEC2", kText, "SEC1・2\n(固定)"},
    {85, "断面名終", "横桁終", "SEC1|SEC2", kText, "SEC1・2\n(固定)"},
    {85, "I左右両", "I左右両", kGirderWebs},
    {100, "材質", "材質", kMaterials},
    {85, "板厚Twb\n(mm)", "板厚Twb", "", kNumber},
    {120, "決定要因\n(部分断面手動)", "決定要因", "固定_|せん断応力度|最小腹板厚|入力最小板厚|手動", kNumber},
    {90, "[板厚Twe]\n(mm)", "[板厚Twe]"},
    {90, "[内･外･中心\n合わせ(箱)]", "[内･外･中心(箱)]", "内面|外面|中心"},
    {90, "[距離(箱)]\n(mm)", "[距離(箱)]"},
};

constexpr RawColumn k332[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "断面名始", "横桁始", "SEC1|SEC2", kText, "SEC1・2\n(固定)"},
    {90, "断面名終", "横桁終", "SEC1|SEC2", kText, "SEC1・2\n(固定)"},
    {90, "[U][L]FLG", "[U][L]FLG", "UFLG|LFLG|FLG"},
    {110, "材質", "材質", kMaterials},
    {80, "幅Bfb\n(mm)", "幅Bfb", "", kNumber},
    {80, "板厚Tfb\n(mm)", "板厚Tfb", "", kNumber},
    {120, "決定要因\n(部分断面手動)", "決定要因",
     "固定_|応力度|合成応力度|孔引き応力度|板厚差|自由突出部の板厚|箱桁FLG最小板厚|入力最小板厚|手動", kNumber},
    {80, "[幅Bfe]\n(mm)", "[幅Bfe]", "", kNumber},
    {80, "[板厚Tfe]\n(mm)", "[板厚Tfe]", "", kNumber},
};

constexpr RawColumn k333[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "横桁始", "横桁始", "左|@beams", kText, "左(固定)"},
    {90, "横桁終", "横桁終", "右|@beams", kText, "右(固定)"},
    {90, "[U][L]FLG", "[U][L]FLG", "UFLG|LFLG|FLG"},
    {80, "左突出\n(mm)", "左突出"},
    {80, "右突出\n(mm)", "右突出"},
    {90, "左横断差\n(mm)", "左横断差", "自動"},
    {90, "[WEB間隔]\n(mm)", "[WEB間隔]", "自動"},
    {90, "[中･左腹距]\n(mm)", "[中･左腹距]", "自動"},
    {90, "[右横断差]\n(mm)", "[右横断差]", "自動"},
    {90, "[有効幅]\n(mm)", "[有効幅]"},
    {150, "[位置]\n(mm)", "[位置]"},
};

constexpr RawColumn k334[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "横桁始", "横桁始", "左|@beams", kText, "左(固定)"},
    {90, "横桁終", "横桁終", "右|@beams", kText, "右(固定)"},
    {90, "[U][L]FLG", "[U][L]FLG", "UFLG|LFLG|FLG"},
    {100, "左横断差\n(mm)", "左横断差", "自動|直角方向の値"},
    {100, "[右横断差]\n(mm)", "右横断差", "自動|直角方向の値"},
};

constexpr RawColumn k335[] = {
    {110, "自動計算\n主桁始", "", "@girders"},
    {110, "YES・NO\nI桁/左右腹板", "", kGirderWebs},
    {100, "床版左線名\n横桁始", "", "@beams"},
    {100, "床版右線名\n横桁終", "", "@beams"},
    {110, "箱桁ハンチ内側幅\n床版高\n(mm)", "",
     "自動|100|110|120|130|140|150|160|170|180|190|200|210|220|230|240|250|260|270|280|290|300|310|320|330|340|350|"
     "360|370|380|390|400"},
    {85, "---\nハンチ高h\n(mm)"},
    {85, "---\n左a\n(mm)"},
    {85, "---\n右a\n(mm)"},
    {85, "---\n左幅 b\n(mm)"},
    {85, "---\n右幅 b\n(mm)"},
    {85, "---\n変化位置\n(mm)"},
    {85, "---\n等価支間\n直線変化\n(mm)", "", "直線変化"},
    {100, "---\n勾配\n(%)"},
    {100, "出力用\n(左λ,箱桁片側)\n(左λ,箱桁片側)\n(mm)"},
    {100, "出力用\n(右λ,箱桁片側)\n(右λ,箱桁片側)\n(mm)"},
    {140, "出力用\n(総全幅,箱桁片側)\n(総全幅,箱桁片側)\n(mm)"},
    {140, "出力用\n(総有効幅,箱桁片側)\n(総有効幅,箱桁片側)\n(mm)"},
};

constexpr RawColumn k336[] = {
    {110, "自動計算\n主桁始", "", "@girders"},
    {110, "YES・NO\n主桁終", "", "@girders"},
    {100, "一般部鉄筋径\n始端・横桁", "", "始端|@beams"},
    {100, "支点部鉄筋径\n変化位置", "", "13|16|19|22"},
    {100, "一般部上間隔\n上配力筋径\n上鋼板厚", "", kBarSpacings},
    {100, "一般部下間隔\n下配力筋径\n上鋼板厚", "", kBarSpacings},
    {100, "支点部上間隔\n上側間隔\n-1", "", kBarSpacings},
    {100, "支点部下間隔\n下側間隔\n-1", "", kBarSpacings},
    {100, "主上かぶり\n配力上側かぶり\n鋼板上側かぶり", "", "40|45|50|55|60"},
    {100, "主下側かぶり\n配力下側かぶり\n鋼板下側かぶり", "", "40|45|50|55|60"},
    {100, "主鉄筋径\n上鉄筋本数\n-1", "", "13|16|19|22"},
    {100, "-\n下鉄筋本数\n-1"},
};

constexpr RawColumn k337[] = {
    {110, "自動計算\n主桁名", "", "@girders"},
    {110, "YES・NO\n横桁名", "", "@beams"},
    {100, "最大繰返し回数\nクリープ\n曲げM(kNm)", "", "", kNumber},
    {100, "M許容誤差%\nクリープ\nせん断(kN)", "", "", kNumber},
    {90, "M最小量\n乾燥収縮\n曲げM(kNm)", "", "", kNumber},
    {90, "S許容誤差%\n乾燥収縮\nせん断(kN)", "", "", kNumber},
    {90, "S最小量\n温度差正\n曲げM(kNm)", "", "", kNumber},
    {90, "---\n温度差正\nせん断(kN)", "", "", kNumber},
    {90, "---\n温度差負\n曲げM(kNm)", "", "", kNumber},
    {90, "---\n温度差負\nせん断(kN)", "", "", kNumber},
};

constexpr RawColumn k338[] = {
    {110, "自動計算\n主桁名", "", "@girders"},
    {110, "YES・NO\n断面名", "", "YES|NO|NO床版作用"},
    {120, "床版応力(1)\n左中右横桁\n(1=主桁支間部)", "", kSlabCheckPoints},
    {160, "上鉄筋応力(1)\n着目対象\n(2=主桁中間支点)", "",
     "床版上面(合成断面)|下側鉄筋(合成断面)|上側鉄筋(鋼桁鉄筋断面)|下側鉄筋(鋼桁鉄筋断面)"},
    {90, "下鉄筋応力(1)\n床版作用\n(kN/mm2)", "", "", kNumber},
    {90, "床版応力(2)\n主桁L荷重\n(kN/mm2)", "", "", kNumber, "床版応力(2)\n後死荷重\n(kN/mm2)"},
    {90, "上鉄筋応力(2)\n0.6主桁L荷重\n(kN/mm2)", "", "", kNumber, "上鉄筋応力(2)\n主桁L荷重\n(kN/mm2)"},
    {90, "下鉄筋応力(2)\n死荷重\n(kN/mm2)", "", "", kNumber, "下鉄筋応力(2)\nクリープ\n(kN/mm2)"},
    {90, "出力順番\nクリープ\n(kN/mm2)", "", "", kNumber, "出力順番\n乾燥収縮\n(kN/mm2)"},
    {90, "---\n乾燥収縮\n(kN/mm2)", "", "", kNumber, "---\n温度差\n(kN/mm2)"},
    {90, "---\n温度差\n(kN/mm2)", "", "", kNumber, "---\n(1)床版+主桁\n(kN/mm2)"},
    {90, "---\n(1)床版+主\n(kN/mm2)", "", "", kNumber, "---\n(2)許容値\n(kN/mm2)"},
    {90, "---\n(2)許容値\n(kN/mm2)", "", "", kNumber, "---\n(3)床+主+温\n(kN/mm2)"},
    {100, "---\n(3)床版+主+温\n(kN/mm2)", "", "", kNumber, "---\n(4)許容値\n(kN/mm2)"},
    {90, "---\n(4)許容値\n(kN/mm2)", "", "", kNumber, "---\n照査結果\n(1)<=(2)"},
    {90, "---\n照査結果\n(1)<=(2)", "", "", kNumber, "---\n照査結果\n(3)<=(4)"},
    {120, "---\n照査結果\n(3)<=(4)", "", "", kNumber, "---\n---\n---"},
};

constexpr RawColumn k339[] = {
    {110, "主桁名", "", "@girders"},
    {110, "断面名", "", "YES|NO"},
    {120, "左中右横桁", "", kSlabCheckPoints},
    {100, "上鉄筋径\n(mm)", "", "", kNumber},
    {90, "上側本数", "", "", kNumber},
    {90, "下鉄筋径\n(mm)", "", "", kNumber},
    {90, "下側本数", "", "", kNumber},
    {90, "床版断面積\n(cm^2)", "", "", kNumber},
    {100, "(引張・圧縮)\n(支点・支間)", "", "中間支点付近|支間部|引張|圧縮", kNumber},
    {90, "(1)鉄筋比\n(%)", "", "", kNumber},
    {90, "(2)最小鉄筋量\n(%)", "", "", kNumber},
    {90, "(3)周長率\n(mm/mm^2)", "", "", kNumber},
    {90, "(4)許容値\n(mm/mm^2)", "", "", kNumber},
    {90, "照査\n(1)>(2)", "", "", kNumber},
    {120, "照査\n(3)>(4)", "", "", kNumber},
};

constexpr RawColumn k340[] = {
    {110, "主桁名\n(JH)主桁名", "", "@girders"},
    {110, "断面名\n断面名", "", "YES|NO|NO幅ONLY"},
    {100, "左中右横桁\n左中右横桁", "", kSlabCheckPoints},
    {100, "鉄筋径\n鉄筋径\n(mm)", "", "", kNumber},
    {90, "鉄筋中心間隔\n鉄筋中心間隔\n(mm)", "", "", kNumber},
    {90, "純かぶり\n純かぶり\n(mm)", "", "", kNumber},
    {90, "σs/σse\nσs\n(N/mm^2)", "", "", kNumber},
    {90, "εcsd・1e-6\nεcsd・1e-6", "", "", kNumber},
    {120, "(1)ひび割れ幅\nfct(σck40:2.5)\n(mm or N/mm^2)", "", "", kNumber},
    {90, "(2)許容値\n鉄筋比\n(mm or 無)", "", "", kNumber},
    {90, "照査(1)>(2)\nαst", "", "", kNumber},
    {90, "---\nσse\n(N/mm^2)", "", "", kNumber},
    {90, "---\n(1)ひび割れ幅\n(mm)", "", "", kNumber},
    {90, "---\n(2)許容値\n(mm)", "", "", kNumber},
    {90, "---\n照査(1)>(2)"},
};

constexpr RawColumn k341[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "継手名始", "継手名始", "J", kText, "J(固定)"},
    {90, "継手名終", "継手名終", "J", kText, "J(固定)"},
    {120, "[U][L]FLG･I左右両", "U･LFLG･L･RWEB", kSplicedParts},
    {90, "呼び", "呼び", kNoneOrBolts},
    {90, "FLG本数\nWEB列数", "FLG本数WEB列数"},
    {165, "孔引き形式･千鳥\nWEB中間部割数", "孔引き形式･千鳥･WEB割数",
     "溶接|全孔引き|2孔引き|4孔引き|6孔引き|24孔引き|46孔引き|68孔引き|千鳥_外|千鳥_内|標準"},
};

constexpr RawColumn k342[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "継手名始", "継手名始", "J", kText, "J(固定)"},
    {90, "継手名終", "継手名終", "J", kText, "J(固定)"},
    {80, "I左右両\n[U][L]FLG\n[U][L]RIB", "U･LFLG･L･RWEB", kSplicedParts},
    {80, "外側添接\n板厚(mm)", "外添接板厚", "", kNumber},
    {80, "内側添接\n板厚(mm)", "内側厚", "", kNumber},
    {110, "[外側幅](mm)\n(手動RIB<0有効)\n入力必要なし", "[外側幅]", "", kNumber, "[外側幅]\n(mm)"},
    {100, "[内側幅](mm)\n(出力用)\n入力必要なし", "[内側幅]", "", kNumber, "[内側幅]\n(mm)"},
    {120, "[長さ](mm)\n(手動<0有効)\n入力必要なし", "[長さ]", "", kNumber, "[長さ]\n(mm)\n橋軸方向"},
};

constexpr RawColumn k343[] = {
    {110, "主桁始", "主桁始", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "主桁終", "G|@girders", kText, "G(固定)"},
    {90, "継手名始", "継手名始", "J", kText, "J(固定)"},
    {90, "継手名終", "継手名終", "J", kText, "J(固定)"},
    {80, "[U][L]FLG\n[U][L]RIB", "[U,L]FLG", "UFLG|LFLG|FLG|URIB|LRIB|RIB"},
    {80, "長方向\nLc(mm)", "Lc", "", kNumber},
    {80, "間隔LD\n(mm)", "間隔LD", "", kNumber},
    {80, "端部Le\n(mm)", "端Le", "", kNumber},
    {120, "鈑Bc(mm)\n箱Bc1L(n303の\n32行に注意)", "Bc･Bc1L", "", kNumber},
    {80, "幅縁Be\n(mm)", "幅縁Be", "", kNumber},
    {600, "(鈑桁BD)(mm)\n(箱桁Bd1,Bc1R,  Bd2,Bc2L,Bc2R, ・・・Bdn,BcnL,BcnR,   Bdn+1,BeR)",
     "(Bd1,Bc1R,Bd2,Bc2L,Bc2R,･･･Bdn,BcnL,BcnR,Bdn+1,BeR)"},
};

constexpr RawColumn k344[] = {
    {110, "主桁始", "", "G|@girders", kText, "G(固定)"},
    {90, "主桁終", "", "G|@girders", kText, "G(固定)"},
    {90, "継手名始", "", "J", kText, "J(固定)"},
    {90, "継手名終", "", "J", kText, "J(固定)"},
    {80, "I左右両", "", "LWEB|RWEB|WEB|I桁|左腹板|右腹板|両腹板"},
    {80, "DU1\n(mm)", "", "", kNumber},
    {80, "DU12\n(mm)", "", "", kNumber},
    {80, "DL12\n(mm)", "", "", kNumber},
    {80, "DL1\n(mm)", "", "", kNumber},
    {80, "DC\n(mm)", "", "", kNumber},
    {80, "DX\n(mm)", "", "", kNumber},
    {120, "中間部間隔(出力)\n(mm,手動時任意値)", "", "", kNumber},
    {80, "DU23\n(mm)", "", "", kNumber},
    {80, "DL23\n(mm)", "", "", kNumber},
    {120, "上分担幅BU01\n(%_mm)", "", kPercent, kText, "BU01\n(%_mm)"},
    {120, "下分担幅BL01\n(%_mm)", "", kPercent, kText, "BL01\n(%_mm)"},
};

constexpr RawColumn k351[] = {
    {90, "主桁始\n横桁始", "主桁始", "@girders|@beams"},
    {90, "主桁終\n横桁終", "主桁終", "@girders|@beams"},
    {90, "横桁始\n主桁始", "横桁始", "@beams|@girders"},
    {90, "横桁終\n主桁終", "横桁終", "@beams|@girders"},
    {80, "I左右両\n左右両", "I左右両", "I|I桁左側|I桁右側|I桁両側|左腹板|右腹板|両腹板|左側|右側|両側"},
    {150, "位置名OR番号", "位置名OR番号",
     "USER_|101:上フランジと横桁|111:仮設用吊金具|112:上フランジとスタッド|121:上フランジと主桁腹板|"
     "122:上フランジと垂直補剛材|123:上主桁腹板と垂直補剛材|124:上吊金具|131:上水平補剛材|132:上フランジ(横桁)|"
     "133:上横構のガセット|231:下水平補剛材|232:下フランジ(横桁)|233:下横構のガセット|221:下フランジと主桁腹板|"
     "222:下フランジと垂直補剛材|223:下主桁腹板と垂直補剛材|224:下吊金具|211:ソールプレート|201:下フランジと横桁|"
     "111:横桁UFLGと主桁WEB|121:横桁UFLGと横桁WEB|122:横桁UFLGと横桁VS|123:横桁WEB上と横桁VS|"
     "131:横桁上側水平補剛材|231:横桁下側水平補剛材|221:横桁LFLGと横桁WEB|222:横桁LFLGと横桁VS|"
     "223:横桁WEB下と横桁VS|211:横桁LFLGと主桁WEB"},
    {80, "等級", "等級", kFatigueClasses},
    {80, "距離Y\n(mm)", "距離Y(mm)"},
    {80, "仕上げ0", "仕上げ0", kFatigueClasses},
    {80, "等級1", "等級1", kFatigueClasses},
    {80, "等級2", "等級2", kFatigueClasses},
    {160, "等級3", "等級3", kFatigueClasses},
};

constexpr RawColumn k352[] = {
    {100, "主桁始", "主桁始", "@girders"},
    {100, "主桁終", "主桁終", "@girders"},
    {100, "横桁始", "横桁始", "@beams"},
    {100, "横桁終", "横桁終", "@beams"},
    {100, "I左右両", "I左右両", kPlainGirderOrSidesAndWebs},
    {100, "SZ_U\n(mm)", "SZ_U"},
    {100, "SZ_L\n(mm)", "SZ_L"},
};

constexpr RawColumn k353[] = {
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "I左右両", "I左右両", kPlainGirderOrSidesAndWebs},
    {80, "L_SWAY", "L_SWAY", "0|CENTER"},
    {80, "LZ_L\n(mm)", "LZ_L"},
    {80, "TG_L\n(mm)", "TG_L"},
    {80, "(LZ_U\n(mm)", "(LZ_U"},
    {120, "TG_U)\n(mm)", "TG_U)"},
};

constexpr RawColumn k354[] = {
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "I左右両", "I左右両", kPlainGirderOrSidesAndWebs},
    {80, "HZ_U\n(mm)", "HZ_U"},
    {80, "HZ_L\n(mm)", "HZ_L"},
};

constexpr RawColumn k359[] = {
    {110, "主桁", "主桁", "@girders"},
    {90, "横桁", "横桁", "@beams"},
    {60, "左右", "左右", "左|右"},
    {60, "Tc\n(mm)", "Tc", "", kNumber},
    {60, "Tf\n(mm)", "Tf", "", kNumber},
    {60, "Bc\n(mm)", "Bc", "", kNumber},
    {60, "Bf\n(mm)", "Bf", "", kNumber},
    {60, "Bw\n(mm)", "Bw", "", kNumber},
    {70, "σCase1\n(張出点)", "σ張Max", "", kNumber},
    {70, "σCase2\n(張出点)", "σ張Min", "", kNumber},
    {70, "τ\n(張出点)", "τ張", "", kNumber},
    {70, "σCase1\n(腹板点)", "σ腹Max", "", kNumber},
    {70, "σCase2\n(腹板点)", "σ腹Min", "", kNumber},
    {70, "τ\n(腹板点)", "τ腹", "", kNumber},
    {70, "σCase1\n(横桁)", "σ横Max", "", kNumber},
    {70, "σCase2\n(横桁)", "σ横Min", "", kNumber},
    {70, "照査結果\n(張出点)", "照査結果張出", "", kNumber},
    {70, "照査結果\n(腹板点)", "腹板", "", kNumber},
};

constexpr RawColumn k391[] = {
    {120, "主桁名", "主桁名", "@girders"},
    {100, "継手名", "横桁始", "YES|NO"},
    {100, "死+活最大", "最大"},
    {100, "死+活最小", "最小"},
    {100, "前死荷重", "前死"},
    {100, "後死荷重", "後死"},
};

constexpr RawColumn k402[] = {
    {110, "自動手動\n自動手動\n自動手動\n主桁始\n主桁始\n端横始", "", "@girders|@beams"},
    {140, "スタッドジベル\nスラブ止め_RB\nスラブ止め_FB\n主桁終\n主桁終\n端横終\n(材質修正可)", "",
     "@girders|@beams"},
    {90, "径d(例19)\nRB径d(例16)\nFB厚t(例6)\nI左右両\nI左右両\n横桁", "", "I桁|左腹板|右腹板|両腹板|横桁"},
    {100, "長さL例150\n長さL例600\n長さL例600\n継手名・終横桁\n継手名・終横桁\n主桁名", "", "@beams|@girders"},
    {120, "径D(例32)\nRB端寸法H(例50)\nFB幅B(例50)\n開始位置S\n開始位置S_mb\n開始位置S"},
    {80, "頭部厚t\n始位置標準\n始位置標準\nn1\nn1_m1\nn1"},
    {85, "FLG縁端距離\n標準間隔\n標準間隔\n間隔1\n間隔1\n間隔1\n(mm)"},
    {80, "D_SPL\nD_SPL\nD_SPL\nn2\nn2_m2\nn2"},
    {80, "W(ハンチ幅)\n(溶接長s)\n(溶接長s)\n間隔2\n間隔2\n間隔2\n(mm)"},
    {85, "-\n-\n(端寸法H)\nn3\nn3_m3\nn3)"},
    {85, "-\n-\n-\n間隔3\n間隔3\n間隔3\n(mm)"},
    {500, "-\n-\n-\nn4,間隔4,n5,間隔5,...\nn4_m4,間隔4,n5_m5,...me\nn4,間隔4,n5,間隔5,...me\n(mm)"},
};

constexpr RawColumn k403[] = {
    {110, "自動手動\n主桁始", "", "@girders"},
    {90, "孔径D\n主桁終", "", "@girders"},
    {90, "管サイズ\n横桁始", "", "@beams"},
    {90, "長さ\n横桁終", "", "@beams"},
    {90, "材質\nタイプ", "", "TYPE1|TYPE2"},
    {90, "板厚(mm)\nDL_SWAY"},
    {90, "板幅(mm)\nDR_SWAY"},
    {100, "材質\nLG1(mm)"},
    {80, "種別\nLG2(mm)"},
    {80, "---\nDX(mm)"},
    {80, "---\nDY(mm)"},
    {80, "---\n[DC1](mm)"},
    {80, "---\n[DC2](mm)"},
    {120, "---\n[DC3](mm)"},
};

constexpr RawColumn k404[] = {
    {110, "主桁始\nライン名始", "主桁始", "@girders"},
    {90, "主桁終\nライン名終", "主桁終", "@girders"},
    {90, "桁端寸法\n(始端)(mm)", "桁端寸法(始端)"},
    {90, "桁端寸法\n(終端)(mm)", "桁端寸法(終端)"},
    {90, "垂直補向き", "垂直補向き(正_負)", "正向き|負向き"},
    {90, "水平補向き", "水平補向き(同側_反側)", "同側|反側"},
    {90, "橋台端寸法\n(始端)(mm)", "橋台端寸法(始)"},
    {150, "橋台桁端寸法\n(終端)(mm)", "橋台桁端寸法(終)"},
};

constexpr RawColumn k405[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "セット方向\n特別入力有", "セット方向"},
    {80, "直角幅\n(mm)", "直角幅"},
    {80, "橋軸幅(mm)\n特別入力有", "橋軸幅"},
    {150, "厚さ\nt_t材料_材質\n(mm)", "厚さ",
     "?_?_SS400|?_?_SM400|?_?_SM490Y|?_?_SM570|?_?_SM400-H|?_?_SM490Y-H|?_?_SM570-H|?_?_SM490|?_?_SMA400W|"
     "?_?_SMA490W|?_?_SMA570W|?_?_SM490-H|?_?_SMA400W-H|?_?_SMA490W-H|?_?_SMA570W-H"},
    {80, "支承高\n(mm)", "支承高"},
    {80, "ﾎﾞｽ径\n(mm)", "ﾎﾞｽ径"},
    {80, "セットボルト\n孔径\n(mm)", "BOLT径"},
    {80, "セットボルト\n本数\n特別入力有", "本数"},
    {80, "セットボルト\n直角縁端\n(mm)", "セット直角縁端"},
    {80, "セットボルト\n橋軸縁端\n(mm)", "セット橋軸縁端"},
    {150, "高力ボルト\n径(mm)\n(<0:すみ肉溶接サイズ)", "高力ボルト径"},
    {80, "高力ボルト\n本数\n特別入力有", "高力本数"},
    {80, "高力ボルト\n直角縁端\n(mm)", "高力直角縁端"},
    {80, "高力ボルト\n橋軸縁端\n(mm)", "高力橋軸縁端"},
    {80, "(間隔1\n(mm)", "[間隔1]"},
    {80, "間隔2\n(mm)", "[間隔2]"},
    {80, "勾配", "[勾配]"},
    {90, "溶接)", "[溶接]", "YES|NO"},
    {200, "完全溶込み区間長\n(mm)(0=ソール橋軸幅,-1=なし)\n(主桁WEBとLFLG)", "[開先溶接区間長]"},
};

constexpr RawColumn k407[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {120, "材質", "材質", kMaterials},
    {90, "間隔左\n(mm)", "間隔左"},
    {90, "間隔右\n(mm)", "間隔右"},
    {90, "幅B\n(mm)", "幅B"},
    {90, "厚t\n(mm)", "厚t"},
    {90, "高H\n(mm)", "高H"},
    {90, "DB\n(mm)", "DB"},
    {90, "DH\n(mm)", "DH"},
    {90, "BASE幅\nBb(mm)", "BASE幅Bb"},
    {90, "厚tb\n(mm)", "厚tb"},
    {90, "高Hb\n(mm)", "高Hb"},
    {90, "tb(材料用)\n(mm)", "厚t材料"},
    {100, "半径R (or 0)\n(mm)", "半径R"},
    {120, "WEB溶接\n〃", "WEB溶接", kSizedWelds},
    {120, "LFLG溶接\n〃", "LFLG溶接", kSizedWelds},
    {150, "BASEすみ肉溶接\n〃", "BASEすみ肉溶接", "自動|6|7|8|9|10|11|12|13|14|15|16"},
    {150, "BASE材質\n〃", "BASE材質", kMaterials},
};

constexpr RawColumn k408[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {110, "タイプ", "タイプ", "B_H_B1_H1(具体数値)|TYPE_400_600|TYPE_460_660|TYPE_490_690"},
    {90, "位置", "位置", "L_WEB|R_WEB|U_FLG|L_FLG"},
    {90, "DX\n(mm)", "DX"},
    {90, "DY\n(mm)", "DY"},
    {90, "取手TYPE", "取手TYPE"},
    {90, "本数n", "本数n"},
    {300, "間隔(n個)\n(mm)", "間隔(n個)"},
};

constexpr RawColumn k409[] = {
    {110, "主桁始\nTYPE_H_A\nTYPE_H_B", "主桁始", "TYPE_H_A|TYPE_H_B"},
    {90, "主桁終\nBNボルト本数\nBNボルト本数", "主桁終", "YES|NO|YES_左|YES_右"},
    {90, "継手名始\nボルト孔径\nボルト孔径", "継手名始"},
    {90, "継手名終\nボルト径\nボルト径", "継手名始"},
    {90, "タイプ\nCover板厚\nCover板厚", "タイプ"},
    {80, "位置\nCover径\nCover長さ\n(mm)", "位置"},
    {80, "DX\n補強板外径\nCover幅\n(mm)", "DX"},
    {400,
     "DY\nボルト位置径,開口径,補強板内径,Cover材質,ボルト材質\n"
     "補強板外長,補強板外幅,開口長,開口幅,補強板内長,補強板内幅\nボルト位置H,ボルト位置V,Cover材質,ボルト材質\n(mm)",
     "DY"},
};

constexpr RawColumn k412[] = {
    {200, "出力しないライン名", "", "YES|NO"},
};

constexpr RawColumn k413[] = {
    {150, "橋台・桁端横断線名", "橋台・桁端横断線名"},
    {100, "ライン・主桁名", "ライン・主桁名", "@girders"},
    {100, "座標X", "座標X"},
    {100, "座標Y", "座標Y"},
    {100, "座標Z", "座標Z"},
};

constexpr RawColumn k422[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "始終両(桁端)", "", "始端|終端|両端"},
    {90, "I左右両", "", "I桁|右腹板|左腹板|両腹板"},
    {90, "HE(LF上縁)\n(mm)"},
    {90, "(H(高さ)\n(mm)"},
    {90, "B(幅)\n(mm)"},
    {90, "R\n(mm)"},
    {90, "(補強板幅\n(mm)"},
    {90, "厚\n(mm)"},
    {120, "材質))", "", kMaterials},
};

constexpr RawColumn k423[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "横リブ番号", "横リブ番号", "0|1|2|3|4|5|6|ALL0|ALL1"},
    {90, "[U][L]FLG", "[U][L]FLG", "FLG|UFLG|LFLG"},
    {90, "ﾀｲﾌﾟ", "ﾀｲﾌﾟ", "溶接無|スリット|左側溶接|右側溶接|両側溶接|Uリブ"},
    {90, "頭部R", "頭部R", "0|20|25|30|35"},
    {90, "下部R", "下部R", "15C|0"},
    {90, "切欠幅", "切欠幅", "0|1|40|41|42|43|44|45|46|47|49|50|51|52|53|54|55"},
    {120, "(DIS・頭部R押え)", "(DIS・頭部R押え)", "板厚中心|溶接面|反溶接面|0|1|2|3|4|5|6|7|8|9|10"},
};

constexpr RawColumn k481[] = {
    {120, "主桁始", "主桁始", "@girders"},
    {120, "主桁終", "主桁終", "@girders"},
    {120, " 継手名・終端", "継手名・終端", " 終端"},
};

constexpr RawColumn k482[] = {
    {120, "横桁始 ", "横桁始", "@beams"},
    {120, "横桁終", "横桁終", "@beams"},
    {120, "主桁名", "主桁名", "@girders"},
};

constexpr RawColumn k483[] = {
    {120, "SHEET番号", "SHEET番号"},
    {120, "主桁始", "主桁始", "@girders"},
    {120, "主桁終", "主桁終", "@girders"},
    {120, "横桁始", "横桁始", "@beams"},
    {120, "横桁終", "横桁終", "@beams"},
};

constexpr RawColumn k502[] = {
    {110, "主桁", "", "@girders"},
    {100, "左上腹板", "", "YES|NO"},
    {100, "右上腹板", "", "YES|NO"},
    {100, "(左下腹板", "", "YES|NO"},
    {100, "右下腹板)", "", "YES|NO"},
};

constexpr RawColumn k503[] = {
    {120, "主桁", "主桁", "@girders"},
    {120, "横桁始", "横桁始", "@beams"},
    {120, "横桁終", "横桁終", "@beams"},
};

constexpr RawColumn k504[] = {
    {110, "主桁･LINE", "", "@girders"},
    {100, "横桁(対傾構)", "", "@beams"},
    {100, "X座標\n(m)", "", "@beams"},
    {100, "Y座標\n(m)", "", "YES|NO"},
    {100, "Z座標\n(m)", "", "YES|NO"},
    {100, "(線形Z座標)\n(m)", "", "YES|NO"},
    {100, "(線形部材長)\n(m)", "", "YES|NO"},
};

constexpr RawColumn k505[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {100, "横桁終", "横桁終", "@beams"},
    {100, "横桁長\n(mm)", "横桁長(mm)", "YES|NO"},
    {100, "斜角\n(度)", "斜角(度)", "YES|NO"},
    {100, "(横桁間隔)\n(mm)", "横桁間隔(mm)", "YES|NO"},
};

constexpr RawColumn k506[] = {
    {110, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {70, "床版厚", "", "YES|NO"},
    {70, "舗装厚\n(mm)", "", "YES|NO"},
    {70, "ハンチ高\n(mm)", "", "YES|NO"},
    {70, "総幅\n(mm)", "", "YES|NO"},
    {70, "地覆高\n(mm)", "", "YES|NO"},
    {70, "高欄高\n(mm)", "", "YES|NO"},
    {70, "補正\n(mm)", "", "YES|NO"},
    {100, "(端部張出)\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k507[] = {
    {110, "鈑桁横桁\n箱桁横桁", "", "@beams"},
    {100, "主桁\n主桁", "", "@girders"},
    {100, "曲げL最大\nL曲げ最大時ML\n(kN･m)", "", "YES|NO"},
    {100, "曲げR最大\nL曲げ最大時MR\n(kN･m)", "", "YES|NO"},
    {90, "せん断L\nせん断最大L\n(kN)", "", "YES|NO"},
    {90, "せん断R\nせん断最大R\n(kN)", "", "YES|NO"},
    {100, "曲げL最小\nR曲げ最大時ML\n(kN･m)", "", "YES|NO"},
    {120, "曲げR最小\nR曲げ最大時MR\n(kN･m)", "", "YES|NO"},
};

constexpr RawColumn k511[] = {
    {200, "主桁始", "主桁始", "YES|NO"},
    {100, "主桁終", "主桁終", "YES|NO"},
    {100, "横桁始", "横桁始", "YES|NO"},
    {100, "横桁終", "横桁終", "YES|NO"},
    {100, "主桁高\n(mm)", "主桁高(mm)", "YES|NO"},
};

constexpr RawColumn k512[] = {
    {110, "主桁始\n主桁始", "", "@girders"},
    {90, "主桁終\n主桁終", "", "@girders"},
    {90, "横桁始\n横桁始", "", "@beams"},
    {90, "横桁終\n横桁終", "", "@beams"},
    {70, "TU\nTU(mm)", "", "YES|NO"},
    {70, "TL\nTL(mm)", "", "YES|NO"},
    {70, "TW\nTWL(mm)", "", "YES|NO"},
    {70, "BU\nTWR(mm)", "", "YES|NO"},
    {70, "BL\nXU1(mm)", "", "YES|NO"},
    {70, "-\nXU2(mm)", "", "YES|NO"},
    {70, "-\nXL1(mm)", "", "YES|NO"},
    {70, "-\nXL2(mm)", "", "YES|NO"},
    {70, "-\nBU1(mm)", "", "YES|NO"},
    {70, "-\nBU2(mm)", "", "YES|NO"},
    {70, "-\nBL1(mm)", "", "YES|NO"},
    {70, "-\nBL2(mm)", "", "YES|NO"},
    {70, "-\nHWL(mm)", "", "YES|NO"},
    {70, "-\nHWR(mm)", "", "YES|NO"},
    {70, "-\nZL(mm)", "", "YES|NO"},
};

constexpr RawColumn k513[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "I左右両", "", kGirderOrSidesAndWebs},
    {60, "幅1\n(mm)", "", "YES|NO"},
    {60, "厚1\n(mm)", "", "YES|NO"},
    {60, "本数n", "", "YES|NO"},
    {350, "間隔(n個,m)  [幅2,厚2,......幅n,厚n(mm)]\n等間隔         [幅2,厚2,......幅n,厚n(mm)]", "", "等間隔"},
};

constexpr RawColumn k514[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁始", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "左右両", "左右両", kGirderOrSidesAndWebs},
    {80, "幅\n(mm)", "幅", kSupportStiffenerSwitch},
    {80, "厚\n(mm)", "厚", kSupportStiffenerSwitch},
    {110, "材質", "材質", kMaterials},
    {110, "WEB溶接", "WEB溶接", kContactOrSizedWelds},
    {110, "LFLG溶接", "LFLG溶接", kContactOrSizedWelds},
    {80, "(列数", "(列数", kSupportStiffenerSwitch},
    {80, "間隔)\n(mm)", "間隔)", kSupportStiffenerSwitch},
    {100, "(取付タイプ)", "(取付ﾀｲﾌﾟ)", "補助|直角|平行"},
    {80, "(B1\n(mm)", "(B1", kSupportStiffenerSwitch},
    {80, "B2\n(mm)", "B2", kSupportStiffenerSwitch},
    {80, "W\n(mm)", "W", kSupportStiffenerSwitch},
    {120, "D)\n(mm)", "D)", kSupportStiffenerSwitch},
};

constexpr RawColumn k515[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "左右両", "", kGirderOrSidesAndWebs},
    {70, "L上段数", "", "0|1|2"},
    {70, "L下段数", "", "0|1|2"},
    {70, "BL\n(mm)", "", "YES|NO"},
    {70, "TL\n(mm)", "", "YES|NO"},
    {70, "R上段数", "", "0|1|2"},
    {70, "R下段数", "", "0|1|2"},
    {70, "BR\n(mm)", "", "YES|NO"},
    {70, "TR\n(mm)", "", "YES|NO"},
    {70, "L上H1\n無=-1", "", "YES|NO"},
    {70, "L下H1\n無=-1", "", "YES|NO"},
    {70, "R上H1\n無=-1", "", "YES|NO"},
    {70, "R下H1\n無=-1", "", "YES|NO"},
    {70, "L上H2\n無=-1", "", "YES|NO"},
    {70, "L下H2\n無=-1", "", "YES|NO"},
    {70, "R上H2\n無=-1", "", "YES|NO"},
    {120, "R下H2\n無=-1", "", "YES|NO"},
};

constexpr RawColumn k516[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {100, "主桁終", "主桁終", "@girders"},
    {100, "桁端寸法\n(mm)(始端)", "桁端寸法(始端)", "YES|NO"},
    {100, "桁端寸法\n(mm)(終端)", "桁端寸法(終端)", "YES|NO"},
};

constexpr RawColumn k517[] = {
    {110, "主桁", "主桁", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "DX\n(mm)", "DX", "YES|NO"},
    {80, "DY\n(mm)", "DY", "YES|NO"},
    {80, "B\n(mm)", "B", "YES|NO"},
    {80, "H\n(mm)", "H", "YES|NO"},
    {110, "NAME1\n(任意)", "NAME1", "YES|NO"},
    {120, "形状タイプ1\n(help参照)", "形状タイプ1", "YES|NO"},
    {110, "NAME2\n(任意)", "NAME2", "YES|NO"},
    {120, "形状タイプ2\n(help参照)", "形状タイプ2", "YES|NO"},
};

constexpr RawColumn k523[] = {
    {110, "横桁始", "横桁始", "YES|NO"},
    {100, "横桁終", "横桁終", "YES|NO"},
    {100, "主桁始", "主桁始", "@girders"},
    {100, "主桁終", "主桁終", "@girders"},
    {150, "種別", "種別", kCrossBeamTypesOrNone},
};

constexpr RawColumn k524[] = {
    {200, "グループ名", "グループ名", kCrossBeamTypes},
    {100, "横桁始", "横桁始", "@beams"},
    {100, "横桁終", "横桁終", "@beams"},
};

constexpr RawColumn k532[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {100, "左右両", "左右両", kMemberSides},
    {150, "SZ_U･H_SWAY･DIS_ZU\n(mm)", "SZ_U･H_SWAY･DIS_ZU", "UU|LL|UL"},
    {110, "SZ_L･H_SWAY\n(mm)", "SZ_L･H_SWAY", "YES|NO"},
};

constexpr RawColumn k533[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {65, "UFLG幅\n(mm)", "UFLG幅", "YES|NO"},
    {65, "UFLG厚\n(mm)", "UFLG厚", "YES|NO"},
    {65, "LFLG幅\n(mm)", "LFLG幅", "YES|NO"},
    {65, "LFLG厚\n(mm)", "LFLG厚", "YES|NO"},
    {65, "WEB厚\n(mm)", "WEB厚", "YES|NO"},
    {100, "UFLG材質", "UFLG材質", kMaterials},
    {100, "LFLG材質", "LFLG材質", kMaterials},
    {100, "WEB材質", "WEB材質", kMaterials},
    {100, "H形鋼", "H形鋼", "H形鋼"},
};

constexpr RawColumn k534[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {60, "列数", "列数", "YES|NO"},
    {60, "始終両", "始終両", "始側|終側|両側"},
    {60, "幅\n(mm)", "幅", "YES|NO"},
    {60, "厚\n(mm)", "厚", "YES|NO"},
    {160, "ﾋﾟｯﾁ\n(mm)(列数分)", "ﾋﾟｯﾁ(列数分)", "等分割"},
    {110, "材質", "材質", kMaterials},
};

constexpr RawColumn k535[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {70, "上段数", "上段数", "YES|NO"},
    {70, "下段数", "下段数", "YES|NO"},
    {80, "始終両", "始終両", "始側|終側|両側"},
    {70, "幅\n(mm)", "幅", "YES|NO"},
    {70, "厚\n(mm)", "厚", "YES|NO"},
    {100, "材質", "材質", kMaterials},
    {200, "上1段位置", "上1段位置", "YES|NO"},
    {200, "下1段位置", "下1段", "YES|NO"},
    {200, "上2段位置", "上2段位置", "YES|NO"},
    {200, "下2段位置", "下2段", "YES|NO"},
};

constexpr RawColumn k542[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {90, "SZ_U･DIS_ZU\n(mm)", "SZ_U･DIS_ZU", "UU|LL|UL"},
    {60, "SZ_L\n(mm)", "SZ_L", "YES|NO"},
    {60, "ZU_TYPE", "ZU_TYPE", "WEB|BOLT"},
    {60, "ZL_TYPE", "ZL_TYPE", "WEB|BOLT"},
    {70, "SY\nB,G(mm)", "SY", "B|G"},
    {60, "SZ\n(mm)", "SZ", "YES|NO"},
    {120, "斜材交点\n基準", "斜材交点基準", "WEB中心|ボルト中心"},
};

constexpr RawColumn k543[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {70, "部材位置", "上下斜", kSwayMembers},
    {70, "種別", "種別", "山形|CT形|溝形|PL山|PLCT|PL溝"},
    {100, "材質", "材質", kMaterials},
    {60, "H\n(mm)", "H", "YES|NO"},
    {60, "B\n(mm)", "B", "YES|NO"},
    {60, "T1\n(mm)", "T1", "YES|NO"},
    {60, "T2\n(mm)", "T2", "YES|NO"},
    {60, "V\n(mm)", "V", "YES|NO"},
    {80, "すみ肉溶接\nサイズ(mm)", "すみ肉溶接ｻｲｽﾞ", "YES|NO"},
    {120, "(CT斜材取付)", "(CT斜材取付)", "H|B"},
};

constexpr RawColumn k551[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {180, "連結形式", "連結形式",
     "仕口|せん断|上下曲げ(1面摩擦)|上下曲げ(2面摩擦)|上下曲げ(上1下2面摩擦)|上下曲げ(上2下1面摩擦)|"
     "上曲げ(1面摩擦)|上曲げ(2面摩擦)|下曲げ(1面摩擦)|下曲げ(2面摩擦)|上下曲げ(2面摩擦_外側分割)|"
     "上下曲げ(上1下2面摩擦_下外側分割)|上下曲げ(上2下1面摩擦_上外側分割)|上曲げ(2面摩擦_上外側分割)|"
     "下曲げ(2面摩擦_下外側分割)"},
    {80, "入込方向", "(入込方向", "終|始|始始|終終|終始|始終"},
    {80, "UFLG縁向き", "UFLG縁向き", "直角|平行|自動"},
    {80, "LFLG縁向き", "LFLG縁向き)", "直角|平行|自動"},
};

constexpr RawColumn k552[] = {
    {110, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {80, "左右両", "", kMemberSides},
    {80, "上下", "", "上|下|上下"},
    {80, "W番号\n(C番号)", "", kFlangeConnections},
    {110, "(材質)", "", kMaterials},
    {80, "(向き", "", "直角|平行"},
    {90, "コネクション幅\n(mm)", "", "YES|NO"},
    {80, "厚\n(mm)", "", "YES|NO"},
    {120, "入込)", "", "外|内"},
};

constexpr RawColumn k553[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {80, "上下", "上下", "上|下|上下"},
    {80, "B\n(mm)", "B", "YES|NO"},
    {80, "T\n(mm)", "T", "YES|NO"},
    {80, "R_CENTER", "(R_CENTER", "補剛材|WEB|接合面"},
    {80, "BR\n(mm)", "BR", "YES|NO"},
    {80, "R\n(mm)", "R", "YES|NO"},
    {80, "DIS\n(mm)", "DIS", "YES|NO"},
    {120, "B2\n(mm)", "B2)", "YES|NO"},
};

constexpr RawColumn k554[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {80, "上下", "上下", "上|下|上下"},
    {90, "呼び(等級)", "呼び(等級)", kBolts},
    {80, "孔引き形式", "孔引き形式", "全孔引き|千鳥_外|千鳥_内"},
    {80, "FLG本数\n(全)", "FLG本数", "YES|NO"},
    {80, "FLG行数\n(片側)", "FLG行数", "YES|NO"},
    {80, "(コネクション\n行数", "(ｺﾈｸｼｮﾝ行数", "YES|NO"},
    {120, "列数)", "列数)", "YES|NO"},
};

constexpr RawColumn k555[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {90, "上下", "上下", "上|下|上下"},
    {80, "Lfc\n(mm)", "Lfc", "YES|NO|NO_Lfe"},
    {80, "Lfd\n(mm)", "Lfd", "YES|NO|NO_Lfe"},
    {80, "LfeL\n(mm)", "LfeL", "YES|NO|NO_Lfe"},
    {80, "LfeR\n(mm)", "LfeR", "YES|NO|NO_Lfe"},
    {80, "Bfc\n(mm)", "Bf", "YES|NO|NO_Lfe"},
    {80, "Bfe\n(mm)", "Bfe", "YES|NO|NO_Lfe"},
    {80, "(Lgc\n(mm)", "(Lgc", "YES|NO|NO_Lfe"},
    {80, "Lgd\n(mm)", "Lgd", "YES|NO|NO_Lfe"},
    {80, "Lge\n(mm)", "Lge", "YES|NO|NO_Lfe"},
    {80, "Bgd\n(mm)", "Bgd", "YES|NO|NO_Lfe"},
    {120, "Bge)\n(mm)", "Bge)", "YES|NO|NO_Lfe"},
};

constexpr RawColumn k556[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {90, "呼び(等級)", "呼び(等級)", kBolts},
    {60, "列数", "列数", "YES|NO"},
    {60, "割数", "割数", "YES|NO"},
    {60, "Ld\n(mm)", "Ld", "YES|NO"},
    {60, "Le\n(mm)", "Le", "YES|NO"},
    {60, "DU\n(mm)", "DU", "YES|NO"},
    {60, "DL\n(mm)", "DL", "YES|NO"},
    {300, "ピッチ(割数分)\n(mm)", "ピッチ(割数分)", "YES|NO"},
};

constexpr RawColumn k557[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {80, "[U･L]FLG\nWEB", "[U･L]FLG･WEB", kFlangesOrWeb},
    {60, "T1\n(mm)", "T1", "YES|NO"},
    {60, "T2\n(mm)", "T2", "YES|NO"},
    {60, "B1\n(mm)", "B1", "YES|NO"},
    {60, "B2\n(mm)", "B2", "YES|NO"},
    {60, "L\n(mm)", "L", "YES|NO"},
    {60, "(GB1\n(mm)", "(GB1", "YES|NO"},
    {60, "GB2\n(mm)", "GB2", "YES|NO"},
    {60, "GL)\n(mm)", "GL)", "YES|NO"},
};

constexpr RawColumn k558[] = {
    {110, "横桁始\n横桁始", "", "@beams"},
    {80, "横桁終\n横桁終", "", "@beams"},
    {80, "主桁始\n主桁始", "", "@girders"},
    {80, "主桁終\n主桁終", "", "@girders"},
    {80, "左右両\n左右両", "", kMemberSides},
    {70, "[U･L]FLG\nWEB", "", kFlangesOrWeb},
    {90, "呼び(等級)\n呼び(等級)", "", kBolts},
    {100, "FLG片側本数\nWEB全列数", "", "YES|NO"},
    {100, "孔引き形式\nWEB中間部割数", "", kHolePatterns},
    {100, "(GFLG本数\n", "", "YES|NO"},
    {100, "G孔引)\n ", "", kHolePatterns},
};

constexpr RawColumn k559[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "[U･L]FLG", "[U･L]FLG", "FLG|UFLG|LFLG"},
    {70, "Lc\n(mm)", "Lc", "YES|NO"},
    {70, "Ld\n(mm)", "Ld", "YES|NO"},
    {70, "Le\n(mm)", "Le", "YES|NO"},
    {70, "Bc\n(mm)", "Bc", "YES|NO"},
    {70, "Be\n(mm)", "Be", "YES|NO"},
    {70, "(GLc\n(mm)", "(GLc", "YES|NO"},
    {70, "GLd\n(mm)", "GLd", "YES|NO"},
    {70, "GLe\n(mm)", "GLe", "YES|NO"},
    {70, "GBc\n(mm)", "GBc", "YES|NO"},
    {70, "GBe)\n(mm)", "GBe)", "YES|NO"},
};

constexpr RawColumn k560[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "DU1\n(mm)", "DU1", "FLG|UFLG|LFLG"},
    {70, "DU12\n(mm)", "DU12", "YES|NO"},
    {70, "DL12\n(mm)", "DL12", "YES|NO"},
    {70, "DL1\n(mm)", "DL1", "YES|NO"},
    {70, "DC\n(mm)", "DC", "YES|NO"},
    {70, "DX\n(mm)", "DX", "YES|NO"},
    {130, "継手位置桁高(出力)\n(mm,手動時任意値)", "(H)", "YES|NO"},
    {70, "DU23\n(mm)", "DU23", "YES|NO"},
    {70, "DL23\n(mm)", "DL23", "YES|NO"},
    {120, "上分担幅BU01\n(%_mm)", "BU01", kPercent},
    {120, "下分担幅BL01\n(%_mm)", "BL01", kPercent},
};

constexpr RawColumn k561[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "BU1\n(mm)", "BU1", "FLG|UFLG|LFLG"},
    {70, "BU2\n(mm)", "BU2", "YES|NO"},
    {70, "L\n(mm)", "L", "YES|NO"},
    {70, "LU\n(mm)", "LU", "YES|NO"},
    {70, "Dis\n(mm)", "Dis", "YES|NO"},
    {70, "RU1\n(mm)", "RU1", "YES|NO"},
    {70, "RU2\n(mm)", "RU2", "YES|NO"},
    {70, "DU1\n(mm)", "DU1", "YES|NO"},
    {70, "DU2\n(mm)", "DU2", "YES|NO"},
    {70, "BL1\n(mm)", "(BL1", "YES|NO"},
    {70, "BL2\n(mm)", "BL2", "YES|NO"},
    {70, "RL1\n(mm)", "RL1", "YES|NO"},
    {70, "RL2\n(mm)", "RL2", "YES|NO"},
    {70, "DL1\n(mm)", "DL1", "YES|NO"},
    {120, "DL2\n(mm)", "DL2)", "YES|NO"},
};

constexpr RawColumn k562[] = {
    {110, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {80, "主桁始", "", "@girders"},
    {80, "主桁終", "", "@girders"},
    {80, "左右両", "", kMemberSides},
    {70, "上_下", "", "上|下|上下"},
    {70, "T\n(mm)", "", kBolts},
    {70, "W\n(mm)", "", "YES|NO"},
    {70, "(d1\n(mm)", "", kUprightOrCount},
    {70, "d2\n(mm)", "", "鉛直|直角"},
    {70, "d3\n(mm)", "", "鉛直|直角"},
    {70, "d4\n(mm)", "", "YES|NO"},
    {70, "d5\n(mm)", "", "YES|NO"},
    {70, "(TYPE1\n(1～6)", "", "YES|NO"},
    {70, "TYPE2\n(1,2)", "", "YES|NO"},
    {70, "TYPE3\n(1,2)", "", "YES|NO"},
    {70, "d6(mm)\n斜材始", "", "YES|NO"},
    {120, "d7(mm))\n斜材長", "", "YES|NO"},
};

constexpr RawColumn k563[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "上下", "上下", "上|下|上下"},
    {100, "呼び(等級)", "呼び(等級)", kBolts},
    {50, "列数", "列数", "YES|NO"},
    {50, "割数", "割数", kUprightOrCount},
    {50, "Ld\n(mm)", "Ld", "鉛直|直角"},
    {50, "Le\n(mm)", "Le", "鉛直|直角"},
    {50, "D\n(mm)", "D", "YES|NO"},
    {200, "ピッチ(割数分)\n(mm)", "ﾋﾟｯﾁ(割数分)", "YES|NO"},
};

constexpr RawColumn k564[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "主桁始", "主桁始", "@girders"},
    {80, "主桁終", "主桁終", "@girders"},
    {80, "T\n(mm)", "T", kMemberSides},
    {70, "BL\n(mm)", "BL", "上|下|上下"},
    {70, "BR\n(mm)", "BR", kBolts},
    {70, "H_Dis\n(mm)", "H_Dis", "YES|NO"},
    {70, "鉛直縁方向", "鉛直縁方向", kUprightOrCount},
    {70, "L_Dis\n(mm)", "L_Dis", "内縁|外縁"},
    {70, "R_Dis\n(mm)", "R_Dis", "内縁|外縁"},
    {120, "切断", "切断", "YES|NO"},
};

constexpr RawColumn k565[] = {
    {110, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {80, "主桁始", "", "@girders"},
    {80, "主桁終", "", "@girders"},
    {80, "左右両", "", kMemberSides},
    {70, "上下", "", "上|下|上下"},
    {70, "Br\n(mm)", "", kBolts},
    {70, "R\n(mm)", "", "YES|NO"},
    {70, "Dis\n(mm)", "", kUprightOrCount},
    {70, "Dc(mm)\n傾斜(Y_N)", "", "YES|NO"},
    {70, "Df\n(mm)", "", "YES|NO"},
    {70, "DR\n(mm)", "", "YES|NO"},
    {70, "Dh\n(mm)", "", "YES|NO"},
    {120, "Dv\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k566[] = {
    {110, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {80, "主桁始", "", "@girders"},
    {80, "主桁終", "", "@girders"},
    {80, "上斜下", "", kSwayMembers},
    {70, "HL\n(mm)", "", "上|下|上下"},
    {70, "HR\n(mm)", "", kBolts},
    {70, "(VL\n(mm)", "", "YES|NO"},
    {70, "VR)\n(mm)", "", kUprightOrCount},
    {120, "(端部加工)", "", "鉛直|直角"},
};

constexpr RawColumn k572[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "種別", "種別", "山形|CT形|PL山|PLCT"},
    {100, "材質", "材質", kMaterials},
    {80, "H\n(mm)", "H", "YES|NO"},
    {80, "B\n(mm)", "B", "YES|NO"},
    {80, "T1\n(mm)", "T1", "YES|NO"},
    {80, "T2\n(mm)", "T2", "YES|NO"},
    {120, "(AXIAL)\n(mm)", "(AXIAL)", "YES|NO"},
};

constexpr RawColumn k573[] = {
    {110, "主桁始", "", "@girders"},
    {100, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "始位置", "", "B|C|E"},
    {80, "終位置", "", "B|C|E"},
    {80, "(DL\n(mm)", "", "YES|NO|NOPOSITION"},
    {80, "DR)\n(mm)", "", "YES|NO|NOPOSITION"},
};

constexpr RawColumn k574[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {100, "主桁終", "主桁終", "@girders"},
    {100, "横桁始", "横桁始", "@beams"},
    {100, "横桁終", "横桁終", "@beams"},
    {150, "位置タイプ\n(番号・距離(mm))", "位置タイプ(C・VS番号・距離(mm))", "C|1|2|3|4|5|6|7|8|9"},
};

constexpr RawColumn k575[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "ボルト\n\n溶接", "", "ボルト|溶接"},
    {80, "位置\n(0-10)\n位置", "", "0|1|2|3|4|5|6|7|8|9"},
    {90, "呼び(等級)\n\n溶接長L", "", kBolts},
    {80, "孔引き形式\n\n溶接長R", "", "全孔引き|千鳥_外|千鳥_内"},
    {110, "行数\n\nすみ肉溶接ｻｲｽﾞ", "", "YES|NO"},
    {60, "Lb\n(mm)\n---", "", "YES|NO"},
    {60, "Ld\n(mm)\n---", "", "YES|NO"},
    {60, "LeL\n(mm)\n---", "", "YES|NO"},
    {60, "LeR\n(mm)\n---", "", "YES|NO"},
    {60, "列数\n\n---", "", "YES|NO"},
    {60, "Be\n(mm)\n---", "", "YES|NO"},
    {120, "Bd\n(mm)\n---", "", "YES|NO"},
};

constexpr RawColumn k576[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "切断1_2\n直結1_2", "", "切断1|直結1|切断2|直結2"},
    {90, "ガセットタイプ\n---", "", "TYPE1|TYPE2"},
    {100, "ガセット幅(mm)\n---", "", "YES|NO"},
    {100, "ガセット厚(mm)\n---", "", "YES|NO"},
    {90, "ボルト/溶接\n---", "", "ボルト|溶接"},
    {80, "(列数\n---", "", "YES|NO"},
    {120, "縁端)(mm)\n---", "", "YES|NO"},
};

constexpr RawColumn k577[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "格点_中間_両", "格点_中間_両", "格点|中間|両"},
    {90, "左右両", "左右両", kGirderSidesAndWebs},
    {90, "連結タイプ", "連結タイプ", "W1|C1|C2|C3|C4|溶接分割|C分割|2pt溶接"},
    {100, "(材質)", "材質", kMaterials},
    {70, "(Off1\n(mm)", "Off1", "YES|NO"},
    {70, "Off2)\n(mm)", "Off2", "YES|NO"},
    {120, "(入込)", "(入込)", "上|下"},
};

constexpr RawColumn k578[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "格点_中間_両", "格点_中間_両", "格点|中間|両"},
    {80, "左右両", "左右両", kGirderSidesAndWebs},
    {80, "外枠タイプ", "外枠タイプ", "部材縁|接線1|接線2"},
    {90, "BL\n(mm)", "BL", "直角"},
    {90, "BR\n(mm)", "BR", "直角"},
    {70, "T\n(mm)", "T", "YES|NO"},
    {70, "H\n(mm)", "H", "YES|NO"},
    {70, "(立上L\n(mm)", "(立上L", "YES|NO"},
    {120, "立上R)\n(mm)", "立上R)", "YES|NO"},
};

constexpr RawColumn k579[] = {
    {110, "〃\n主桁始\n〃", "", "@girders"},
    {90, "〃\n主桁終\n〃", "", "@girders"},
    {90, "〃\n横桁始\n〃", "", "@beams"},
    {90, "〃\n横桁終\n〃", "", "@beams"},
    {90, " \n格点_中間_両", "", "格点|中間|両"},
    {90, " \n左右両", "", kGirderSidesAndWebs},
    {100, "溶接無\n左(右)側溶接\n両側溶接", "", "溶接無|左側溶接|右側溶接|両側溶接"},
    {70, "R1\nR1\nR1\n(mm)", "", "YES|NO"},
    {70, "BR\nR2\nR2\n(mm)", "", "YES|NO"},
    {70, "Dis\nBR\n \n(mm)", "", "YES|NO"},
    {120, " \n頭部R押え", "", "中心|端"},
};

constexpr RawColumn k581[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "格点_中間_両", "格点_中間_両", "格点|中間|両"},
    {80, "左右両", "左右両", kGirderSidesAndWebs},
    {80, "外縁向き", "外縁向き", "平行|直角"},
    {110, "内縁タイプ", "内縁タイプ", "なし|スカーラップ|溶接|切断有|切断無|R"},
    {70, "L\n(mm)", "L", "YES|NO"},
    {70, "T\n(mm)", "T", "YES|NO"},
    {120, "(R)\n(mm)", "(R)", "YES|NO"},
};

constexpr RawColumn k582[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "格点_中間_両", "格点_中間_両", "格点|中間|両"},
    {80, "左右両", "左右両", kGirderSidesAndWebs},
    {90, "呼び(等級)", "呼び(等級)", kBolts},
    {70, "行数", "行数", "YES|NO"},
    {70, "Le\n(mm)", "Le", "YES|NO"},
    {70, "Ld\n(mm)", "Ld", "YES|NO"},
    {70, "Lc\n(mm)", "Lc", "YES|NO"},
    {70, "列数1", "列数1", "YES|NO"},
    {70, "Be1\n(mm)", "Be1", "YES|NO"},
    {70, "Bd1\n(mm)", "Bd1", "YES|NO"},
    {70, "(列数2", "(列数2", "YES|NO"},
    {70, "Be2\n(mm)", "Be2", "YES|NO"},
    {120, "Bd2)\n(mm)", "Bd2)", "YES|NO"},
};

constexpr RawColumn k583[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "左右両", "", kGirderSidesAndWebs},
    {80, "始終両", "", "始側|終側|両側"},
    {100, "押え位置\nTYPE or (mm)", "", "平行|直角"},
    {80, "L\n(mm)\nR", "", "YES|NO"},
    {80, "T\n(mm)\n---", "", "YES|NO"},
    {100, "呼び(等級)\n\n---", "", kBolts},
    {70, "行数\n\n---", "", "YES|NO"},
    {70, "Le\n(mm)\n---", "", "YES|NO"},
    {70, "Ld\n(mm)\n---", "", "YES|NO"},
    {70, "Lc\n(mm)\n---", "", "YES|NO"},
    {70, "列数\n\n---", "", "YES|NO"},
    {70, "Be\n(mm)\n---", "", "YES|NO"},
    {120, "Bd\n(mm)\n---", "", "YES|NO"},
};

constexpr RawColumn k602[] = {
    {110, "横桁始", "", "@beams"},
    {100, "横桁終", "", "@beams"},
    {100, "垂補間"},
    {100, " 横WEB"},
    {100, "横FLG"},
};

constexpr RawColumn k603[] = {
    {110, "横桁\n主桁", "", "@girders"},
    {90, "支点ｺﾝｸﾘｰﾄ\nWEB\n(mm)"},
    {90, "床版\nU_FLG\n(mm)"},
    {90, "L_FLG\n支点\n(mm)"},
    {80, "-\nV_STIFF\n(mm)"},
    {80, "-\nH_STIFF\n(mm)"},
    {100, "-\n下横構ガセット\n(mm)"},
    {100, "-\n下横構部材\n(mm)"},
};

constexpr RawColumn k604[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "部材名", "断面名"},
    {90, "部材長\n(mm)", "断面長"},
    {80, "WEB厚\n(mm)", "WEB厚"},
    {80, "UFLG幅\n(mm)", "UFLG幅"},
    {80, "UFLG厚\n(mm)", "UFLG厚"},
    {80, "LFLG幅\n(mm)", "LFLG幅"},
    {80, "LFLG厚\n(mm)", "LFLG厚"},
};

constexpr RawColumn k605[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "分割数", "分割数"},
    {80, "一般部幅\n(mm)", "一般部幅"},
    {80, "板厚\n(mm)", "板厚"},
    {80, "格点上幅\n(mm)", "格点上幅"},
    {80, "板厚\n(mm)", "板厚"},
    {250, "距離(分割数分)\n(mm)", "間隔(分割数分)"},
};

constexpr RawColumn k606[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "上幅\n(mm)"},
    {80, "上板厚\n(mm)"},
    {80, "下幅\n(mm)"},
    {80, "下板厚\n(mm)"},
    {80, "分割数n"},
    {300, "上本数n個   下本数n個"},
};

constexpr RawColumn k607[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "桁形式", "桁形式", "I|BOX"},
    {90, "左幅\n(mm)", "左幅"},
    {80, "右幅\n(mm)", "右幅"},
    {100, "(横桁UFLG-床版", "(横桁UFLG-床版", "0|-1"},
    {100, "横桁UFLG-LFLG", "横桁UFLG-LFLG", "0|-1"},
    {100, "横桁LFLG-主桁LFLG)", "横桁LFLG-主桁LFLG)", "0|-1"},
};

constexpr RawColumn k608[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "V板幅\n(mm)", "V板幅"},
    {80, "V板厚\n(mm)", "V板厚"},
};

constexpr RawColumn k609[] = {
    {110, "支点", "支点", "@beams"},
    {100, "セット方向", "セット方向", "@beams"},
    {100, "セット方向バネ\n(kN/mm)", "セット方向バネ"},
    {100, "直角バネ\n(kN/mm)", "直角バネ"},
    {100, "鉛直バネ\n(kN/mm)", "鉛直バネ"},
};

constexpr RawColumn k610[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {120, "種別", "種別", "横桁|対傾構|要素無し"},
};

constexpr RawColumn k611[] = {
    {200, "主桁始", "主桁始"},
    {100, "主桁終", "主桁終", "YES|NO"},
    {100, "横桁始", "横桁始"},
    {100, "横桁終", "横桁終"},
    {100, "主桁高\n(mm)", "主桁高さ"},
};

constexpr RawColumn k612[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {100, "左右両", "左右両", kMemberSides},
    {100, "SZ_U･H_SWAY\n(mm)", "SZ_U･H_SWAY"},
    {100, "SZ_L･H_SWAY\n(mm)", "SZ_L･H_SWAY"},
};

constexpr RawColumn k613[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {100, "左右両", "左右両", kMemberSides},
    {100, "連結形式", "連結形式", "仕口|せん断|上下曲げ|上曲げ|下曲げ|無し"},
    {100, "(入込方向)", "(入込方向)", "始|終"},
};

constexpr RawColumn k621[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {80, "WEB厚\n(mm)", "WEB厚"},
    {80, "UFLG幅\n(mm)", "UFLG幅"},
    {80, "UFLG厚\n(mm)", "UFLG厚"},
    {80, "LFLG幅\n(mm)", "LFLG幅"},
    {80, "LFLG厚\n(mm)", "LFLG厚"},
};

constexpr RawColumn k622[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {80, "上下", "上下", "上|下"},
    {80, "B\n(mm)", "B"},
    {80, "T\n(mm)", "T"},
    {80, "L\n(mm)", "L"},
};

constexpr RawColumn k623[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {100, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {80, "上下斜", "上下斜", kSwayMembers},
    {80, "種別", "種別", "山形|CT形|溝形|PL山|PLCT"},
    {80, "H\n(mm)", "H"},
    {80, "B\n(mm)", "B"},
    {80, "T1\n(mm)", "T1"},
    {80, "T2\n(mm)", "T2"},
    {80, "V\n(mm)", "V"},
    {120, "(CT斜材取付)", "(CT斜材取付)", "B|H"},
};

constexpr RawColumn k624[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "左右両", "左右両", kMemberSides},
    {80, "上下", "上下", "上|下"},
    {80, "T\n(mm)", "T"},
    {80, "H\n(mm)", "H"},
    {80, "L\n(mm)", "L"},
};

constexpr RawColumn k625[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "T\n(mm)", "T"},
    {80, "BL\n(mm)", "BL"},
    {80, "BR\n(mm)", "BR"},
};

constexpr RawColumn k631[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "始位置", "始位置", "B|C|E"},
    {90, "終位置", "終位置", "B|C|E"},
};

constexpr RawColumn k632[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "格点_中間_両", "格点_中間_両", "格点|中間|両"},
    {90, "左右両", "左右両", "I桁左側|I桁右側|I桁両側"},
    {80, "H\n(mm)", "H"},
    {80, "T\n(mm)", "T"},
    {80, "BL\n(mm)", "BL"},
    {80, "BR\n(mm)", "BR"},
    {120, "(W)\n(mm)", "(W)"},
};

constexpr RawColumn k633[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {100, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "種別", "種別", "山形|CT形|溝形|PL山|PLCT"},
    {90, "H\n(mm)", "H"},
    {80, "B\n(mm)", "B"},
    {80, "T1\n(mm)", "T1"},
    {120, "T2\n(mm)", "T2"},
};

constexpr RawColumn k640[] = {
    {450, "タイプ"},
    {250, "データ"},
};

constexpr RawColumn k641[] = {
    {150, "縦桁", "縦桁名"},
    {150, "横桁始", "横桁始", "@beams"},
    {150, "横桁終", "横桁終", "@beams"},
};

constexpr RawColumn k642[] = {
    {110, "縦桁名\n側縦桁(左)\n側縦桁(右)\n縦桁名"},
    {70, "横桁始\n横桁始\n横桁始\n横桁始", "", "@beams"},
    {70, "横桁終\n横桁終\n横桁終\n横桁終", "", "@beams"},
    {70, "左支持\n無し\n左支持\n仮想点\n(線名)", "", "仮想点|無し|@girders"},
    {70, "右支持\n右支持\n無し\n---\n(線名)", "", "無し|@girders"},
    {70, "L1\nL2\nL1\n---\n(mm)"},
    {70, "L2\n---\n---\n---\n(mm)"},
    {70, "ハンチ高\n---\n---\n---\n(HHmm)"},
    {70, "床版厚\n---\n---\n---\n(HSmm)"},
    {70, "舗装厚\n---\n---\n---\n(HPmm)"},
    {70, "(詰材)\n---\n---\n---\n(HOmm)"},
    {70, "線荷P1\n---\n---\n---\n(kN/m)"},
    {70, "荷重名1\n---\n---\n---\n"},
    {70, "線荷P2\n---\n---\n---\n(kN/m)"},
    {70, "荷重名2\n---\n---\n---\n"},
    {70, "線荷P3\n---\n---\n---\n(kN/m)"},
    {70, "荷重名3\n---\n---\n---\n"},
};

constexpr RawColumn k643[] = {
    {110, "縦桁始", "縦桁始"},
    {110, "縦桁終", "縦桁終", "下縁_横桁UFLG|上縁_横桁UFLG"},
    {70, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "始\nZU_TYPE", "始ZU", "UU|LL|UL|W|F"},
    {70, "終\nZU_TYPE", "終ZU", "UU|LL|UL|W|F"},
    {70, "横断差\n(mm)", "横断差"},
    {100, "間隔\n(mm)", "間隔"},
    {100, "始側角度\n(°)", "始側角度"},
    {100, "終側角度\n(°)", "終側角度"},
};

constexpr RawColumn k644[] = {
    {125, "縦桁始", "縦桁始"},
    {120, "縦桁終", "縦桁終", "桁高に含む|桁高に含まない"},
    {70, "横桁始", "横桁始"},
    {70, "横桁終", "横桁終"},
    {70, "HB\n(mm)\n**手動**", "HB"},
    {70, "HE\n(mm)\n**手動**", "HE"},
    {70, "WEB厚\n(mm)", "WEB厚"},
    {70, "UFLG幅\n(mm)", "UFLG幅"},
    {70, "UFLG厚\n(mm)", "UFLG厚"},
    {70, "LFLG幅\n(mm)", "LFLG幅"},
    {70, "LFLG厚\n(mm)", "LFLG厚"},
    {100, "WEB材質", "W材質"},
    {100, "(UFLG材質", "(UF材質"},
    {100, "LFLG材質)", "LF材質)"},
    {100, "H形鋼", "H形鋼"},
};

constexpr RawColumn k645[] = {
    {110, "縦桁始"},
    {80, "縦桁終", "", "YES|NO"},
    {80, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {80, "VS本数\n横断線上", "", "横断線上"},
    {70, "幅\n幅\n(mm)"},
    {70, "厚\n厚\n(mm)"},
    {110, "材質\n材質", "", kMaterials},
    {70, "始終両\n始終両", "", "終側|始側|両側"},
    {250, "ﾋﾟｯﾁ(列数分)\n------\n(mm)", "", "等分割"},
};

constexpr RawColumn k646[] = {
    {110, "縦桁始", "縦桁始"},
    {70, "縦桁終", "縦桁終", "YES|NO"},
    {70, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "幅\n(mm)", "始終両"},
    {70, "厚\n(mm)", "幅"},
    {110, "材質", "厚", kMaterials},
    {70, "始終両", "材質", "終側|始側|両側"},
    {300, "上段数(0,1,2=無,1,2段),  下段数(0,1,2=無,1,2段)\n(VS数+1)          (VS数+1)", "上段数&下段数"},
};

constexpr RawColumn k647[] = {
    {110, "中縦桁始", "縦桁始"},
    {70, "中縦桁終", "縦桁終", "YES|NO"},
    {70, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "TU\n(mm)", "TU"},
    {70, "TL\n(mm)", "TL"},
    {70, "TW\n(mm)", "TW"},
    {70, "BU\n(mm)", "BU"},
    {70, "BL\n(mm)", "BL"},
    {70, "HW\n(mm)", "HW"},
};

constexpr RawColumn k648[] = {
    {110, "中縦桁始", "縦桁始"},
    {70, "中縦桁終", "縦桁終", "YES|NO|NO-WELD"},
    {70, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "幅\n(mm)", "幅"},
    {70, "厚\n(mm)", "厚"},
    {100, "材質", "材質", kMaterials},
    {100, "WEB溶接", "WEB溶接", kContactOrSizedWelds},
    {100, "LFLG溶接", "LFLG溶接", kContactOrSizedWelds},
};

constexpr RawColumn k649[] = {
    {110, "中縦桁始"},
    {70, "中縦桁終", "", "YES|NO"},
    {70, "横桁始", "", "@beams"},
    {70, "横桁終", "", "@beams"},
    {70, "始終両", "", "終側|始側|両側"},
    {70, "上段数L"},
    {70, "下段数L"},
    {70, "BL\n(mm)"},
    {70, "TL\n(mm)"},
    {70, "上位置L"},
    {70, "下位置L"},
    {70, "上段数R"},
    {70, "下段数R"},
    {70, "BR\n(mm)"},
    {70, "TR\n(mm)"},
    {70, "上位置R"},
    {70, "下位置R"},
};

constexpr RawColumn k651[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES-1|YES-2|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {180, "連結形式", "連結形式",
     "仕口|せん断|上下曲げ(1面摩擦)|上下曲げ(2面摩擦)|上下曲げ(上1下2面摩擦)|上下曲げ(上2下1面摩擦)|"
     "上曲げ(1面摩擦)|上曲げ(2面摩擦)|下曲げ(1面摩擦)|下曲げ(2面摩擦)|無し|上下曲げ(2面摩擦_外側分割)|"
     "上下曲げ(上1下2面摩擦_下外側分割)|上下曲げ(上2下1面摩擦_上外側分割)|上曲げ(2面摩擦_上外側分割)|"
     "下曲げ(2面摩擦_下外側分割)"},
    {90, "(入込方向", "(入込方向", "始|終"},
    {90, "UFLG縁向き", "UFLG縁向き", "平行|直角|自動"},
    {90, "LFLG縁向き)", "LFLG縁向き)", "平行|直角|自動"},
    {90, "継手名", "継手名"},
};

constexpr RawColumn k652[] = {
    {110, "縦桁始\n縦桁始"},
    {80, "縦桁終\n縦桁終", "", "YES|NO"},
    {80, "横桁始\n横桁始", "", "@beams"},
    {80, "横桁終\n横桁終", "", "@beams"},
    {80, "左右両\n左右両", "", kMemberSides},
    {70, " 上下\n 上下", "", "上下|上|下"},
    {70, "W番号\nC番号", "", kFlangeConnections},
    {90, "(材質)\n(材質)", "", kMaterials},
    {70, "-\n(向き", "", "平行|直角|自動"},
    {90, "-\nコネクション幅\n(mm)"},
    {70, "-\n厚\n(mm)"},
    {70, "-\n入込)", "", "内|外"},
};

constexpr RawColumn k653[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, " 上下", "上下", "上下|上|下"},
    {70, "B\n(mm)", "B"},
    {70, "T\n(mm)", "T"},
    {80, "(R_CENTER", "(R_CENTER", "補剛材|WEB|接合面"},
    {70, "BR\n(mm)", "BR"},
    {70, "R\n(mm)", "R"},
    {70, "DIS\n(mm)", "DIS"},
    {100, "B2\n(mm))", "B2)"},
};

constexpr RawColumn k654[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, " 上下", "上下", "上下|上|下"},
    {90, "呼び(等級)", "呼び(等級)", kBolts},
    {80, "孔引き形式", "孔引き形式", "全孔|千鳥_外|千鳥_内"},
    {70, "FLG本数\n(全)", "FLG本数"},
    {70, "FLG行数\n(片側)", "FLG行数"},
    {100, "(コネクション\n行数", "(ｺﾈｸｼｮﾝ行数"},
    {100, "列数)", "列数)"},
};

constexpr RawColumn k655[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, " 上下", "上下", "上下|上|下"},
    {70, "Lfc\n(mm)", "Lfc"},
    {70, "Lfd\n(mm)", "Lfd"},
    {70, "LfeL\n(mm)", "LfeL"},
    {70, "LfeR\n(mm)", "LfeR"},
    {70, "Bfc\n(mm)", "Bfc"},
    {70, "Bfe\n(mm)", "Bfe"},
    {70, "(Lgc\n(mm)", "(Lgc"},
    {70, "Lgd\n(mm)", "Lgd"},
    {70, "Lge\n(mm)", "Lge"},
    {70, "Bgd\n(mm)", "Bgd"},
    {70, "Bge\n(mm))", "Bge)"},
};

constexpr RawColumn k656[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {80, " 呼び(等級)", "呼び(等級)", kBolts},
    {65, "列数", "列数"},
    {65, "割数", "割数"},
    {65, "Ld", "Ld"},
    {65, "Le", "Le"},
    {65, "DU", "DU"},
    {65, "DL", "DL"},
    {250, "ピッチ(割数分)", "ピッチ(割数分)"},
};

constexpr RawColumn k657[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {80, "[U･L]FLG\nWEB", "[U･L]FLG・WEB", kFlangesOrWeb},
    {60, "T1\n(mm)", "T1"},
    {60, "T2\n(mm)", "T2"},
    {60, "B1\n(mm)", "B1"},
    {60, "B2\n(mm)", "B2"},
    {60, "L\n(mm)", "L"},
    {60, "(GB1\n(mm)", "(GB1,"},
    {60, "GB2\n(mm)", "GB2,"},
    {60, "GL)\n(mm)", "GL)"},
};

constexpr RawColumn k658[] = {
    {110, "縦桁始\n縦桁始"},
    {80, "縦桁終\n縦桁終", "", "YES|NO"},
    {80, "横桁始\n横桁始", "", "@beams"},
    {80, "横桁終\n横桁終", "", "@beams"},
    {80, "左右両\n左右両", "", kMemberSides},
    {70, "[U･L]FLG\nWEB", "", kFlangesOrWeb},
    {90, "呼び(等級)\n呼び(等級)", "", kBolts},
    {100, "FLG片側本数\nWEB全列数"},
    {100, "孔引き形式\nWEB中間部割数", "", kHolePatterns},
    {100, "(GFLG本数\n"},
    {100, "G孔引)\n ", "", kHolePatterns},
};

constexpr RawColumn k659[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "[U･L]FLG", "[U･L]FLG", "FLG|UFLG|LFLG"},
    {70, "Lc\n(mm)", "Lc"},
    {70, "Ld\n(mm)", "Ld"},
    {70, "Le\n(mm)", "Le"},
    {70, "Bc\n(mm)", "Bc"},
    {70, "Be\n(mm)", "Be"},
    {70, "(GLc\n(mm)", "(GLc,"},
    {70, "GLd\n(mm)", "GLd,"},
    {70, "GLe\n(mm)", "Gle,"},
    {70, "GBc\n(mm)", "GBc,"},
    {70, "GBe)\n(mm)", "GBe)"},
};

constexpr RawColumn k660[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "DU1\n(mm)", "DU1"},
    {70, "DU12\n(mm)", "DU12"},
    {70, "DL12\n(mm)", "DL12"},
    {70, "DL1\n(mm)", "DL1"},
    {70, "DC\n(mm)", "DC"},
    {70, "DX\n(mm)", "DX"},
    {130, "継手位置桁高(出力)\n(mm,手動時任意値)", "(H)"},
    {70, "DU23\n(mm)", "DU23"},
    {70, "DL23\n(mm)", "DL23"},
    {120, "上分担幅BU01\n(%_mm)", "BU01", kPercent},
    {120, "下分担幅BL01\n(%_mm)", "BL01", kPercent},
};

constexpr RawColumn k661[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "BU1\n(mm)", "BU1"},
    {70, "BU2\n(mm)", "BU2"},
    {70, "L\n(mm)", "L"},
    {70, "LU\n(mm)", "LU"},
    {70, "Dis\n(mm)", "Dis"},
    {70, "RU1\n(mm)", "RU1"},
    {70, "RU2\n(mm)", "RU2"},
    {70, "DU1\n(mm)", "DU1"},
    {70, "DU2\n(mm)", "DU2"},
    {70, "BL1\n(mm)", "(BL1"},
    {70, "BL2\n(mm)", "BL2"},
    {70, "RL1\n(mm)", "RL1"},
    {70, "RL2\n(mm)", "RL2"},
    {70, "DL1\n(mm)", "DL1"},
    {120, "DL2\n(mm)", "DL2)"},
};

constexpr RawColumn k662[] = {
    {110, "自動手動\n自動手動\n自動手動\n縦桁始"},
    {150, "スラブ止め_RB\nスラブ止め_FB\nスタッドジベル\n縦桁", "", "YES|NO"},
    {80, "径d(例16)\n厚t(例6)\n径d(例19)\n横桁始", "", "@beams"},
    {80, "長さL例600\n長さL例600\n長さL例150\n横桁終", "", "@beams"},
    {90, "端寸法(例50)\n幅B(例50)\n径D(例32)\n始位置D"},
    {90, "始位置標準\n始位置標準\n頭部厚t\nn1"},
    {90, "標準間隔\n標準間隔\nFLG縁端距離\n間隔1"},
    {70, "D_SPL\nD_SPL\nD_SPL\nn2"},
    {90, "(溶接長s)\n(溶接長s)\nW(ハンチ幅)\n間隔2"},
    {80, "-\n(端寸法H)\n-\nn3"},
    {260, "-\n-\n-\n間隔3, n4,間隔4, n5,間隔5,... "},
};

constexpr RawColumn k665[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", kMemberSides},
    {70, "上下", "上下", "上下|上|下"},
    {60, "Br\n(mm)", "Br"},
    {60, "R\n(mm)", "R"},
    {60, "Dis\n(mm)", "Dis"},
    {70, "傾斜(YES_NO)", "傾斜(YES_NO)", "YES|NO"},
    {60, "Df\n(mm)", "Df"},
    {60, "DR\n(mm)", "DR"},
    {60, "Dh\n(mm)", "Dh"},
    {60, "Dv\n(mm)", "Dv"},
};

constexpr RawColumn k666[] = {
    {110, "縦桁始", "縦桁始"},
    {80, "縦桁終", "縦桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "上下", "上下", "上下|上|下"},
    {100, "HL\n(mm)", "HL"},
    {100, "HR\n(mm)", "HR"},
};

constexpr RawColumn k668[] = {
    {110, "縦桁始", "縦桁始"},
    {90, "縦桁終", "縦桁終", "YES|NO"},
    {90, "若番横桁", "若番横桁名", "@beams"},
    {90, "出力", "出力", "YES|NO"},
    {300, "", "GROUP名"},
};

constexpr RawColumn k669[] = {
    {150, "縦桁始", "縦桁始"},
    {150, "縦桁終", "縦桁終", "YES|NO"},
    {150, "横桁名", "横桁名", "@beams"},
};

constexpr RawColumn k670[] = {
    {450, "タイプ"},
    {250, "データ"},
};

constexpr RawColumn k671[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "左右両\n(左右両)", "左右両", "左|右|両"},
    {120, "Mw風荷重\nMw1_Mw2 (kN･m)\n**手動**", "Mw風荷重"},
    {80, "Mco衝突\n(kN･m)\n**手動**", "Mco衝突"},
    {120, "橋軸荷重幅B\n桁端BE増厚BS\n(B_BE_BSmm)", "間隔"},
    {70, "床版張出\n(Lmm)", "張出"},
    {70, "ハンチ高\n(HH_n)\n(n=傾斜)", "ハンチ高"},
    {70, "床版厚\n(HS_HSE)\n(mm)", "床版厚"},
    {60, "舗装車\n(HP1mm)", "舗装車"},
    {60, "舗装歩\n(HP2mm)", "舗装歩"},
    {60, "歩道幅\n(B0mm)", "歩道幅"},
    {60, "歩道高\n(H0mm)", "歩道高"},
    {60, "地覆幅\n(B1mm)", "地覆幅"},
    {60, "地覆高\n(H1mm)", "地覆高"},
    {120, "P1名\n(荷重名)", "P21名", kBracketLoads},
    {60, "P1\n(kN/m)", "P21"},
    {60, "B21\n(mm)", "B21"},
    {120, "P2名\n(荷重名)", "P22名", kBracketLoads},
    {60, "P2\n(kN/m)", "P22"},
    {60, "B22\n(mm)", "B22"},
    {120, "P3名\n(荷重名)", "P23名", kBracketLoads},
    {60, "P3\n(kN/m)", "P23"},
    {60, "B23\n(mm)", "B23"},
    {120, "P4名\n(荷重名)", "P24名", kBracketLoads},
    {60, "P4\n(kN/m)", "P24"},
    {60, "B24\n(mm)", "B24"},
    {120, "P5名\n(荷重名)", "P25名", kBracketLoads},
    {60, "P5\n(kN/m)", "P25"},
    {100, "B25\n(mm)", "B25"},
};

constexpr RawColumn k672[] = {
    {110, "横桁始", "横桁始"},
    {120, "横桁終", "横桁終", "下縁_主桁UFLG|上縁_主桁UFLG|下縁_ブラケットUFLG|上縁_ブラケットUFLG"},
    {80, "左右両\n(左/右/両)", "左右両"},
    {110, "横断差DZ(mm)\n*手動*(側縦桁\n設計しない場合)", "横断差"},
    {110, "BR長さ(mm)\n**要確認**\n*642L1(L2)優先*", "張出長"},
    {85, "入込方向\n(始・終・自動)", "入込方向"},
    {60, "縦桁側上\n角度(°)", "縦桁側上角度"},
    {60, "縦側下\n角度(°)", "縦側下角度"},
    {60, "主桁側上\n角度(°)", "主桁側上角度"},
    {60, "主側下\n角度(°)", "主側下角度"},
};

constexpr RawColumn k673[] = {
    {110, "横桁始", "", "@beams"},
    {70, "横桁終", "", "@beams"},
    {70, " 左右両", "", "左|右|両"},
    {70, "主側上Z\n(mm)", "", "UU|LL|UL|W|F"},
    {60, "主GBU\n(mm) "},
    {60, "GTU\n(mm)"},
    {60, "GTW\n(mm)"},
    {60, "GT1\n(mm)"},
    {60, "G勾配\n(%)"},
    {60, "(縦上Z", "", "UU|LL|UL|W|F"},
    {60, "下Z ", "", "UU|LL|UL|W|F"},
    {60, "SBU\n(mm)"},
    {60, "STU \n(mm)"},
    {60, "SBL\n(mm) "},
    {60, "STL\n(mm)"},
    {60, "STW\n(mm)"},
    {60, "SBV\n(mm)"},
    {60, "STV)\n(mm)"},
};

constexpr RawColumn k674[] = {
    {125, "横桁始"},
    {120, "横桁終", "", "桁高に含む|桁高に含まない"},
    {75, "左右両\n(左・右・両)"},
    {70, "HG\n(mm)\n**手動**"},
    {70, "HS\n(mm)\n**手動**"},
    {60, "WEB厚\n(mm)"},
    {60, "UFLG幅\n(mm)"},
    {60, "UFLG厚\n(mm)"},
    {60, "LFLG幅\n(mm)"},
    {60, "LFLG厚\n(mm)"},
    {100, "WEB材質"},
    {100, "(UFLG材質"},
    {100, "LFLG材質)"},
};

constexpr RawColumn k675[] = {
    {110, "横桁始", "", "@beams"},
    {70, "横桁終", "", "@beams"},
    {70, "左右両", "", "左|右|両"},
    {90, "UFLG縁向", "", "直角|平行"},
    {90, "LFLG縁向", "", "直角|平行"},
    {90, "呼び(等級)", "", kBoltsM22First},
    {90, "縦桁側片行数"},
    {90, "縦桁側列数"},
    {90, "孔引き形式", "", "全孔|千鳥_外|千鳥_内"},
    {90, "FLG片本数"},
    {90, "FLG片行数"},
    {90, "SLe\n(mm)"},
    {90, "SLd\n(mm)"},
    {90, "SBc\n(mm)"},
    {90, "SBd\n(mm)"},
    {90, "SBe\n(mm)"},
    {90, "FLe\n(mm)"},
    {90, "FLd\n(mm)"},
    {90, "FBc\n(mm)"},
    {90, "FBd\n(mm)"},
    {90, "FBe\n(mm)"},
};

constexpr RawColumn k676[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "左右両", "左右両", "左|右|両"},
    {80, "呼び(等級)", "呼び(等級)", kBoltsM22First},
    {60, "割数", "割数"},
    {60, "Lv\n(mm)", "Lv"},
    {60, "Ld\n(mm)", "Ld"},
    {60, "Le\n(mm)", "Le"},
    {60, "DU\n(mm)", "DU"},
    {60, "DL\n(mm)", "DL"},
    {180, "(等間隔・ピッチ(割数分))\n(mm)", "(等間隔・ピッチ(割数分))", "等間隔"},
};

constexpr RawColumn k677[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {80, "左右両\n(左・右・両)", "左右両", "左|右|両"},
    {80, "[U･L]FLG\nWEB", "[U･L]FLG・WEB", "FLG|WEB|UFLG|LFLG"},
    {70, "T1\n(mm)", "T1"},
    {70, "T2\n(mm)", "T2"},
    {70, "B1\n(mm)", "B1"},
    {70, "B2\n(mm)", "B2"},
    {70, "L\n(mm)", "L"},
};

constexpr RawColumn k678[] = {
    {110, "横桁始\n横桁始", "横桁始", "@beams"},
    {70, "横桁終\n横桁終", "横桁終", "@beams"},
    {70, "左右両\n左右両", "左右両", "左|右|両"},
    {70, "[U･L]FLG\nWEB", "[U･L]FLG", "FLG|WEB|UFLG|LFLG"},
    {100, "呼び(等級)\n呼び(等級)", "呼び(等級)", kBoltsM22First},
    {100, "FLG片側本数\nWEB全列数", "FLG本数"},
    {100, "孔引き形式\nWEB中間部割数", "孔引き形式",
     "全孔引き|2孔引き|4孔引き|6孔引き|24孔引き|46孔引き|68孔引き|千鳥_外|千鳥_内"},
};

constexpr RawColumn k679[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "左右両", "左右両", "左|右|両"},
    {70, "[U･L]FLG", "[U･L]FLG", "FLG|UFLG|LFLG"},
    {70, "Lc\n(mm)", "Lc"},
    {70, "Ld\n(mm)", "Ld"},
    {70, "Le\n(mm)", "Le"},
    {70, "Bc\n(mm)", "Bc"},
    {70, "Be\n(mm)", "Be"},
};

constexpr RawColumn k680[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "左右両", "左右両", "左|右|両"},
    {70, "DU1\n(mm)", "DU1"},
    {70, "DU12\n(mm)", "DU12"},
    {70, "DL12\n(mm)", "DL12"},
    {70, "DL1\n(mm)", "DL1"},
    {70, "DC\n(mm)", "DC"},
    {70, "DX\n(mm)", "DX"},
    {130, "継手位置桁高(出力)\n(mm,手動時任意値)", "(H)"},
    {70, "DU23\n(mm)", "DU23"},
    {70, "DL23\n(mm)", "DL23"},
    {120, "上分担幅BU01\n(%_mm)", "BU01", kPercent},
    {120, "下分担幅BL01\n(%_mm)", "BL01", kPercent},
};

constexpr RawColumn k681[] = {
    {110, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {80, "左右両\n(左・右・両)", "", "左|右|両"},
    {70, "[U][L]FLG\n", "", "FLG|UFLG|LFLG"},
    {60, "L\n(mm)"},
    {60, "DIS\n(mm)"},
    {60, "B1\n(mm)"},
    {60, "B2\n(mm)"},
    {60, "R1\n(mm)"},
    {60, "R2\n(mm)"},
    {60, "D1\n(mm)"},
    {60, "D2\n(mm)"},
};

constexpr RawColumn k682[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {70, "横桁終", "横桁終", "@beams"},
    {70, "左右両", "左右両", "左|右|両"},
    {60, "VS本数", "VS本数"},
    {60, "幅\n(mm)", "幅"},
    {60, "厚\n(mm)", "厚"},
    {100, "材質", "材質", kMaterials},
    {80, "始終両", "始終両", "終側|始側|両側"},
    {280, "等分割・ﾋﾟｯﾁ(列数分)", "等分割・ﾋﾟｯﾁ(列数分)", "等分割"},
};

constexpr RawColumn k683[] = {
    {110, "横桁始", "", "@beams"},
    {70, "横桁終", "", "@beams"},
    {70, "左右両", "", "左|右|両"},
    {60, "幅\n(mm)"},
    {60, "厚\n(mm)"},
    {100, "材質", "", kMaterials},
    {70, "始終両", "", "終側|始側|両側"},
    {260, "上段数(0,1,2=無,1,2段), 下段数(0,1,2=無,1,2段)\n(VS数+1)           (VS数+1)"},
};

constexpr RawColumn k689[] = {
    {110, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "左右両", "左右両", "左|右|両"},
    {90, "出力", "YES/NO(出力)", "YES|NO"},
    {300, "", "GROUP名"},
};

constexpr RawColumn k703[] = {
    {110, "支承線始", "", "YES|NO"},
    {100, "支承線終", "", "YES|NO"},
    {100, "主桁始", "", "YES|NO"},
    {100, "主桁終", "", "YES|NO"},
    {100, "ｸﾞﾙｰﾌﾟ名", "", "YES|NO"},
};

constexpr RawColumn k704[] = {
    {150, "支承線", "支承線", "YES|NO"},
    {150, "荷重分担率\n(%)", "荷重分担率(%)", "YES|NO"},
};

constexpr RawColumn k705[] = {
    {150, "支承線", "支承線名", "YES|NO"},
    {150, "水平力\n(kN)", "水平力(kN)", "YES|NO"},
    {150, "鉛直反力\n(kN)", "鉛直反力(kN)", "YES|NO"},
};

constexpr RawColumn k706[] = {
    {110, "支承線始", "支承線始", "YES|NO"},
    {100, "支承線終", "支承線終", "YES|NO"},
    {100, "主桁始", "主桁始", "YES|NO"},
    {100, "主桁終", "主桁終", "YES|NO"},
    {100, "距離\n(mm)", "距離", "YES|NO"},
};

constexpr RawColumn k707[] = {
    {110, "支承線", "", "YES|NO"},
    {100, "主桁", "", "YES|NO"},
    {100, "死荷重(kN)\n死荷重1(kN)", "", "YES|NO"},
    {100, "活荷重(kN)\n活荷重1(kN)", "", "YES|NO"},
    {100, "(実横桁)\n死荷重2(kN)  ", "", "YES|NO"},
    {100, "-\n活荷重2(kN)", "", "YES|NO"},
    {100, "-\n(実横桁)", "", "YES|NO"},
};

constexpr RawColumn k708[] = {
    {110, "ｸﾞﾙｰﾌﾟ名", "ｸﾞﾙｰﾌﾟ名", "YES|NO"},
    {100, "常時R\n(kN)", "常時R", "YES|NO"},
    {100, "風時鉛直R\n(kN)", "風時鉛直R", "YES|NO"},
    {100, "地震時鉛直R\n(kN)", "地震時鉛直R", "YES|NO"},
    {100, "風時M\n(kN.m)", "風時M", "YES|NO"},
    {100, "地震時M\n(kN.m)", "地震時M", "YES|NO"},
    {100, "(補強ﾘﾌﾞ鉛直R)\n(kN)", "(補強ﾘﾌﾞ鉛直R)", "YES|NO"},
};

constexpr RawColumn k711[] = {
    {110, "支承線始", "", "YES|NO"},
    {90, "支承線終", "", "YES|NO"},
    {90, "主桁始", "", "YES|NO"},
    {90, "主桁終", "", "YES|NO"},
    {90, "WEB高\n(mm)", "", "YES|NO"},
    {90, "WEB厚\n(mm)", "", "YES|NO"},
    {110, "WEB材質", "", kMaterials},
    {90, "下FLG厚\n(mm)", "", "YES|NO"},
    {90, "H-G距離\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k713[] = {
    {130, "主桁始\n〃", "", "YES|NO|無し"},
    {90, "主桁終\n〃", "", "YES|NO|無し"},
    {90, "横桁始\n〃", "", "YES|NO|無し"},
    {90, "横桁終\n〃", "", "YES|NO|無し"},
    {90, "CASE1\nCASE2", "", "CASE1|CASE2"},
    {100, "材質\n〃", "", kMaterials},
    {80, "間隔\n〃\n(mm)", "", "YES|NO|無し"},
    {80, "高H\n〃\n(mm)", "", "YES|NO|無し"},
    {80, "厚t\n〃\n(mm)", "", "YES|NO|無し"},
    {110, "幅B(_半径R)\n幅B\n(自動)", "",
     "自動|200|210|220|230|240|250|260|270|280|290|300|310|320|330|340|350|360|370|380|390|400|410|420|430|440|450|"
     "460|470|480|490|500"},
    {80, "DH\nFLG厚\n(mm)", "", "YES|NO|無し"},
    {80, "DB\nFLG厚\n(mm)", "", "YES|NO|無し"},
    {120, "WEB溶接\n〃", "", kSizedWelds},
    {120, "LFLG溶接\n〃", "", kSizedWelds},
    {180, "角度\n〃", "", "YES|NO|無し"},
};

constexpr RawColumn k723[] = {
    {110, "主桁始\n主桁始", "", "YES|NO"},
    {80, "主桁終\n主桁終", "", "YES|NO"},
    {80, "横桁始\n横桁始", "", "@beams"},
    {80, "横桁終\n横桁終", "", "@beams"},
    {80, "[U･L]FLG\nWEB", "", kFlangesOrWeb},
    {100, "材質\n材質", "", kMaterials},
    {80, "B1\nHL\n(mm)", "", "YES|NO"},
    {80, "B2\nHR\n(mm)", "", "YES|NO"},
    {80, "BL\nTWL\n(mm)", "", "YES|NO"},
    {80, "BR\nTWR\n(mm)", "", "YES|NO"},
    {80, "TF\nZL\n(mm)", "", "YES|NO"},
    {80, "---\n直TWL\n(mm)", "", "YES|NO"},
    {120, "---\n直TWR\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k724[] = {
    {110, "主桁始", "主桁始", "YES|NO"},
    {80, "主桁終", "主桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", "左腹板|右腹板|両腹板"},
    {80, "DU\n(mm)", "DU", "YES|NO"},
    {80, "DL\n(mm)", "DL", "YES|NO"},
    {80, "BU1\n(mm)", "BU1", "YES|NO"},
    {80, "BU2\n(mm)", "BU2", "YES|NO"},
    {80, "TU\n(mm)", "TU", "YES|NO"},
    {80, "BL1\n(mm)", "BL1", "YES|NO"},
    {80, "BL2\n(mm)", "BL2", "YES|NO"},
    {80, "TL\n(mm)", "TL", "YES|NO"},
};

constexpr RawColumn k725[] = {
    {110, "主桁始", "主桁始", "YES|NO"},
    {80, "主桁終", "主桁終", "YES|NO"},
    {80, "横桁始", "横桁始", "@beams"},
    {80, "横桁終", "横桁終", "@beams"},
    {100, "位置", "位置", "UFLG中間|LFLG中間|UFLG張出左|UFLG張出右"},
    {80, "ﾀｲﾌﾟ(PL)\nﾀｲﾌﾟ(BP)\nﾀｲﾌﾟ(U)", "ﾀｲﾌﾟ(U)", "PL|U|BP"},
    {80, "連続(YES_NO)", "連続(YES_NO)", "YES|NO"},
    {80, "B\n(mm)", "B", "YES|NO"},
    {80, "T\nT\nH\n(mm)", "H", "YES|NO"},
    {80, "0\nD\nT\n(mm)", "T", "YES|NO"},
    {80, "0\n0\nR\n(mm)", "R", "YES|NO"},
    {80, "本数", "本数", "YES|NO"},
    {140, "間隔(本数分or等分割)\n(mm)", "間隔(本数分or等分割)", "等分割"},
};

constexpr RawColumn k726[] = {
    {110, "主桁始", "主桁始", "YES|NO"},
    {90, "主桁終", "主桁終", "YES|NO"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {100, "等価支間長\n注意：単位(m)", "等価支間長m", "YES|NO"},
    {90, " 上部欠損高\n(mm)", "上部欠損高mm", "YES|NO"},
    {90, "下部欠損高\n(mm)", "下部欠損高mm", "YES|NO"},
    {120, "支間長\n注意：単位(m)", "支間長m", "YES|NO"},
};

constexpr RawColumn k731[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "支承数", "支承数", "1|2"},
    {100, "(材質", "(材質", kMaterials},
    {90, "板厚(mm)", "板厚", "YES|NO"},
    {120, "WEB溶接)", "WEB溶接)", "YES|NO"},
};

constexpr RawColumn k734[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {80, "左右両", "左右両", "左|右|両"},
    {100, "材質", "材質", kMaterials},
    {80, "幅\n(mm)", "幅", "YES|NO"},
    {80, "厚\n(mm)", "厚", "YES|NO"},
    {100, "DIA溶接", "DIA溶接", kContactOrSizedWelds},
    {100, "LFLG溶接", "LFLG溶接", kContactOrSizedWelds},
    {80, "長さ(mm)\n切欠長", "長さ_切欠長", "YES|NO"},
    {80, "(列数", "(列数", "YES|NO"},
    {120, "間隔)\n(mm)", "間隔)", "YES|NO"},
};

constexpr RawColumn k735[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "設置", "設置", "YES中|YES左|YES右|YES|NO"},
    {90, "( X 距離\n(mm)", "(X距離", "YES|NO"},
    {80, "Y 距離\n(mm)", "Y距離", "YES|NO"},
    {80, "HOLE高\n(mm)", "HOLE高", "YES|NO"},
    {80, "HOLE幅\n(mm)", "HOLE幅", kContactOrSizedWelds},
    {80, "始終両", "始終両", kContactOrSizedWelds},
    {80, "補強幅\n(mm)", "補強幅", "YES|NO"},
    {80, "補強厚\n(mm)", "補強厚", "YES|NO"},
    {80, "隙間\n(mm)", "隙間", "YES|NO"},
    {120, "補強幅H)\n(mm)", "補強幅H)", "YES|NO"},
};

constexpr RawColumn k741[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {100, "材質", "", kMaterials},
    {90, "板厚C\n(mm)", "", "YES|NO"},
    {90, "(板厚U\n(mm)", "", "YES|NO"},
    {110, "板厚L)\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k742[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "床版厚\n(mm)", "床版厚(mm)", "YES|NO"},
    {90, "ダイヤ間隔\n(m)", "ダイヤ間隔(m)", "YES|NO"},
    {90, "曲率半径\n(m)", "曲率半径(m)", "YES|NO"},
    {120, "(主桁曲げM)\n(kN.m)", "(主桁曲げM(kN.m))", "YES|NO"},
};

constexpr RawColumn k743[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {80, "左右両", "", "左|右|両"},
    {80, "一般_片持 ", "", "片持部|一般部"},
    {80, "車道幅", "", "YES|NO"},
    {80, "歩道幅", "", "YES|NO"},
    {110, "部分等分布\nP1(kN/m2)", "", kContactOrSizedWelds},
    {80, "P1載荷長\n(m)", "", kContactOrSizedWelds},
    {80, "等分布P2\n(kN/m2)", "", "YES|NO"},
    {80, "(群集荷重)\n(kN/m2)", "", "YES|NO"},
    {120, "(曲げﾓｰﾒﾝ)\n(kN・m)", "", "YES|NO"},
};

constexpr RawColumn k744[] = {
    {110, "主桁始", "主桁始", "@girders"},
    {90, "主桁終", "主桁終", "@girders"},
    {90, "横桁始", "横桁始", "@beams"},
    {90, "横桁終", "横桁終", "@beams"},
    {90, "開口種別", "開口種別", "充腹板|ラーメン|上部開|下部開"},
    {80, "X距離\n(mm)", "X距離", "YES|NO"},
    {80, "Y距離\n(mm)", "Y距離", "YES|NO"},
    {80, "開口高\n(mm)", "開口高", "YES|NO"},
    {80, "開口幅\n(mm)", "開口幅", kContactOrSizedWelds},
    {120, "(R半径)\n(mm)", "(R半径)", kContactOrSizedWelds},
};

constexpr RawColumn k745[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "\n始終両", "", "始|終|両"},
    {90, "水平(上下)\n垂直(左右)", "", "水平|水平上|水平下|垂直|垂直左|垂直右"},
    {90, "開口隙間\n開口隙間\n(mm)", "", "YES|NO"},
    {90, "板幅\n板幅\n(mm)", "", "YES|NO"},
    {90, "板厚\n板厚\n(mm)", "", kContactOrSizedWelds},
    {90, "左突出\n-\n(mm)", "", kContactOrSizedWelds},
    {90, "右突出\n-\n(mm)", "", "YES|NO"},
    {120, "(板幅R)\n-\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k746[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "始終両", "", "始|終|両"},
    {90, "位置", "", "UL|UR|LL|LR"},
    {90, "押え距離\n(mm)", "", "YES|NO"},
    {90, "WEB側幅\n(mm)", "", "YES|NO"},
    {90, "開口側幅\n(mm)", "", kContactOrSizedWelds},
    {90, "板厚\n(mm)", "", kContactOrSizedWelds},
};

constexpr RawColumn k747[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "HU幅\n(mm)", "", "YES|NO"},
    {90, "HU厚\n(mm)", "", "YES|NO"},
    {90, "HL幅\n(mm)", "", "YES|NO"},
    {90, "HL厚\n(mm)", "", "YES|NO"},
    {90, "VL幅\n(mm)", "", kContactOrSizedWelds},
    {90, "VL厚\n(mm)", "", kContactOrSizedWelds},
    {90, "VR幅\n(mm)", "", "YES|NO"},
    {90, "VR厚\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k751[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "始終両", "", "始|終|両"},
    {90, "上下", "", "上|下"},
    {90, "左右押え\nタイプ", "", "L|R|C|A"},
    {90, "ZL\n(mm)", "", "水平"},
    {90, "ZR\n(mm)", "", "水平"},
    {90, "HL\n(mm)", "", kContactOrSizedWelds},
    {90, "HR\n(mm)", "", "YES|NO"},
    {90, "長さ\n(mm)", "", "YES|NO"},
    {90, "幅\n(mm)", "", "YES|NO"},
    {120, "厚\n(mm)", "", "YES|NO"},
};

constexpr RawColumn k752[] = {
    {110, "主桁始", "", "@girders"},
    {90, "主桁終", "", "@girders"},
    {90, "横桁始", "", "@beams"},
    {90, "横桁終", "", "@beams"},
    {90, "始終両", "", "始|終|両"},
    {90, "左右", "", "左|右"},
    {90, "上下押え\nタイプ", "", "U|L|C|A"},
    {90, "HU\n(mm)", "", "鉛直"},
    {90, "HL\n(mm)", "", "鉛直"},
    {90, "ZU\n(mm)", "", kContactOrSizedWelds},
    {90, "ZL\n(mm)", "", "YES|NO"},
    {90, "長さ\n(mm)", "", "YES|NO"},
    {90, "幅\n(mm)", "", "YES|NO"},
    {120, "厚\n(mm)", "", "YES|NO"},
};

// Where the value of the automatic row comes from, told in its free cells.
constexpr std::string_view kLinked331 = " (301の| 9行目と|331～332)|は同時自動|リンク";
constexpr std::string_view kLinked341 = " (301の| 10行目と|341～344)|は同時自動|リンク";

constexpr RawPanel kPanels[] = {
    {.block = 259, .columns = k259, .automaticRows = 0, .numberWidth = 70},
    {.block = 291, .last = 296, .columns = k291, .automaticRows = 0},
    {.block = 304, .columns = k304, .headHeight = 45, .automaticRows = 0},
    {.block = 305, .columns = k305, .automaticRows = 0},
    {.block = 306, .columns = k306},
    {.block = 307, .columns = k307, .headHeight = 45, .automaticRows = 0},
    {.block = 312, .columns = k312, .headHeight = 60, .automaticRows = 0},
    {.block = 313, .columns = k313},
    {.block = 314, .columns = k314},
    {.block = 315, .columns = k315, .headHeight = 60},
    {.block = 316, .columns = k316, .headHeight = 45},
    {.block = 321, .columns = k321, .automaticRows = 2},
    {.block = 322, .columns = k322, .automaticRows = 2},
    {.block = 323, .columns = k323, .automaticRows = 0},
    {.block = 326, .columns = k326},
    {.block = 327, .columns = k327},
    {.block = 328, .columns = k328},
    {.block = 329, .columns = k329, .headHeight = 45, .automaticRows = 0},
    {.block = 331, .columns = k331, .fixedTexts = kLinked331},
    {.block = 332, .columns = k332, .fixedTexts = kLinked331},
    {.block = 333, .columns = k333},
    {.block = 334, .columns = k334},
    {.block = 335, .columns = k335, .headHeight = 60, .usable = 6},
    {.block = 336, .columns = k336, .headHeight = 45, .usable = 12},
    {.block = 337, .columns = k337, .headHeight = 45, .usable = 8},
    {.block = 338, .columns = k338, .headHeight = 45, .usable = 10},
    {.block = 339, .columns = k339, .headHeight = 45},
    {.block = 340, .columns = k340, .headHeight = 45},
    {.block = 341, .columns = k341, .fixedTexts = kLinked341},
    {.block = 342, .columns = k342, .headHeight = 45, .fixedTexts = kLinked341},
    {.block = 343, .columns = k343, .headHeight = 45, .fixedTexts = kLinked341},
    {.block = 344, .columns = k344, .fixedTexts = kLinked341},
    {.block = 351, .columns = k351, .automaticRows = 0},
    {.block = 352, .columns = k352, .automaticRows = 0},
    {.block = 353, .columns = k353, .automaticRows = 0},
    {.block = 354, .columns = k354, .automaticRows = 0},
    {.block = 359, .columns = k359},
    {.block = 391, .last = 396, .columns = k391},
    {.block = 402, .columns = k402, .headHeight = 90, .automaticRows = 0},
    {.block = 403, .columns = k403, .automaticRows = 0},
    {.block = 404, .columns = k404, .automaticRows = 0},
    {.block = 405, .columns = k405, .headHeight = 45, .automaticRows = 0},
    {.block = 407, .columns = k407, .automaticRows = 0},
    {.block = 408, .columns = k408},
    {.block = 409, .columns = k409, .headHeight = 60},
    {.block = 412, .columns = k412, .automaticRows = 0, .numberWidth = 120},
    {.block = 413, .columns = k413},
    {.block = 422, .columns = k422, .automaticRows = 0},
    {.block = 423, .columns = k423},
    {.block = 481, .columns = k481},
    {.block = 482, .columns = k482},
    {.block = 483, .columns = k483},
    {.block = 484, .columns = k481},
    {.block = 485, .columns = k482},
    {.block = 486, .columns = k483},
    {.block = 502, .columns = k502},
    {.block = 503, .columns = k503},
    {.block = 504, .columns = k504},
    {.block = 505, .columns = k505},
    {.block = 506, .columns = k506},
    {.block = 507, .columns = k507, .headHeight = 45},
    {.block = 511, .columns = k511},
    {.block = 512, .columns = k512},
    {.block = 513, .columns = k513},
    {.block = 514, .columns = k514},
    {.block = 515, .columns = k515},
    {.block = 516, .columns = k516},
    {.block = 517, .columns = k517},
    {.block = 523, .columns = k523},
    {.block = 524, .columns = k524},
    {.block = 532, .columns = k532},
    {.block = 533, .columns = k533},
    {.block = 534, .columns = k534},
    {.block = 535, .columns = k535},
    {.block = 542, .columns = k542},
    {.block = 543, .columns = k543},
    {.block = 551, .columns = k551},
    {.block = 552, .columns = k552},
    {.block = 553, .columns = k553},
    {.block = 554, .columns = k554},
    {.block = 555, .columns = k555},
    {.block = 556, .columns = k556},
    {.block = 557, .columns = k557},
    {.block = 558, .columns = k558},
    {.block = 559, .columns = k559},
    {.block = 560, .columns = k560},
    {.block = 561, .columns = k561},
    {.block = 562, .columns = k562},
    {.block = 563, .columns = k563},
    {.block = 564, .columns = k564},
    {.block = 565, .columns = k565},
    {.block = 566, .columns = k566},
    {.block = 572, .columns = k572},
    {.block = 573, .columns = k573},
    {.block = 574, .columns = k574},
    {.block = 575, .columns = k575, .headHeight = 45},
    {.block = 576, .columns = k576},
    {.block = 577, .columns = k577},
    {.block = 578, .columns = k578},
    {.block = 579, .columns = k579, .headHeight = 60},
    {.block = 581, .columns = k581},
    {.block = 582, .columns = k582},
    {.block = 583, .columns = k583, .headHeight = 45},
    {.block = 602, .columns = k602},
    {.block = 603, .columns = k603, .headHeight = 45},
    {.block = 604, .columns = k604},
    {.block = 605, .columns = k605},
    {.block = 606, .columns = k606},
    {.block = 607, .columns = k607},
    {.block = 608, .columns = k608},
    {.block = 609, .columns = k609},
    {.block = 610, .columns = k610},
    {.block = 611, .columns = k611},
    {.block = 612, .columns = k612},
    {.block = 613, .columns = k613},
    {.block = 621, .columns = k621},
    {.block = 622, .columns = k622},
    {.block = 623, .columns = k623},
    {.block = 624, .columns = k624},
    {.block = 625, .columns = k625},
    {.block = 631, .columns = k631},
    {.block = 632, .columns = k632},
    {.block = 633, .columns = k633},
    {.block = 640, .columns = k640, .automaticRows = 0},
    {.block = 641, .columns = k641},
    {.block = 642, .columns = k642, .headHeight = 70},
    {.block = 643, .columns = k643},
    {.block = 644, .columns = k644, .headHeight = 45},
    {.block = 645, .columns = k645, .headHeight = 45},
    {.block = 646, .columns = k646},
    {.block = 647, .columns = k647},
    {.block = 648, .columns = k648},
    {.block = 649, .columns = k649},
    {.block = 651, .columns = k651},
    {.block = 652, .columns = k652, .headHeight = 45},
    {.block = 653, .columns = k653},
    {.block = 654, .columns = k654},
    {.block = 655, .columns = k655},
    {.block = 656, .columns = k656},
    {.block = 657, .columns = k657},
    {.block = 658, .columns = k658},
    {.block = 659, .columns = k659},
    {.block = 660, .columns = k660},
    {.block = 661, .columns = k661},
    {.block = 662, .columns = k662, .headHeight = 60},
    {.block = 665, .columns = k665},
    {.block = 666, .columns = k666},
    {.block = 668, .columns = k668},
    {.block = 669, .columns = k669},
    {.block = 670, .columns = k670, .automaticRows = 0},
    {.block = 671, .columns = k671, .headHeight = 45},
    {.block = 672, .columns = k672, .headHeight = 45},
    {.block = 673, .columns = k673},
    {.block = 674, .columns = k674, .headHeight = 45},
    {.block = 675, .columns = k675},
    {.block = 676, .columns = k676},
    {.block = 677, .columns = k677},
    {.block = 678, .columns = k678},
    {.block = 679, .columns = k679},
    {.block = 680, .columns = k680},
    {.block = 681, .columns = k681},
    {.block = 682, .columns = k682},
    {.block = 683, .columns = k683},
    {.block = 689, .columns = k689},
    {.block = 703, .columns = k703},
    {.block = 704, .columns = k704},
    {.block = 705, .columns = k705},
    {.block = 706, .columns = k706},
    {.block = 707, .columns = k707},
    {.block = 708, .columns = k708},
    {.block = 711, .columns = k711},
    {.block = 713, .columns = k713, .headHeight = 45},
    {.block = 723, .columns = k723, .headHeight = 45},
    {.block = 724, .columns = k724},
    {.block = 725, .columns = k725, .headHeight = 60},
    {.block = 726, .columns = k726},
    {.block = 731, .columns = k731},
    {.block = 734, .columns = k734},
    {.block = 735, .columns = k735},
    {.block = 741, .columns = k741},
    {.block = 742, .columns = k742},
    {.block = 743, .columns = k743},
    {.block = 744, .columns = k744},
    {.block = 745, .columns = k745, .headHeight = 45},
    {.block = 746, .columns = k746},
    {.block = 747, .columns = k747},
    {.block = 751, .columns = k751},
    {.block = 752, .columns = k752},
};

// The panels of records and name lists. In a section project, 311 offers "G" behind the girder names as well.

constexpr RawColumn k311[] = {
    {155, "〃\n主桁始\n〃", "", "@girders", kText, "\nG(固定)"},
    {100, "〃\n主桁終\n〃", "", "@girders", kText, "\nG(固定)"},
    {80, "〃\n横桁始\n〃", "", "@beams|左|右", kText, "\n左(固定)"},
    {80, "〃\n横桁終\n〃", "", "@beams|左|右", kText, "\n右(固定)"},
    {85, "桁高\n桁高始\n桁高始\n(m)", "", "", kText, "\n桁高(m)"},
    {85, "[DXL]\n桁高終\n桁高終\n(m)", "", "", kText, "\n---"},
    {85, "[DXR]\nDXB\nDXB\n(m)", "", "", kText, "\n---"},
    {85, "---\nDXE\nDXE\n(m)", "", "", kText, "\n---"},
    {95, "---\nX(-H)_LFLG\nX(-H)_LFLG\n(m)", "", "", kText, "\n---"},
    {90, "---\n---\nDZ_LFLG\n(m)", "", "", kText, "\n---"},
    {110, "---\n---\nX(-H)_UFLG\n(m)", "", "", kText, "\n---"},
};

constexpr RawColumn k324[] = {
    {80, "主桁始", "", "@girders"},
    {80, "主桁終", "", "@girders"},
    {80, "横桁始", "", "@beams"},
    {80, "横桁終", "", "@beams"},
    {70, "[U][L]FLG", "", "LFLG|UFLG|FLG"},
    {90, "Br1(mm)\n0=仮想横リブ"},
    {60, "Tr1\n(mm)"},
    {60, "Bf1\n(mm)"},
    {60, "Tf1\n(mm)"},
    {60, "本数n", "", "0|1|2|3|4|5|6|7|8|9"},
    {250, "左間隔(n個)       右側入力列あり --> \ndL1, dL2, ... dLn( 注意: 単位 m, 個数n )", "", "等間隔"},
    {300, "右間隔(n個)       右側入力列あり --> \ndR1, dR2, ... dRn( 注意: 単位 m, 個数n )", "", "等間隔|基準線"},
    {400, "[寸法2～寸法n]\n(Bri,Tri,Bfi,Tfi...mm)"},
};

constexpr RawColumn k325[] = {
    {80, "主桁始", "", "@girders"},
    {80, "主桁終", "", "@girders"},
    {80, "変化位置の\n左側横桁名", "", "@beams"},
    {80, "[U][L]FLG", "", "LFLG|UFLG|FLG"},
    {80, "変化位置の\n横リブ番号"},
    {80, "左側本数\nn1", "", "0|1|2|3|4|5|6|7|8|9"},
    {80, "右側本数\nn2", "", "0|1|2|3|4|5|6|7|8|9"},
    {200, "左側間隔(n1個)\n(mm)", "", "等間隔"},
    {200, "右側間隔(n2個)\n(mm)", "", "等間隔"},
};

constexpr RawColumn k501[] = {
    {120, "主桁名"},
    {120, "横桁(対傾構)名"},
    {120, "ライン"},
};

constexpr RawColumn k702[] = {
    {120, "主桁名"},
    {120, "横桁"},
    {120, "支承線"},
    {120, "箱桁"},
};

constexpr RawRecordPanel kRecordPanels[] = {
    {.block = 311, .numberHead = "311", .columns = k311, .headHeight = 50},
    {.block = 324, .numberHead = "324", .columns = k324},
    {.block = 325, .numberHead = "325", .columns = k325},
    {.block = 501, .numberHead = "501", .columns = k501},
    {.block = 702, .numberHead = "702\n(722)", .columns = k702},
};

// clang-format on

} // namespace

std::span<const RawPanel> RawPanels()
{
    return kPanels;
}

std::span<const RawRecordPanel> RawRecordPanels()
{
    return kRecordPanels;
}

} // namespace sbd
