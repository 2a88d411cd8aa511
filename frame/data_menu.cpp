#include "frame/data_menu.h"

#include "project/catalogue.h"

namespace sbd {

std::span<const DataMenuPart> DataMenuParts()
{
    static const std::vector<DataMenuPart> parts = [] {
        std::vector<DataMenuPart> all = {
            {0, "", {253, 254, 255, 256, 259}},
            {290, "290.主桁単独・骨組単独・断面力[SEC_INTERNAL_FORCE]", {}},
            {300, "300.主桁(床組・断面)設計MAIN_CONTROL[MAIN_CONTROL]", {}},
            {400, "400.製図[DRAW]", {}},
            {500, "500.横桁対傾構横構共通[CBD_COMMON]", {}},
            {520, "520.横桁対傾構[CBD_CROSS_SWAY]", {}},
            {570, "570.下横構[CBD_LATERAL]", {}},
            {600, "600.FEM_全橋モデル[KELD_FEM]", {}},
            {640, "640.縦桁の設計[STRINGER]", {}},
            {670, "670.ブラケットの設計[BRACKET]", {}},
            {700, "700.支点上補剛材・ダイヤフラムの設計[SUPPORT_VSTIFF_OR_BOX_DAIGRAM]", {}},
            {0, "", {801, 481, 482, 483, 484, 485, 486}},
            {0, "", {999}},
        };
        for (DataMenuPart& part : all)
            if (part.group != 0)
                part.blocks = BlocksOfGroup(&CatalogueRow::menu, part.group);
        return all;
    }();
    return parts;
}

} // namespace sbd
