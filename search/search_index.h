// CSearchIndex: everything that can be found, and the search in it.
#pragma once

#include "search/search_tables.h"

#include <cstddef>
#include <map>
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

/// Where a hit holds most of what was asked for; the order is that of their weight.
enum class HitField {
    Title,    ///< title of a block or topic
    Label,    ///< option label or head of a column, and the names that the file has for it
    Choice,   ///< a word of the cell's list
    Question, ///< a question or its answer
    Page,     ///< the help page
};

/// So many lines of notes and tips a result has at most.
inline constexpr std::size_t kMostNotes = 40;

/// What a search found.
struct SearchResult {
    std::string title; ///< with the number of hits; empty if there was no word to look for
    std::vector<const SearchEntry*> hits;
    std::vector<HitField> fields;   ///< one a hit
    std::vector<std::string> notes; ///< what was read as another word, and that not all words were found. UTF-8
    std::vector<std::string> tips;  ///< of a search that found nothing: what to try. UTF-8
};

/// The index of all topics, questions and input items, with the help pages that speak of them. Does not change once it is
/// made.
class CSearchIndex {
public:
    CSearchIndex();

    [[nodiscard]] const std::vector<SearchEntry>& Entries() const { return entries_; }
    /// The text by which entry `i` itself is found, as a skeleton.
    [[nodiscard]] std::u16string_view OwnText(std::size_t i) const { return texts_[i].own; }

    /// Looks for the words of a search line, best hits first. With all words asked for, each word stands in the entry, in
    /// the block around it, in its list of words or on its page, and one in the entry itself; where no entry has them all,
    /// those with most of them are given, and a note says so.
    [[nodiscard]] SearchResult Search(std::string_view line, SearchFlags flags) const;
    /// All questions, as the word "Q&A" lists them.
    [[nodiscard]] std::vector<const SearchEntry*> AllQuestions() const;

private:
    class Finder;
    struct Texts {
        std::u16string own;
        std::size_t titleSize = 0; // of `own`, from its beginning: what is listed
        double alike = 0;          // how many entries have the same title, as a logarithm
        std::size_t around = 0;    // places in the lists below
        std::size_t choices = 0;
        std::size_t page = 0;
    };

    using ChoicePlaces =
        std::map<std::string, std::size_t>; // lists of words that are known, by their place in choices_

    Texts& Add(EntryKind kind, SearchPlace place, std::string text, std::string_view title, std::string_view more);
    void AddTopics();
    void AddQuestions();
    void AddItems();
    void AddColumns(int block, std::size_t around, ChoicePlaces& places);
    void AddPages();
    void SetChoices(Texts& texts, const SearchPlace& place, std::string_view more, ChoicePlaces& places);
    void CountAlike();
    void CollectWords();

    std::vector<SearchEntry> entries_;
    std::vector<Texts> texts_;            // one an entry
    std::vector<std::u16string> around_;  // one a block; the first one is empty, as in the lists that follow
    std::vector<std::u16string> choices_; // each list of words once
    std::vector<std::u16string> pages_;   // of a block, or of some rows of it
    std::vector<std::u16string> words_;   // words without synonyms, for mistyped ones
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
