// What the search knows beside the tables of the blocks: help topics, ready-made searches, questions and answers.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace sbd {

/// A cell to jump to: canonical block, grid row and column. Row 0: the block as it was left.
struct SearchPlace {
    int block = 0;
    int row = 0;
    int column = 0;
    friend bool operator==(const SearchPlace&, const SearchPlace&) = default;
};

/// True if a jump can go there: 301 to 998.
[[nodiscard]] constexpr bool IsJumpBlock(int block)
{
    return block >= 301 && block <= 998;
}

/// One help topic. Texts are UTF-8.
struct HelpTopic {
    std::string_view key; ///< two digits of the row, two of the column, three of the block: "01-02-303"
    std::string_view title;
    std::string_view arrow = " ---> ";
};

/// The topics in the order of their blocks.
[[nodiscard]] std::span<const HelpTopic> HelpTopics();
/// The three numbers of a key.
[[nodiscard]] SearchPlace PlaceOfKey(std::string_view key);
/// A topic as it is shown: "   外側添接板を分割 ---> 303の第1行".
[[nodiscard]] std::string TopicText(const HelpTopic& topic);

/// Beginning of a ready-made search.
inline constexpr std::string_view kSearchPrefix = "検索：";
/// What is put into the search line to list all questions.
inline constexpr std::string_view kQuestionsWord = "Q&A";
/// The words of the ready-made searches, without the prefix.
[[nodiscard]] std::span<const std::string_view> ReadyMadeWords();

/// A question that engineers ask of the system. Texts are UTF-8.
struct Question {
    std::string_view question;           ///< with its "Q."
    std::string_view answer;             ///< lines are divided by "\n"
    std::span<const SearchPlace> places; ///< the input that it speaks of; the first one is where a jump goes
};
[[nodiscard]] std::span<const Question> Questions();

} // namespace sbd
