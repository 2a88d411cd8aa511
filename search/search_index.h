// CSearchIndex: everything that can be found, and the search in it.
#pragma once

#include "search/search_tables.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

enum class EntryKind {
    Topic,    ///< a help topic, or the title of a block
    Question, ///< a question with its answer
    Item,     ///< an input item: an option row or a column of a table
};

/// The search flags of a session.
struct SearchFlags {
    bool allWords = true; ///< an entry must hold all words; false: one of them
    bool topics = true;   ///< look among help topics and questions
    bool items = true;    ///< look among input items
    friend bool operator==(const SearchFlags&, const SearchFlags&) = default;
};

/// One thing that can be found. Texts are UTF-8.
struct SearchEntry {
    EntryKind kind = EntryKind::Topic;
    SearchPlace place;
    std::string text;                   ///< as it is listed
    const Question* question = nullptr; ///< of a question
};

/// What a search found.
struct SearchResult {
    std::string title; ///< with the number of hits; empty if there was no word to look for
    std::vector<const SearchEntry*> hits;
};

/// The index of all topics, questions and input items. Does not change once it is made.
class CSearchIndex {
public:
    CSearchIndex();

    [[nodiscard]] const std::vector<SearchEntry>& Entries() const { return entries_; }
    /// The texts in which entry `i` is looked for, folded: its own, and those of the block around it. An entry is found
    /// if its own text holds a word; with all words asked for, the others may stand in the text around it.
    [[nodiscard]] std::string_view OwnText(std::size_t i) const { return texts_[i].own; }
    [[nodiscard]] std::string_view TextAround(std::size_t i) const { return around_[texts_[i].around]; }

    /// Looks for the words of a search line. Topics come first, then questions, then items in order of block.
    [[nodiscard]] SearchResult Search(std::string_view line, SearchFlags flags) const;
    /// All questions, as the word "Q&A" lists them.
    [[nodiscard]] std::vector<const SearchEntry*> AllQuestions() const;

private:
    class Needles;
    struct Texts {
        std::string own;
        std::size_t around = 0; // place in around_
    };

    void Add(EntryKind kind, SearchPlace place, std::string text, std::string_view own, std::size_t around);
    void AddTopics();
    void AddQuestions();
    void AddItems();
    void AddColumns(int block, std::size_t around);

    std::vector<SearchEntry> entries_;
    std::vector<Texts> texts_;        // one an entry
    std::vector<std::string> around_; // one a block; the first one is empty
};

/// The index of the program, made at the first call.
[[nodiscard]] const CSearchIndex& SearchIndex();

/// True if a search line asks for the list of questions.
[[nodiscard]] bool AsksForQuestions(std::string_view line);

/// Title of a block without its number: "垂直補剛材[SEC_V_STIFF](必要)".
[[nodiscard]] std::string BlockTitle(int block);

/// What a place is called: "303.継手設計設定　第2行　添接板5mm控え(YES_NO_控える量mm)",
/// of a table "331.WEB厚材質　材質". UTF-8.
[[nodiscard]] std::string PlaceText(const SearchPlace& place);

/// What the list of a cell offers; the names of a project's girders and beams stand as one word each. UTF-8.
[[nodiscard]] std::vector<std::string> ChoicesAt(const SearchPlace& place);

} // namespace sbd
