#include "document/box_web.h"

#include "document/section_doc.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

std::string Propose(const GridNames& names, const std::string& girder, char side)
{
    const std::string line = girder + side;
    return std::ranges::count(names.lineNames, line) > 0 ? line : NoWebChoice();
}

} // namespace

std::string NoWebChoice()
{
    return Cp932("仮想主桁・鈑桁");
}

BoxWebNames ProposeBoxWebs(const GridNames& names)
{
    BoxWebNames proposed;
    proposed.girderNames = names.girderNames;
    proposed.lineChoices = names.lineNames;
    proposed.lineChoices.push_back(NoWebChoice());
    for (const std::string& girder : names.girderNames) {
        proposed.leftNames.push_back(Propose(names, girder, 'L'));
        proposed.rightNames.push_back(Propose(names, girder, 'R'));
    }
    return proposed;
}

void CommitBoxWebRow(BoxWebNames& names, std::size_t row, std::string_view left, std::string_view right)
{
    if (left.empty() && right.empty())
        return;
    names.leftNames[row] = left;
    names.rightNames[row] = right;
}

bool AppendBoxWebs(const BoxWebNames& names, CKELDSectionDoc& doc)
{
    bool complete = true;
    std::vector<std::vector<std::string>> rows;
    for (std::size_t row = 0; row < names.girderNames.size(); ++row) {
        const std::string_view left = Trim(names.leftNames[row]);
        const std::string_view right = Trim(names.rightNames[row]);
        complete = complete && !left.empty() && !right.empty();
        rows.push_back({names.girderNames[row], std::string(left), std::string(right), "", ""});
    }
    if (!rows.empty())
        doc.AppendBoxWebs(rows);
    return complete;
}

QString BoxWebQuestion()
{
    return u"左右腹板名入力しない主桁があります．予想外結果になる可能性があります．"_s + u"\n\nそのまま継続しますか？"_s
           + u"\n\nはい　　=　仮想主桁以外は全部入力しました．まず実行を継続します．"_s
           + u"\n\nいいえ　=　入力画面に戻って，305など入力してから実行します．"_s;
}

bool BoxWebFlow(CKELDSectionDoc& doc, const BoxWebPrompts& prompts)
{
    BoxWebNames names = ProposeBoxWebs(doc.Data().gridNames);
    const bool complete = prompts.showSheet(names) && AppendBoxWebs(names, doc);
    return complete || prompts.ask(BoxWebQuestion());
}

} // namespace sbd
