#include "panelmodel/height_panel.h"
#include "panelmodel/name_panel.h"
#include "panelmodel/option_panel.h"
#include "panelmodel/panel_model.h"
#include "panelmodel/place_panel.h"
#include "panelmodel/rib_panel.h"
#include "panelmodel/table_panel.h"
#include "project/catalogue.h"
#include "project/option_rows.h"

namespace sbd {

int PanelBlock(int block)
{
    const int shown = BlockOnPanel(block);
    const bool hasGrid =
        (FindOptionBlock(shown) != nullptr) || FindRecordPanel(shown) != nullptr || FindPanelTable(shown) != nullptr;
    return hasGrid ? shown : 0;
}

std::unique_ptr<CPanelModel> MakePanelModel(const CSbdData& data, int block, const PanelSettings& settings)
{
    const int shown = PanelBlock(block);
    switch (shown) {
    case 0:
        return nullptr;
    case 301:
        return std::make_unique<CDown301Model>(data, settings);
    case 302:
        return std::make_unique<CDown302Model>(data, settings);
    case 311:
        return std::make_unique<CDown311Model>(data, settings);
    case 321:
    case 322:
        return std::make_unique<CPlacePanelModel>(data, shown, settings);
    case 324:
        return std::make_unique<CDown324Model>(data, settings);
    case 325:
        return std::make_unique<CDown325Model>(data, settings);
    case 501:
    case 702:
        return std::make_unique<CNameListModel>(data, shown, settings);
    default:
        break;
    }
    if (FindOptionBlock(shown) != nullptr)
        return std::make_unique<COptionPanelModel>(data, shown, settings);
    return data.Table(shown) != nullptr ? std::make_unique<CTablePanelModel>(data, shown, settings) : nullptr;
}

} // namespace sbd
