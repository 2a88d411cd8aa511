// The search in the index: which entries hold what was asked for, and in which order they are shown.
#include "project/catalogue.h"
#include "project/text.h"
#include "search/fold.h"
#include "search/search_index.h"
#include "search/understand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace sbd {

namespace {

// What a place of a word is worth. Title, label and head first, the page last.
constexpr double kOwnTitle = 1.0;
constexpr double kOwnMore = 0.8; // names in the file, aliases of a block; answers
constexpr double kAnswer = 0.4;
constexpr double kAround = 0.6; // title of the block around an item
constexpr double kChoice = 0.55;
constexpr double kRowPage = 0.35;
constexpr double kBlockPage = 0.25;

constexpr double kWeakShare = 0.35;    // of a weak word against any other
constexpr double kLeastWeight = 1.0;   // of a word that nearly everything holds
constexpr double kMostWeight = 5.0;    // of a rare one
constexpr double kPageWeight = 2.5;    // of one that stands on pages alone
constexpr double kUnknownWeight = 4.0; // of one that nothing holds

constexpr double kInOrder = 0.3; // words stand side by side as they were typed
constexpr double kExact = 0.3;   // nothing but the words
constexpr double kWholeBlock = 0.15;
constexpr double kTopic = 0.08;
constexpr double kQuestion = -0.05; // an answer is read after the places
constexpr double kNumber = 2.0;     // the number of the block was typed
constexpr double kAlike = 0.06;     // for each doubling of the entries with the same title
constexpr double kAllInEntry = 1.0; // all words in the entry, its block or its list
constexpr double kAllWithPage = 0.4;
constexpr double kSameBlock = 0.04; // for each better hit of the same block

constexpr double kLeastCoverage = 0.4;  // of the asked words' weight, where not all are found
constexpr std::size_t kEnoughHits = 10; // with so many, what only a page speaks of is left out
constexpr std::size_t kFewHits = 5;     // with fewer, hits that lack a word follow

struct Weighed {
    SearchTerm term;
    std::vector<std::u16string> also; // words of the table that it begins or ends: 温度 of 温度差
    double weight = 0;
    bool known = false;
};

bool Holds(std::u16string_view text, const Weighed& word)
{
    return HoldsTerm(text, word.term.text)
           || std::ranges::any_of(word.also, [&](const std::u16string& also) { return text.find(also) != text.npos; });
}

struct Candidate {
    std::size_t entry = 0;
    double score = 0;
    double coverage = 0; // of the weights of words that are not weak
    bool hasAll = false;
    bool allInEntry = false; // none of them on the page alone
    bool pageOnly = false;
    HitField field = HitField::Label;
};

} // namespace

/// One search.
class CSearchIndex::Finder {
public:
    Finder(const CSearchIndex& index, std::string_view line, SearchFlags flags) : index_(index), flags_(flags)
    {
        for (const SearchTerm& term : SearchTerms(line))
            AddTerm(term);
        const bool onlyWeak = std::ranges::all_of(terms_, [](const Weighed& word) { return word.term.weak; });
        if (onlyWeak)
            std::erase_if(terms_, [](const Weighed& word) { return IsLoneSign(word.term.text); });
        for (Weighed& word : terms_) {
            if (onlyWeak)
                word.term.weak = false;
            if (word.term.weak)
                word.weight *= kWeakShare;
            else
                total_ += word.weight;
        }
    }

    void Run(SearchResult& result)
    {
        std::vector<Candidate> found = Candidates();
        const auto strict =
            static_cast<std::size_t>(std::ranges::count_if(found, [](const Candidate& hit) { return hit.allInEntry; }));
        const auto all = static_cast<std::size_t>(std::ranges::count(found, true, &Candidate::hasAll));
        // Where nothing else holds the words, the pages do.
        if (strict >= kEnoughHits)
            std::erase_if(found, &Candidate::pageOnly);
        if (flags_.allWords && strict >= kFewHits) {
            std::erase_if(found, [](const Candidate& hit) { return !hit.hasAll; });
        } else if (flags_.allWords && found.size() > all && terms_.size() > 1) {
            if (all == 0)
                notes_.push_back("全ての言葉を含む項目はありません。多くを含む項目から順に示します。");
            else
                notes_.push_back("全ての言葉を含む項目は" + std::to_string(all)
                                 + "件です。続けて、一部を含む項目を示します。");
        }
        Order(found);
        for (const Candidate& hit : found) {
            result.hits.push_back(&index_.entries_[hit.entry]);
            result.fields.push_back(hit.field);
        }
        result.notes = std::move(notes_);
        if (found.empty())
            result.tips = Tips();
    }

private:
    /// A single letter or digit says nothing by itself.
    static bool IsLoneSign(std::u16string_view text) { return text.size() == 1 && text[0] < 0x80; }

    /// Takes a word as it is, as the words it holds, or as the one that was meant.
    void AddTerm(const SearchTerm& term)
    {
        std::vector<std::u16string> also = LongerWords(term.text);
        std::size_t count = CountOf(term.text);
        for (const std::u16string& longer : also)
            count += CountOf(longer);
        if (count > 0) {
            Put(term, count, std::move(also));
            return;
        }
        if (const KnownWord* meant = NearSynonym(term.text)) {
            std::string name;
            for (const SearchTerm& part : meant->terms) {
                name += part.shown;
                Put(part, CountOf(part.text));
            }
            TellMeant(term.shown, name);
            return;
        }
        const auto near =
            std::ranges::find_if(index_.words_, [&](const std::u16string& word) { return IsNear(term.text, word); });
        if (near != index_.words_.end()) {
            const std::string name = SkeletonText(*near);
            Put({*near, name, false}, CountOf(*near));
            TellMeant(term.shown, name);
            return;
        }
        if (!Split(term))
            Put(term, 0);
    }

    /// The parts of a word that are known, where at least half of it is. The parts of what is left may be mistyped.
    bool Split(const SearchTerm& term)
    {
        constexpr std::size_t leastPart = 2;
        constexpr std::size_t longest = 24;
        const std::u16string& text = term.text;
        if (text.size() <= leastPart || text.size() > longest || text.front() < 0x80)
            return false; // names and numbers are what they are
        for (std::size_t size = text.size() - 1; size >= leastPart; --size) {
            for (std::size_t at = 0; at + size <= text.size(); ++at) {
                if (at > 0 && at + size < text.size())
                    continue; // a beginning or an end
                const std::u16string part = text.substr(at, size);
                if (CountOf(part) == 0)
                    continue;
                const std::u16string rest = at == 0 ? text.substr(size) : text.substr(0, at);
                const bool restCounts = rest.size() >= leastPart;
                if (size * 2 < text.size() && !restCounts)
                    return false;
                Put({part, SkeletonText(part), term.weak}, CountOf(part));
                if (restCounts)
                    AddTerm({rest, SkeletonText(rest), term.weak});
                return true;
            }
        }
        return false;
    }

    void Put(SearchTerm term, std::size_t count, std::vector<std::u16string> also = {})
    {
        const auto same = [&](const Weighed& word) { return word.term == term; };
        if (std::ranges::any_of(terms_, same))
            return;
        double weight = kUnknownWeight;
        if (count > 0)
            weight = std::clamp(std::log(1.0 + double(index_.entries_.size()) / double(count)), kLeastWeight,
                                also.empty() && OnPagesAlone(term.text) ? kPageWeight : kMostWeight);
        terms_.push_back({std::move(term), std::move(also), weight, count > 0});
    }

    void TellMeant(const std::string& typed, const std::string& meant)
    {
        notes_.push_back("「" + typed + "」は見つからないので、「" + meant + "」で検索しました。");
    }

    [[nodiscard]] bool OnPagesAlone(std::u16string_view term) const
    {
        return std::ranges::none_of(index_.texts_, [&](const Texts& texts) { return HoldsTerm(texts.own, term); })
               && std::ranges::none_of(index_.choices_,
                                       [&](const std::u16string& text) { return HoldsTerm(text, term); });
    }

    /// In how many entries or pages a word stands.
    [[nodiscard]] std::size_t CountOf(std::u16string_view term) const
    {
        std::size_t count = 0;
        for (const Texts& texts : index_.texts_)
            count += HoldsTerm(texts.own, term);
        if (count == 0)
            for (const std::u16string& text : index_.choices_)
                count += HoldsTerm(text, term);
        if (count == 0)
            for (const std::u16string& text : index_.pages_)
                count += HoldsTerm(text, term);
        return count;
    }

    /// The words of the table that a plain word begins or ends.
    [[nodiscard]] static std::vector<std::u16string> LongerWords(std::u16string_view word)
    {
        std::vector<std::u16string> longer;
        const bool kana = !word.empty() && word.front() < 0x3400;
        if (word.size() < (kana ? 3U : 2U) || word.front() < 0x80)
            return longer;
        for (const KnownWord& known : SynonymWords()) {
            const std::u16string_view spelling = known.spelling;
            if (known.terms.size() != 1 || (!spelling.starts_with(word) && !spelling.ends_with(word)))
                continue;
            if (std::ranges::find(longer, known.terms[0].text) == longer.end())
                longer.push_back(known.terms[0].text);
        }
        return longer;
    }

    [[nodiscard]] static const KnownWord* NearSynonym(std::u16string_view word)
    {
        const auto words = SynonymWords();
        const auto near =
            std::ranges::find_if(words, [&](const KnownWord& known) { return IsNear(word, known.spelling); });
        return near == words.end() ? nullptr : &*near;
    }

    // --- the entries ---------------------------------------------------------------------------------

    [[nodiscard]] std::vector<Candidate> Candidates() const
    {
        struct Places { // of one word in the shared texts
            std::vector<bool> around, choices, pages;
        };
        std::vector<Places> places;
        const auto mark = [](const std::vector<std::u16string>& texts, const Weighed& word) {
            std::vector<bool> holds;
            holds.reserve(texts.size());
            for (const std::u16string& text : texts)
                holds.push_back(Holds(text, word));
            return holds;
        };
        for (const Weighed& word : terms_)
            places.push_back(
                word.known ? Places{mark(index_.around_, word), mark(index_.choices_, word), mark(index_.pages_, word)}
                           : Places());
        std::vector<Candidate> found;
        for (std::size_t i = 0; i < index_.entries_.size(); ++i) {
            const SearchEntry& entry = index_.entries_[i];
            const bool item = entry.kind == EntryKind::Item;
            if (!(item ? flags_.items : flags_.topics))
                continue;
            const Texts& texts = index_.texts_[i];
            const std::u16string_view own = texts.own;
            const std::u16string_view title = own.substr(0, texts.titleSize);
            Candidate hit{.entry = i, .hasAll = true, .allInEntry = true};
            double sum = 0;
            double held = 0;      // weight of the words in the title
            std::size_t size = 0; // their characters there
            std::array<double, 5> byField{};
            bool inEntry = false;
            for (std::size_t t = 0; t < terms_.size(); ++t) {
                const Weighed& word = terms_[t];
                if (!word.known) {
                    hit.hasAll = hit.hasAll && word.term.weak;
                    continue;
                }
                double value = 0;
                HitField field = HitField::Page;
                if (Holds(title, word)) {
                    value = kOwnTitle;
                    field = entry.kind == EntryKind::Question ? HitField::Question
                            : item                            ? HitField::Label
                                                              : HitField::Title;
                    held += word.weight;
                    size += word.term.text.size();
                } else if (own.size() > title.size() && Holds(own.substr(texts.titleSize), word)) {
                    const bool answer = entry.kind == EntryKind::Question;
                    value = answer ? kAnswer : kOwnMore;
                    field = answer ? HitField::Question : item ? HitField::Label : HitField::Title;
                } else if (places[t].around[texts.around]) {
                    value = kAround;
                    field = HitField::Title;
                } else if (places[t].choices[texts.choices]) {
                    value = kChoice;
                    field = HitField::Choice;
                } else if (places[t].pages[texts.page]) {
                    value = entry.place.row == 0 ? kBlockPage : kRowPage;
                    hit.allInEntry = hit.allInEntry && word.term.weak;
                }
                if (value == 0) {
                    hit.hasAll = hit.hasAll && word.term.weak;
                    continue;
                }
                // The block around alone is no item.
                inEntry = inEntry || (value != kAround && field != HitField::Page && !word.term.weak);
                sum += word.weight * value;
                byField[static_cast<std::size_t>(field)] += word.weight;
                if (!word.term.weak)
                    hit.coverage += word.weight;
            }
            if (sum == 0 || hit.coverage == 0)
                continue;
            hit.pageOnly = !inEntry;
            hit.allInEntry = hit.allInEntry && hit.hasAll && inEntry;
            if (item && hit.pageOnly && texts.page == 0)
                continue;
            hit.coverage /= total_;
            if (!hit.hasAll && flags_.allWords && hit.coverage < kLeastCoverage)
                continue;
            hit.field = static_cast<HitField>(std::ranges::max_element(byField) - byField.begin());
            hit.score = sum / total_ + Bonus(entry, title, held, size) - kAlike * texts.alike;
            found.push_back(hit);
        }
        return found;
    }

    [[nodiscard]] double Bonus(const SearchEntry& entry, std::u16string_view title, double held, std::size_t size) const
    {
        double bonus = entry.kind == EntryKind::Question ? kQuestion
                       : entry.kind == EntryKind::Item   ? 0
                       : entry.place.row == 0            ? kWholeBlock
                                                         : kTopic;
        if (!title.empty())
            bonus += kExact * held / total_ * double(size) / double(title.size());
        std::size_t pairs = 0;
        for (std::size_t t = 1; t < terms_.size(); ++t)
            pairs += title.find(terms_[t - 1].term.text + terms_[t].term.text) != title.npos;
        if (terms_.size() > 1)
            bonus += kInOrder * double(pairs) / double(terms_.size() - 1);
        for (const Weighed& word : terms_)
            if (IsBlockNumber(word.term.text, entry))
                bonus += entry.kind == EntryKind::Topic && entry.place.row == 0 ? kNumber : kNumber / 2;
        return bonus;
    }

    [[nodiscard]] static bool IsBlockNumber(std::u16string_view text, const SearchEntry& entry)
    {
        if (text.size() != 3 || entry.kind == EntryKind::Question)
            return false;
        int number = 0;
        for (const char16_t c : text) {
            if (c < u'0' || c > u'9')
                return false;
            number = number * 10 + (c - u'0');
        }
        return CanonicalBlock(number) == entry.place.block;
    }

    /// Best first; further hits of a block step back, so that other blocks are seen too.
    void Order(std::vector<Candidate>& found) const
    {
        const auto better = [](const Candidate& a, const Candidate& b) { return a.score > b.score; };
        for (Candidate& hit : found)
            if (flags_.allWords && hit.hasAll)
                hit.score += hit.allInEntry ? kAllInEntry : kAllWithPage; // before those that lack a word
        std::ranges::stable_sort(found, better);
        std::array<int, 1000> seen{};
        for (Candidate& hit : found) {
            const int block = index_.entries_[hit.entry].place.block;
            if (block >= 0 && block < int(seen.size()))
                hit.score -= kSameBlock * std::min(seen[std::size_t(block)]++, 10);
        }
        std::ranges::stable_sort(found, better);
    }

    [[nodiscard]] std::vector<std::string> Tips() const
    {
        std::vector<std::string> tips;
        for (const Weighed& word : terms_)
            if (!word.known && terms_.size() > 1)
                tips.push_back("「" + word.term.shown
                               + "」は、どの項目にも説明にもありません。この言葉を外してみて下さい。");
        if (!flags_.topics || !flags_.items)
            tips.push_back("検索範囲が片方だけです。「基本項目に検索」と「入力項目に検索」の両方を選んでみて下さい。");
        tips.push_back("短い言葉(板厚、継手、ボルト、支点など)や、ブロックの番号(313など)で検索してみて下さい。");
        tips.push_back("「Q&A」と入力すると、質問と答えの一覧が出ます。");
        return tips;
    }

    const CSearchIndex& index_;
    SearchFlags flags_;
    std::vector<Weighed> terms_;
    std::vector<std::string> notes_;
    double total_ = 0;
};

SearchResult CSearchIndex::Search(std::string_view line, SearchFlags flags) const
{
    const std::string prefix = Fold(kSearchPrefix);
    std::string_view shown = Trim(line);
    if (Fold(shown).starts_with(prefix)) {
        // Wide or narrow, the prefix ends with its colon.
        const std::size_t colon = std::min(shown.find("："), shown.find(':'));
        shown.remove_prefix(colon + (shown[colon] == ':' ? 1 : std::string_view("：").size()));
        shown = Trim(shown);
    }
    SearchResult result;
    if (SearchWords(shown).empty())
        return result;
    constexpr std::size_t longestLine = 1000; // bytes that are looked at: a question has far less
    Finder(*this, shown.substr(0, longestLine), flags).Run(result);
    result.title = "「" + std::string(shown) + "」の検索結果：(計" + std::to_string(result.hits.size()) + "件)";
    return result;
}

} // namespace sbd
