#include "search/search_index.h"
#include "tests/search/engineer_questions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <string>

namespace sbd {

namespace {

int Number(std::string_view text)
{
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// Whether the place is one of "342 303:17": a block, or a row or column of it.
bool IsOneOf(const SearchPlace& place, std::string_view places)
{
    while (!places.empty()) {
        const std::size_t end = std::min(places.find(' '), places.size());
        const std::string_view one = places.substr(0, end);
        places.remove_prefix(std::min(end + 1, places.size()));
        const std::size_t colon = one.find(':');
        if (Number(one) == place.block && (colon == one.npos || Number(one.substr(colon + 1)) == place.row))
            return true;
    }
    return false;
}

bool IsAnswered(const EngineerQuestion& question)
{
    constexpr std::size_t first = 10;
    const SearchResult result = SearchIndex().Search(question.query, {});
    for (std::size_t i = 0; i < std::min(first, result.hits.size()); ++i)
        if (IsOneOf(result.hits[i]->place, question.places))
            return true;
    return false;
}

} // namespace

TEST(EngineerQuestions, OfAHundredAtLeast95HaveAnAnswerAmongTheFirstTenHits)
{
    std::size_t answered = 0;
    std::string not_answered;
    for (const EngineerQuestion& question : kEngineerQuestions) {
        if (IsAnswered(question))
            ++answered;
        else
            not_answered += "\n  " + std::string(question.query);
    }
    EXPECT_GE(answered * 100, std::size(kEngineerQuestions) * 95) << not_answered;
}

TEST(EngineerQuestions, WhatNoBridgeHasFindsNothingAndTellsWhatToTry)
{
    for (const char* line : {"寿司", "コーヒー", "xyzzy", "123456", "東京タワーの高さ", "あいうえお", "%s%n%s%n"}) {
        const SearchResult result = SearchIndex().Search(line, {});
        EXPECT_TRUE(result.hits.empty()) << line << ": " << result.hits.size();
        EXPECT_FALSE(result.tips.empty()) << line;
    }
}

} // namespace sbd
