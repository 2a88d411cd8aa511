#include "search/search_index.h"
#include "tools/search_command.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace sbd {

using nlohmann::json;

namespace {

json Printed(const std::vector<std::string>& arguments)
{
    const CommandResult result = RunSearch(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    return json::parse(result.output);
}

bool HasKind(const json& hits, std::string_view kind)
{
    return std::ranges::any_of(hits, [&](const json& hit) { return hit.at("kind") == kind; });
}

} // namespace

TEST(SearchCommand, PrintsTitleAndHitsWithTheirPlaces)
{
    const json found = Printed({"外側添接板", "分割"});
    EXPECT_EQ(found.at("title"), "「外側添接板 分割」の検索結果：(計" + found.at("count").dump() + "件)");
    EXPECT_EQ(found.at("hits").size(), found.at("count"));
    EXPECT_EQ(found.at("hits")[0], json({{"kind", "topic"},
                                         {"foundIn", "title"},
                                         {"text", "   外側添接板を分割 ---> 303の第1行"},
                                         {"block", 303},
                                         {"row", 1},
                                         {"column", 2}}));
}

TEST(SearchCommand, OptionsChooseScopeAndWords)
{
    const json all = Printed({"ボルト", "間隔"});
    const json any = Printed({"ボルト", "間隔", "--any"});
    const json topics = Printed({"ボルト", "間隔", "--topics"});
    const json items = Printed({"--items", "ボルト", "間隔"});
    EXPECT_LT(all.at("count"), any.at("count"));
    EXPECT_FALSE(HasKind(topics.at("hits"), "item"));
    EXPECT_TRUE(HasKind(items.at("hits"), "item"));
    EXPECT_FALSE(HasKind(items.at("hits"), "topic") || HasKind(items.at("hits"), "question"));
    EXPECT_EQ(Printed({"ボルト", "間隔", "--topics", "--items"}), all);
    EXPECT_EQ(topics.at("count").get<int>() + items.at("count").get<int>(), all.at("count").get<int>());
}

TEST(SearchCommand, NothingFoundIsAnAnswer)
{
    const json found = Printed({"どこにもない言葉"});
    EXPECT_EQ(found.at("count"), 0);
    EXPECT_TRUE(found.at("hits").empty());
}

TEST(SearchCommand, QuestionsComeWithAnswersAndPlaces)
{
    const json questions = Printed({"--qa"}).at("questions");
    ASSERT_EQ(questions.size(), Questions().size());
    for (const json& question : questions) {
        EXPECT_FALSE(question.at("answer").get<std::string>().empty());
        EXPECT_FALSE(question.at("places").empty());
    }
}

TEST(SearchCommand, ALineWithoutAWordFindsNothingAndIsNoFault)
{
    for (const char* line : {"", "  ", "、", "!?"}) {
        const json found = Printed({line});
        EXPECT_EQ(found.at("count"), 0) << line;
        EXPECT_EQ(found.at("hits"), json::array()) << line;
    }
}

TEST(SearchCommand, WrongUseIsTold)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--all", "桁"}, {"--qa", "桁"}, {"--items"}}) {
        const CommandResult result = RunSearch(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_NE(result.error.find("search"), std::string::npos);
    }
}

} // namespace sbd
