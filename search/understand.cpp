#include "search/understand.h"

#include "search/fold.h"
#include "search/synonyms.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>

namespace sbd {

namespace {

enum class Script { Kanji, Katakana, Hiragana, Latin, Digit, Divider };

struct Unit {
    char16_t c = 0;   // as it is compared; kana as large katakana
    char16_t raw = 0; // as it is written, width and case folded
    Script script = Script::Divider;
};
using Units = std::vector<Unit>;

constexpr char16_t kFirstWord = 0xE000; // private use: one character a row of synonyms
constexpr char16_t kLastWord = 0xF8FF;

bool IsWordCharacter(char16_t c)
{
    return c >= kFirstWord && c <= kLastWord;
}

bool IsLatin(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'α' && c <= u'ω');
}

bool IsDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

bool IsKanji(char16_t c)
{
    return (c >= 0x3400 && c <= 0x9FFF) || (c >= 0xF900 && c <= 0xFAFF) || c == u'々' || c == u'〆';
}

bool IsKatakana(char16_t c)
{
    return c >= u'ァ' && c <= u'ヺ';
}

bool IsHiragana(char16_t c)
{
    return c >= u'ぁ' && c <= u'ゖ';
}

/// Small kana as large ones, and what is written two ways for one sound.
char16_t Sound(char16_t katakana)
{
    constexpr std::u16string_view from = u"ァィゥェォッャュョヮヵヶヂヅヴヲ";
    constexpr std::u16string_view to = u"アイウエオツヤユヨワカケジズブオ";
    const std::size_t at = from.find(katakana);
    return at == from.npos ? katakana : to[at];
}

/// UTF-16 of UTF-8 as far as it goes; what lies beyond the first plane, and bytes that are none, divide words.
std::u16string Wide(std::string_view utf8)
{
    std::u16string wide;
    wide.reserve(utf8.size() / 2);
    const auto byte = [&](std::size_t i) { return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0U; };
    const auto tail = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    for (std::size_t i = 0; i < utf8.size();) {
        const unsigned lead = byte(i);
        if (lead < 0x80) {
            wide += static_cast<char16_t>(lead);
            i += 1;
        } else if (lead >= 0xC0 && lead < 0xE0 && tail(i + 1)) {
            wide += static_cast<char16_t>((lead & 0x1FU) << 6 | (byte(i + 1) & 0x3FU));
            i += 2;
        } else if (lead >= 0xE0 && lead < 0xF0 && tail(i + 1) && tail(i + 2)) {
            wide += static_cast<char16_t>((lead & 0x0FU) << 12 | (byte(i + 1) & 0x3FU) << 6 | (byte(i + 2) & 0x3FU));
            i += 3;
        } else {
            wide += u' ';
            i += 1;
        }
    }
    return wide;
}

std::string Narrow(std::u16string_view wide)
{
    std::string utf8;
    const auto put = [&](unsigned value) { utf8 += static_cast<char>(static_cast<unsigned char>(value)); };
    for (const char16_t c : wide) {
        if (c < 0x80) {
            put(c);
        } else if (c < 0x800) {
            put(0xC0U | c >> 6);
            put(0x80U | (c & 0x3FU));
        } else {
            put(0xE0U | c >> 12);
            put(0x80U | (c >> 6 & 0x3FU));
            put(0x80U | (c & 0x3FU));
        }
    }
    return utf8;
}

Units UnitsOf(std::string_view utf8)
{
    Units units;
    for (const char16_t c : Wide(Fold(utf8))) {
        if (c == u'ー' && !units.empty()
            && (units.back().script == Script::Katakana || units.back().script == Script::Hiragana))
            continue;
        Unit unit{c, c, Script::Divider};
        if (IsHiragana(c)) {
            unit.c = Sound(static_cast<char16_t>(c + (u'ァ' - u'ぁ')));
            unit.script = Script::Hiragana;
        } else if (IsKatakana(c)) {
            unit.c = Sound(c);
            unit.script = Script::Katakana;
        } else if (IsKanji(c)) {
            unit.script = Script::Kanji;
        } else if (IsLatin(c)) {
            unit.script = Script::Latin;
        } else if (IsDigit(c)) {
            unit.script = Script::Digit;
        }
        if (unit.c == u'ヤ' && !units.empty() && units.back().c == u'イ')
            unit.c = u'ア'; // ダイヤ, ダイア
        units.push_back(unit);
    }
    return units;
}

/// Hiragana that ends a word; none of them is okurigana between two kanji.
bool IsParticle(const Unit& unit)
{
    constexpr std::u16string_view particles = u"のをにはがとでもへやか";
    return unit.script == Script::Hiragana && particles.find(unit.raw) != particles.npos;
}

bool IsKana(const Unit& unit)
{
    return unit.script == Script::Hiragana || unit.script == Script::Katakana;
}

/// Signs that stand between the letters of a name: V.STIFF, L-RIB, SOLE_PL, sole plate.
bool JoinsLetters(const Unit& unit)
{
    constexpr std::u16string_view signs = u"._- ・/";
    return unit.script == Script::Divider && signs.find(unit.raw) != signs.npos;
}

/// Where `units` end if the word stands at `at`; 0: it does not.
std::size_t MatchEnd(const Units& units, std::size_t at, const Units& word)
{
    constexpr int mostOkurigana = 2;
    std::size_t end = at;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i].script == Script::Divider)
            continue;
        if (i > 0 && word[i].script == Script::Latin)
            while (end < units.size() && JoinsLetters(units[end]) && units[end - 1].script == Script::Latin)
                ++end;
        if (i > 0 && word[i].script != Script::Hiragana && word[i - 1].script == Script::Kanji)
            for (int n = 0; n < mostOkurigana && end < units.size() && units[end].script == Script::Hiragana
                            && !IsParticle(units[end]);
                 ++n)
                ++end;
        if (end >= units.size() || units[end].c != word[i].c)
            return 0;
        ++end;
    }
    const auto script = [&](std::size_t i) { return i < units.size() ? units[i].script : Script::Divider; };
    if (word.front().script == Script::Latin && at > 0 && script(at - 1) == Script::Latin)
        return 0;
    if (word.back().script == Script::Latin) {
        if (script(end) == Script::Latin && units[end].c == u's' && script(end + 1) != Script::Latin)
            ++end; // the plural
        if (script(end) == Script::Latin)
            return 0;
    }
    if (!std::ranges::all_of(word, IsKana))
        return end;
    // A short word of kana begins and ends with its script, or where a particle stands.
    constexpr std::size_t longKatakana = 3;
    constexpr std::size_t longHiragana = 4;
    if (word.size() >= (units[at].script == Script::Hiragana ? longHiragana : longKatakana))
        return end;
    const auto goesOn = [&](std::size_t i) { return script(i) == units[at].script && !IsParticle(units[i]); };
    return (at > 0 && goesOn(at - 1)) || goesOn(end) ? 0 : end;
}

class Dictionary {
public:
    Dictionary()
    {
        char16_t next = kFirstWord;
        for (const Synonyms& row : SynonymTable()) {
            if (!row.means.empty())
                continue;
            for (const std::string_view word : Split(row.words, '|'))
                Add(word, std::u16string(1, next));
            names_[next] = Split(row.words, '|').front();
            ++next;
        }
        // What is read as other words, when these are known.
        for (const Synonyms& row : SynonymTable()) {
            if (row.means.empty())
                continue;
            std::u16string meaning;
            for (const std::string_view word : Split(row.means, ' '))
                meaning += Text(UnitsOf(word));
            for (const std::string_view word : Split(row.words, '|'))
                Add(word, meaning);
        }
        for (const std::string_view word : WeakWords())
            weak_.push_back(Text(UnitsOf(word)));
        for (const auto& [first, words] : words_)
            for (const Word& word : words)
                known_.push_back({Spelling(word.units), TermsOf(word.meaning)});
    }

    /// The longest word at a place; null if there is none.
    [[nodiscard]] const std::u16string* Find(const Units& units, std::size_t at, std::size_t& end) const
    {
        const auto words = words_.find(units[at].c);
        if (words == words_.end())
            return nullptr;
        const std::u16string* found = nullptr;
        for (const Word& word : words->second) {
            const std::size_t wordEnd = MatchEnd(units, at, word.units);
            if (wordEnd > at && (found == nullptr || wordEnd > end)) {
                found = &word.meaning;
                end = wordEnd;
            }
        }
        return found;
    }

    [[nodiscard]] std::u16string Text(const Units& units) const
    {
        std::u16string text;
        for (std::size_t i = 0; i < units.size();) {
            std::size_t end = i;
            if (const std::u16string* meaning = Find(units, i, end)) {
                text += *meaning;
                i = end;
                continue;
            }
            const Unit& unit = units[i++];
            const bool endsLetters =
                unit.script == Script::Hiragana && !text.empty() && (IsLatin(text.back()) || IsDigit(text.back()));
            if (unit.script == Script::Divider || endsLetters) {
                if (!text.empty() && text.back() != u' ')
                    text += u' ';
            } else if (unit.script != Script::Hiragana) {
                text += unit.c;
            }
        }
        return text;
    }

    [[nodiscard]] bool IsWeak(std::u16string_view text) const { return std::ranges::find(weak_, text) != weak_.end(); }
    [[nodiscard]] std::string NameOf(char16_t c) const
    {
        const auto name = names_.find(c);
        return name == names_.end() ? Narrow({&c, 1}) : std::string(name->second);
    }
    [[nodiscard]] std::span<const KnownWord> Known() const { return known_; }

    [[nodiscard]] std::vector<SearchTerm> TermsOf(std::u16string_view meaning) const
    {
        std::vector<SearchTerm> terms;
        std::u16string plain;
        const auto put = [&](std::u16string text) {
            if (text.empty())
                return;
            std::string shown;
            for (const char16_t c : text)
                shown += NameOf(c);
            const bool weak = IsWeak(text);
            terms.push_back({std::move(text), std::move(shown), weak});
        };
        for (const char16_t c : meaning) {
            if (IsWordCharacter(c)) {
                put(std::exchange(plain, {}));
                put(std::u16string(1, c));
            } else {
                plain += c;
            }
        }
        put(std::move(plain));
        return terms;
    }

private:
    struct Word {
        Units units;
        std::u16string meaning;
    };

    static std::vector<std::string_view> Split(std::string_view text, char divider)
    {
        std::vector<std::string_view> parts;
        while (!text.empty()) {
            const std::size_t end = std::min(text.find(divider), text.size());
            parts.push_back(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        return parts;
    }
    static std::u16string Spelling(const Units& units)
    {
        std::u16string spelling;
        for (const Unit& unit : units)
            spelling += unit.c;
        return spelling;
    }
    void Add(std::string_view word, std::u16string meaning)
    {
        Units units = UnitsOf(word);
        const char16_t first = units.front().c;
        words_[first].push_back({std::move(units), std::move(meaning)});
    }

    std::unordered_map<char16_t, std::vector<Word>> words_; // by first character
    std::map<char16_t, std::string_view> names_;
    std::vector<std::u16string> weak_;
    std::vector<KnownWord> known_;
};

const Dictionary& Words()
{
    static const Dictionary dictionary;
    return dictionary;
}

/// Puts the terms of a line together.
class TermReader {
public:
    explicit TermReader(Units units) : units_(std::move(units)) {}

    std::vector<SearchTerm> Read()
    {
        for (std::size_t i = 0; i < units_.size() && terms_.size() < kMostTerms;) {
            std::size_t end = i;
            if (const std::u16string* meaning = Words().Find(units_, i, end)) {
                EndRun(false);
                for (SearchTerm& term : Words().TermsOf(*meaning))
                    Put(std::move(term));
                i = end;
                continue;
            }
            i = TakePlain(i);
        }
        EndRun(false);
        return std::move(terms_);
    }

private:
    static constexpr std::size_t kMostTerms = 24;

    std::size_t TakePlain(std::size_t at)
    {
        const Unit& unit = units_[at];
        if (unit.script == Script::Divider) {
            EndRun(false);
            return at + 1;
        }
        if (unit.script == Script::Hiragana)
            return TakeHiragana(at);
        const bool goesOn =
            run_.empty() || script_ == unit.script || (script_ == Script::Latin && unit.script == Script::Digit);
        if (!goesOn)
            EndRun(false);
        if (run_.empty())
            script_ = unit.script;
        run_ += unit.c;
        shown_ += unit.raw;
        return at + 1;
    }

    /// Okurigana between two kanji join them; any other hiragana ends a word, and a lone kanji before it is a verb.
    std::size_t TakeHiragana(std::size_t at)
    {
        constexpr std::size_t mostOkurigana = 2;
        std::size_t end = at;
        bool particle = false;
        while (end < units_.size() && units_[end].script == Script::Hiragana) {
            particle = particle || IsParticle(units_[end]);
            ++end;
        }
        const bool kanjiBefore = !run_.empty() && script_ == Script::Kanji;
        const bool joins = kanjiBefore && end < units_.size() && units_[end].script == Script::Kanji
                           && end - at <= mostOkurigana && !particle;
        if (!joins)
            EndRun(kanjiBefore && !IsParticle(units_[at]));
        // A word of the table may begin inside of what follows: one step at a time.
        return joins ? end : at + 1;
    }

    void EndRun(bool verb)
    {
        std::u16string text = std::exchange(run_, {});
        const std::string shown = Narrow(std::exchange(shown_, {}));
        if (text.empty())
            return;
        const bool one = text.size() == 1;
        if (one && script_ == Script::Kanji && IsAskingStem(text[0]))
            return;
        const bool weak = Words().IsWeak(text) || (one && (verb || script_ != Script::Kanji));
        Put({std::move(text), shown, weak});
    }

    void Put(SearchTerm term)
    {
        if (std::ranges::find(terms_, term) == terms_.end())
            terms_.push_back(std::move(term));
    }

    Units units_;
    std::vector<SearchTerm> terms_;
    std::u16string run_;
    std::u16string shown_;
    Script script_ = Script::Divider;
};

/// Edits of one letter: one other, one more, one less, two exchanged.
bool OneEdit(std::u16string_view a, std::u16string_view b)
{
    std::size_t head = 0;
    while (head < std::min(a.size(), b.size()) && a[head] == b[head])
        ++head;
    const std::u16string_view restA = a.substr(head);
    const std::u16string_view restB = b.substr(head);
    if (restA.size() == restB.size()) {
        if (restA.substr(1) == restB.substr(1))
            return true;
        return restA.size() >= 2 && restA[0] == restB[1] && restA[1] == restB[0] && restA.substr(2) == restB.substr(2);
    }
    return restA.size() + 1 == restB.size()   ? restA == restB.substr(1)
           : restA.size() == restB.size() + 1 ? restA.substr(1) == restB
                                              : false;
}

/// The kana without its mark of voice.
char16_t Voiceless(char16_t kana)
{
    constexpr std::u16string_view voiced = u"ガギグゲゴザジズゼゾダヂヅデドバビブベボパピプペポ";
    constexpr std::u16string_view plain = u"カキクケコサシスセソタチツテトハヒフヘホハヒフヘホ";
    const std::size_t at = voiced.find(kana);
    return at == voiced.npos ? kana : plain[at];
}

bool SameButForVoice(std::u16string_view a, std::u16string_view b)
{
    return std::ranges::equal(a, b, {}, Voiceless, Voiceless);
}

std::optional<Script> ScriptOf(std::u16string_view word)
{
    if (std::ranges::all_of(word, IsKanji))
        return Script::Kanji;
    if (std::ranges::all_of(word, IsKatakana))
        return Script::Katakana;
    if (std::ranges::all_of(word, IsLatin))
        return Script::Latin;
    return std::nullopt;
}

} // namespace

std::u16string Skeleton(std::string_view utf8)
{
    return Words().Text(UnitsOf(utf8));
}

std::vector<SearchTerm> SearchTerms(std::string_view utf8)
{
    return TermReader(UnitsOf(utf8)).Read();
}

bool HoldsTerm(std::u16string_view skeleton, std::u16string_view term)
{
    constexpr std::size_t longPrefix = 4; // letters may go on behind it
    if (term.empty())
        return false;
    const auto sameKind = [](char16_t a, char16_t b) {
        return (IsLatin(a) && IsLatin(b)) || (IsDigit(a) && IsDigit(b));
    };
    for (std::size_t at = skeleton.find(term); at != skeleton.npos; at = skeleton.find(term, at + 1)) {
        const std::size_t end = at + term.size();
        const bool begins = at == 0 || !sameKind(skeleton[at - 1], term.front());
        const bool ends = end == skeleton.size() || !sameKind(skeleton[end], term.back())
                          || (IsLatin(term.back()) && term.size() >= longPrefix);
        if (begins && ends)
            return true;
    }
    return false;
}

std::span<const KnownWord> SynonymWords()
{
    return Words().Known();
}

bool IsNear(std::u16string_view word, std::u16string_view known)
{
    constexpr std::size_t longest = 24;
    const std::optional<Script> script = ScriptOf(word);
    if (!script || script != ScriptOf(known) || word.size() > longest || word == known)
        return false;
    switch (*script) {
    case Script::Kanji: // another character of the same reading
        return word.size() >= 3 && word.size() == known.size() && OneEdit(word, known);
    case Script::Katakana:
        if (word.size() >= 4 && known.size() >= 4)
            return OneEdit(word, known);
        if (word.size() == 3 && known.size() == 3)
            return SameButForVoice(word, known) || (word[0] == known[0] && word[1] == known[2] && word[2] == known[1]);
        return word.size() == 3 && known.size() == 4 && word.front() == known.front() && OneEdit(word, known);
    default:
        return word.size() >= 4 && known.size() >= 4 && word.front() == known.front() && OneEdit(word, known);
    }
}

std::vector<std::u16string> PlainRuns(std::u16string_view skeleton)
{
    const auto script = [](char16_t c) { return IsKanji(c) ? 1 : IsKatakana(c) ? 2 : IsLatin(c) ? 3 : 0; };
    std::vector<std::u16string> runs;
    int last = 0;
    for (const char16_t c : skeleton) {
        const int now = script(c);
        if (now != 0 && now == last)
            runs.back() += c;
        else if (now != 0)
            runs.emplace_back(1, c);
        last = now;
    }
    return runs;
}

std::string SkeletonText(std::u16string_view skeleton)
{
    std::string text;
    for (const char16_t c : skeleton)
        text += Words().NameOf(c);
    return text;
}

} // namespace sbd
