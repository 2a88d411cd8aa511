// The tables of the block tree. Laid out by hand: a line holds what belongs together.
#include "panelmodel/tree_rows_table.h"

namespace sbd {

// clang-format off

const std::vector<TreeGroup>& TreeGroups()
{
    static const std::vector<TreeGroup> groups = {
        {290, "", {{291, 296}, {391, 396}, {501, 504}}},
        {300, "", {{301, 316}, {321, 329}, {331, 344}, {351, 354}, {359, 359}}},
        {400, "400.製図[DRAWING]", {{401, 409}, {412, 413}, {421, 423}, {481, 486}}},
        {500, "500.CBD共通[CBD]", {{501, 507}, {511, 517}}},
        {520, "520.横桁対傾構[CROSS_SWAY]", {{521, 524}, {531, 535}, {541, 543}, {551, 567}}},
        {570, "570.下横構[LATERAL]", {{521, 522}, {571, 579}, {581, 584}}},
        {600, "600.FEM_全橋モデル[KELD_FEM]", {{601, 613}, {621, 625}, {631, 633}}},
        {640,
         "640.縦桁の設計(644高さは入力必須)[STRINGER]",
         {{640, 642}, {671, 671}, {643, 649}, {651, 662}, {665, 666}, {668, 669}}},
        {670, "670.ブラケットの設計(674高さは入力必須)[BRACKET]", {{670, 683}, {689, 689}}},
        {700,
         "700.支点上VS・ダイヤの設計[Support_Stiff_or_Diaphragm]",
         {{503, 503}, {701, 708}, {711, 714}, {721, 727}, {731, 735}, {741, 747}, {751, 752}}},
    };
    return groups;
}

const std::vector<ProjectKind>& ProjectKinds()
{
    static const std::vector<ProjectKind> kinds = {
        {"ブラケット", "290.横断線などの定義[SEC_INTERNAL_FORCE]", "300.ブラケット自動設計MAIN_CONTROL[MAIN_CONTROL]",
         "301.ブラケット_CONTROL[SEC_CONTROL](必要)", {290, 300, 670}, {{301, 301}, {501, 501}, {670, 699}, {999, 999}}},
        {"床組", "290.横断線・縦桁などの定義[SEC_INTERNAL_FORCE]", "300.床組自動設計MAIN_CONTROL[MAIN_CONTROL]",
         "301.床組_CONTROL[SEC_CONTROL](必要)", {290, 300, 640, 670}, {{301, 301}, {501, 501}, {640, 699}, {999, 999}}},
        {"縦桁", "290.横断線・縦桁などの定義[SEC_INTERNAL_FORCE]", "300.縦桁自動設計MAIN_CONTROL[MAIN_CONTROL]",
         "301.縦桁_CONTROL[SEC_CONTROL](必要)", {290, 300, 640}, {{301, 301}, {501, 501}, {640, 669}, {999, 999}}},
        {"断面", "290.断面のみ場合の断面力[SEC_INTERNAL_FORCE]", "300.断面のみ自動設計MAIN_CONTROL[MAIN_CONTROL]",
         "301.断面のみ設計条件_CONTROL[SEC_CONTROL](必要)", {290, 300},
         {{291, 296}, {301, 303}, {305, 305}, {311, 311}, {331, 332}, {999, 999}}},
        {"", "290.主桁単独・断面力[SEC_INTERNAL_FORCE]", "300.主桁自動設計MAIN_CONTROL[MAIN_CONTROL]",
         "301.主桁_CONTROL[SEC_CONTROL](必要)", {}, {}},
    };
    return kinds;
}

/// The box filter takes head 640 with it and stops short of 752: it has always been so.
const std::vector<FilteredItems>& FilteredItemTable()
{
    static const std::vector<FilteredItems> filters = {
        {TreeFilter::Plate, 0, {{701, 714}}},   {TreeFilter::Box, 640, {{721, 751}}},
        {TreeFilter::Cross, 520, {{521, 569}}}, {TreeFilter::Lateral, 570, {{571, 584}}},
        {TreeFilter::Fem, 600, {}},             {TreeFilter::Stringer, 640, {}},
        {TreeFilter::Bracket, 670, {}},         {TreeFilter::Support, 700, {}},
        {TreeFilter::Drawing, 400, {{401, 422}}},
    };
    return filters;
}

const std::vector<MarkRange>& MarkRanges()
{
    static const std::vector<MarkRange> ranges = {
        {MarkRule::MoreRowsAndNoAutomatic,
         1,
         {{314, 314}, {316, 316}, {327, 328}, {331, 337}, {341, 344}, {359, 359}, {391, 396}, {406, 406}, {408, 409},
          {412, 413}, {423, 423}, {481, 486}, {502, 504}, {506, 507}, {512, 517}, {523, 524}, {532, 532}, {534, 535},
          {542, 542}, {551, 561}, {563, 563}, {565, 567}, {573, 579}, {581, 584}, {602, 613}, {621, 625}, {631, 633},
          {641, 642}, {645, 649}, {651, 662}, {665, 666}, {668, 669}, {671, 671}, {673, 673}, {675, 683}, {689, 689},
          {703, 708}, {711, 711}, {713, 714}, {723, 727}, {731, 731}, {733, 735}, {741, 747}, {751, 752}}},
        {MarkRule::MoreRowsAndNoAutomatic, 2, {{643, 643}}},
        {MarkRule::MoreRowsAndNoAutomatic, 0, {{501, 501}, {702, 702}, {722, 722}}},
        {MarkRule::MoreRows,
         0,
         {{259, 259}, {291, 296}, {306, 307}, {312, 312}, {323, 323}, {325, 325}, {329, 329}, {351, 351}, {353, 354},
          {401, 401}, {404, 405}, {407, 407}, {422, 422}, {712, 712}, {732, 732}}},
        {MarkRule::MoreRows, 1, {{315, 315}, {403, 403}}},
        {MarkRule::MoreRows, 2, {{322, 322}, {402, 402}}},
        {MarkRule::MoreRows, 3, {{511, 511}, {672, 672}}},
        {MarkRule::MoreRows, 9, {{421, 421}}},
        {MarkRule::Always,
         0,
         {{301, 305}, {308, 311}, {313, 313}, {321, 321}, {324, 324}, {352, 352}, {521, 522}, {531, 531}, {533, 533},
          {541, 541}, {543, 543}, {571, 572}, {601, 601}, {640, 640}, {644, 644}, {670, 670}, {674, 674}}},
    };
    return ranges;
}

// clang-format on

} // namespace sbd
