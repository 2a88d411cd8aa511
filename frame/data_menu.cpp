#include "frame/data_menu.h"

namespace sbd {

std::span<const DataMenuPart> DataMenuParts()
{
    static const std::vector<DataMenuPart> parts = {
        {"", {{253, 256}, {259, 259}}},
        {"290.主桁単独・骨組単独・断面力[SEC_INTERNAL_FORCE]", {{291, 296}, {391, 396}}},
        {"300.主桁(床組・断面)設計MAIN_CONTROL[MAIN_CONTROL]", {{301, 359}}},
        {"400.製図[DRAW]", {{401, 486}}},
        {"500.横桁対傾構横構共通[CBD_COMMON]", {{501, 517}}},
        {"520.横桁対傾構[CBD_CROSS_SWAY]", {{521, 567}}},
        {"570.下横構[CBD_LATERAL]", {{569, 584}}},
        {"600.FEM_全橋モデル[KELD_FEM]", {{601, 633}}},
        {"640.縦桁の設計[STRINGER]", {{640, 642}, {671, 671}, {643, 669}}},
        {"670.ブラケットの設計[BRACKET]", {{670, 689}}},
        {"700.支点上補剛材・ダイヤフラムの設計[SUPPORT_VSTIFF_OR_BOX_DAIGRAM]", {{701, 752}}},
        {"", {{801, 801}, {481, 486}}},
        {"", {{999, 999}}},
    };
    return parts;
}

} // namespace sbd
