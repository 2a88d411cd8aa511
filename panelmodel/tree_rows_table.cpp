// The tables of the block tree. Laid out by hand: a line holds what belongs together.
#include "panelmodel/tree_rows_table.h"

namespace sbd {

// clang-format off

const std::vector<TreeGroup>& TreeGroups()
{
    static const std::vector<TreeGroup> groups = {
        {290, ""},
        {300, ""},
        {400, "400.製図[DRAWING]"},
        {500, "500.CBD共通[CBD]"},
        {520, "520.横桁対傾構[CROSS_SWAY]"},
        {570, "570.下横構[LATERAL]"},
        {600, "600.FEM_全橋モデル[KELD_FEM]"},
        {640, "640.縦桁の設計(644高さは入力必須)[STRINGER]"},
        {670, "670.ブラケットの設計(674高さは入力必須)[BRACKET]"},
        {700, "700.支点上VS・ダイヤの設計[Support_Stiff_or_Diaphragm]"},
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
        {Command::HidePlate, TreeFilter::Plate, 0, {{701, 714}}},
        {Command::HideBox, TreeFilter::Box, 640, {{721, 751}}},
        {Command::HideCross, TreeFilter::Cross, 520, {{521, 569}}},
        {Command::HideLateral, TreeFilter::Lateral, 570, {{571, 584}}},
        {Command::HideFem, TreeFilter::Fem, 600, {}},
        {Command::HideStringer, TreeFilter::Stringer, 640, {}},
        {Command::HideBracket, TreeFilter::Bracket, 670, {}},
        {Command::HideSupport, TreeFilter::Support, 700, {}},
        {Command::HideDrawing, TreeFilter::Drawing, 400, {{401, 422}}},
    };
    return filters;
}

// clang-format on

} // namespace sbd
