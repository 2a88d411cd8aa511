#include "results/result_sheets.h"

namespace sbd {

std::vector<SheetItem> UsualItems()
{
    constexpr std::size_t moment = 4;
    constexpr std::size_t shear = 2;
    constexpr std::size_t deflection = 2;
    return {{ResultKind::Force, moment}, {ResultKind::Force, shear}, {ResultKind::Displacement, deflection}};
}

std::vector<ResultSheet> SheetsOfGirders(const ResultSelection& selection, std::span<const std::string> girders,
                                         std::span<const SheetItem> items)
{
    ResultSelection plain = selection;
    plain.offeredNames.clear(); // of the table
    plain.excludedNames.clear();
    std::vector<ResultSheet> sheets;
    for (const std::string& girder : girders) {
        ResultSheet sheet{girder, {}};
        for (const SheetItem& item : items) {
            ResultSelection& figure = sheet.figures.emplace_back(plain);
            figure.kind = item.kind;
            figure.girder = girder;
            figure.figureItem = ComponentWord(item.kind, item.component);
            if (item.kind != ResultKind::Force) {
                figure.load = PlainLoad(figure.load);
                figure.overLoad = PlainLoad(figure.overLoad);
            }
        }
        sheets.push_back(std::move(sheet));
    }
    return sheets;
}

std::string FigureName(const ResultSelection& figure)
{
    return KindWord(figure.kind) + " " + figure.figureItem;
}

} // namespace sbd
