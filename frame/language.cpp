#include "frame/language.h"

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr LanguageMode kModes[] = {
    {Command::English, TitleLanguage::English, "English"},
    {Command::Japanese, TitleLanguage::Japanese, "Japanese"},
    {Command::EnglishAndJapanese, TitleLanguage::EnglishAndJapanese, "EnglishAndJapanese"},
};

} // namespace

std::span<const LanguageMode> LanguageModes()
{
    return kModes;
}

const LanguageMode& LanguageModeOf(TitleLanguage language)
{
    return *std::ranges::find(kModes, language, &LanguageMode::language);
}

const LanguageMode* LanguageModeOf(Command command)
{
    const auto* const mode = std::ranges::find(kModes, command, &LanguageMode::command);
    return mode == std::end(kModes) ? nullptr : mode;
}

QString DataEntryTitle(int number, bool group, std::string_view menuText, TitleLanguage language,
                       std::span<const TreeRow> tree)
{
    const auto row =
        std::ranges::find_if(tree, [=](const TreeRow& r) { return r.block == number && r.group == group; });
    const std::string title = row == tree.end() ? TitleIn(language, menuText) : row->text;
    return QString::fromStdString(title).trimmed().replace(u'&', u"&&"_s);
}

} // namespace sbd
