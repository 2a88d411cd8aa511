#include "check/file_findings.h"

#include "check/encoding.h"
#include "check/list_columns.h"
#include "compare/difference_text.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/layout.h"
#include "sbdfile/line_reader.h"
#include "sbdfile/reader.h"

#include <algorithm>
#include <map>
#include <set>

namespace sbd {

namespace {

using namespace literals;

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return lower;
}

/// "sec_group" of "[SEC_GROUP] 323", "[END SEC_GROUP]" and "[END_SEC_GROUP"; empty for a bare "[END]".
std::string TagOf(std::string_view line)
{
    std::string tag = Lower(line.substr(0, line.find_first_of("] ", line.starts_with("[END ") ? 5 : 0)));
    for (const std::string_view before : {"[end_", "[end ", "[end", "["})
        if (tag.starts_with(before))
            return tag.substr(before.size());
    return tag;
}

/// The blocks whose section an end line may close, by its tag.
const std::multimap<std::string, int, std::less<>>& BlocksOfTag()
{
    static const std::multimap<std::string, int, std::less<>> blocks = [] {
        std::set<std::pair<std::string, int>> pairs;
        for (const CatalogueRow& row : Catalogue()) {
            for (const std::string_view prefix : row.prefixes)
                if (!prefix.empty())
                    pairs.emplace(TagOf(prefix), row.block);
            if (!row.tag.empty())
                pairs.emplace(Lower(row.tag), row.block);
        }
        for (const SectionLayout& layout : SectionLayouts())
            pairs.emplace(TagOf(layout.end), layout.block);
        for (const OptionBlock& block : OptionBlocks())
            pairs.emplace(TagOf(block.end), block.block);
        return std::multimap<std::string, int, std::less<>>(pairs.begin(), pairs.end());
    }();
    return blocks;
}

bool IsTagOf(std::string_view tag, int block)
{
    const auto [first, last] = BlocksOfTag().equal_range(tag);
    return std::any_of(first, last, [block](const auto& entry) { return entry.second == block; });
}

/// The block whose header this would be with its letters in the right case; 0: none.
int BlockBesideCase(std::string_view header)
{
    const std::string lower = Lower(header.substr(0, header.find(' ')));
    for (const CatalogueRow& row : Catalogue())
        for (const std::string_view prefix : row.prefixes)
            if (!prefix.empty() && lower.starts_with(Lower(prefix)))
                return row.block;
    const auto found = BlocksOfTag().find(TagOf(header));
    return found == BlocksOfTag().end() ? 0 : found->second;
}

/// How many lines of an option block set the same row: as many as the rows that share its key.
std::size_t LinesOfOption(const OptionBlock& block, std::size_t row)
{
    constexpr int lastOfFirstOnly = 303;
    if (block.block <= lastOfFirstOnly)
        return 1;
    return static_cast<std::size_t>(std::ranges::count(block.rows, block.rows[row].shortKey, &OptionRow::shortKey));
}

/// The sentence of a kind: what stands there is put in front of it.
struct Sentence {
    FindingKind kind;
    std::string_view text;
};
constexpr Sentence kSentences[] = {
    {FindingKind::UnterminatedSection,
     "この区分には終わりの行([END ...])がありません。次の終わりの行までがこの区分の行として読まれます。区分の最後に終わりの行を"
     "入れてください。"},
    {FindingKind::SwallowedHeader,
     "区分の見出しですが、前の区分が終わっていないため、その区分の行として読まれます。終わりの行までのデータは見出しのブロックに"
     "入りません。この行の前に [END ...] の行を入れてください。"},
    {FindingKind::StrayEnd,
     "どの区分にも属さない終わりの行です。「]」のある行は未知の区分の始まりとして扱われ、次の終わりの行までが読まれません。"
     "この行を消すか、区分の見出しを補ってください。"},
    {FindingKind::UnknownSection,
     "本システムの知らない区分です。内容は読まれませんが、保存するときにそのまま書き戻されます。"},
    {FindingKind::SectionTwice,
     "このブロックの区分は前にもあります。行は前の区分の後ろに追加されるか、前の値を置き換えます。一つにまとめてください。"},
    {FindingKind::OptionTwice,
     "この項目には前の行で値が入っています。後の行の値だけが残ります。不要な行を消してください。"},
    {FindingKind::TitleTwice, "題名の行は前にもあります。最後の題名だけが残ります。不要な行を消してください。"},
    {FindingKind::UnknownOptionRow,
     "このブロックにない項目名なので読まれず、保存すると失われます。項目名を確かめてください。"},
    {FindingKind::OptionWithoutValue,
     "値がないので、この項目は初期値になります。値を入れるか、初期値でよいか確かめてください。"},
    {FindingKind::NamesBeyondCount,
     "名称が個数より多いか、個数がありません。余った名称は読まれず、保存すると失われます。個数を直してください。"},
    {FindingKind::NamesWithoutHeading,
     "見出し(主桁など)の前か、個数に達した後ろの行なので読まれず、保存すると失われます。見出しと個数を確かめてください。"},
    {FindingKind::TokensBeyondRow,
     "この行には、入る欄のない語があります。その語は読まれず、保存すると失われます。行の語の数を直してください。"},
    {FindingKind::LineTooManyCells,
     "この行の語は列より多く、最後の列に二つ以上の語が入ります。語の数とカンマを確かめてください。"},
    {FindingKind::LineOutside,
     "どの区分にも属さない行なので読まれず、保存すると失われます。区分の見出しの下に入れてください。"},
};

std::string TextOf(FindingKind kind, std::string_view line)
{
    return Quoted(line) + ": " + std::string(std::ranges::find(kSentences, kind, &Sentence::kind)->text);
}

class Follower : public CReadObserver {
public:
    /// Lines for which `isForeign` holds are not judged: their words are no words.
    Follower(FindingList& findings, const std::set<std::size_t>& foreignLines)
        : findings_(findings)
        , foreignLines_(foreignLines)
    {
    }

    [[nodiscard]] bool AnyKnownSection() const { return !opened_.empty(); }

    void Met(const ReadEvent& event) override
    {
        switch (event.step) {
        case ReadStep::Title:
            if (titles_++ > 0)
                Tell(FindingKind::TitleTwice, event.line, event.text, 301, 1, 2);
            break;
        case ReadStep::SectionOpens:
            Open(event);
            if (!opened_.insert(event.block).second)
                Tell(FindingKind::SectionTwice, event.line, event.text, event.block);
            break;
        case ReadStep::UnknownOpens:
            Open(event);
            isStray_ = event.text.starts_with("[E");
            Tell(isStray_ ? FindingKind::StrayEnd : FindingKind::UnknownSection, event.line, event.text,
                 isStray_ ? 0 : BlockBesideCase(event.text));
            break;
        case ReadStep::SectionEnds:
            if (EndsAnother(event.text))
                TellUnterminated();
            break;
        case ReadStep::FileEnds:
            TellUnterminated();
            break;
        case ReadStep::Outside:
            Tell(event.text.starts_with("[E") ? FindingKind::StrayEnd : FindingKind::LineOutside, event.line,
                 event.text);
            break;
        case ReadStep::Line:
        case ReadStep::UnknownLine:
            StartLine(event);
            break;
        default:
            if (swallowed_.empty()) // the lines behind a header that is no header tell nothing of their own
                MetInside(event);
            break;
        }
    }

private:
    void Tell(FindingKind kind, std::size_t line, std::string_view text, int block = 0, int row = 0, int column = 0)
    {
        if (!foreignLines_.contains(line))
            findings_.Add({kind, line, block, row, column, TextOf(kind, text), {}, {}});
    }

    void Open(const ReadEvent& event)
    {
        block_ = event.block;
        headerLine_ = event.line;
        header_ = event.text;
        isStray_ = false;
        swallowed_.clear();
        innerTags_.clear();
        optionLines_.clear();
        optionLine_ = 0;
    }

    void TellUnterminated()
    {
        if (!isStray_)
            Tell(FindingKind::UnterminatedSection, headerLine_, header_, block_);
    }

    /// True if the end line is that of a section that begins further down.
    [[nodiscard]] bool EndsAnother(std::string_view endLine) const
    {
        const std::string tag = TagOf(endLine);
        const bool isOwn = block_ != 0 ? IsTagOf(tag, block_) : tag == TagOf(header_);
        if (isOwn)
            return swallowed_.contains(block_);
        return !swallowed_.empty() || innerTags_.contains(tag) || BlocksOfTag().contains(tag);
    }

    void StartLine(const ReadEvent& event)
    {
        static const std::string automatic = "自動"_cp932;
        line_ = event.text;
        isControlRow_ = line_.starts_with(automatic);
        if (!line_.starts_with('['))
            return;
        if (const int opened = BlockOfHeaderLine(line_); opened != 0) {
            Tell(FindingKind::SwallowedHeader, event.line, line_, block_);
            swallowed_.insert(opened);
        } else if (line_.find(']') != std::string::npos) {
            innerTags_.insert(TagOf(line_));
        }
    }

    void MetInside(const ReadEvent& event)
    {
        switch (event.step) {
        case ReadStep::Row:
            if (!isControlRow_ && !LastColumnTakesWords(event.block) && SplitWords(event.text).size() > 1)
                Tell(FindingKind::LineTooManyCells, event.line, line_, event.block);
            break;
        case ReadStep::OptionValue:
            MetOptionValue(event);
            break;
        case ReadStep::NoOption:
            Tell(FindingKind::UnknownOptionRow, event.line, line_, event.block);
            break;
        case ReadStep::NoValue:
            MetNoValue(event);
            break;
        case ReadStep::Surplus:
            Tell(FindingKind::TokensBeyondRow, event.line, line_, event.block);
            break;
        case ReadStep::NamesBeyond:
            Tell(FindingKind::NamesBeyondCount, event.line, line_, event.block);
            break;
        case ReadStep::NamesOutside:
            Tell(FindingKind::NamesWithoutHeading, event.line, line_, event.block);
            break;
        default:
            break;
        }
    }

    void MetOptionValue(const ReadEvent& event)
    {
        const std::size_t row = static_cast<std::size_t>(event.row);
        if (++optionLines_[row] <= LinesOfOption(*FindOptionBlock(event.block), row) || optionLine_ == event.line)
            return;
        optionLine_ = event.line; // a line that sets several rows is told once
        Tell(FindingKind::OptionTwice, event.line, line_, event.block, event.row + 1, 2);
    }

    void MetNoValue(const ReadEvent& event)
    {
        if (event.row < 0)
            return Tell(FindingKind::UnknownOptionRow, event.line, line_, event.block);
        if (!FindOptionBlock(event.block)->rows[static_cast<std::size_t>(event.row)].defaultValue.empty())
            Tell(FindingKind::OptionWithoutValue, event.line, line_, event.block, event.row + 1, 2);
    }

    FindingList& findings_;
    const std::set<std::size_t>& foreignLines_;
    std::size_t titles_ = 0;
    std::set<int> opened_;
    // The open section.
    int block_ = 0;
    std::size_t headerLine_ = 0;
    std::string header_;
    bool isStray_ = false;
    std::set<int> swallowed_;         // blocks whose headers were read as rows
    std::set<std::string> innerTags_; // of lines that look like headers
    std::map<std::size_t, std::size_t> optionLines_;
    std::size_t optionLine_ = 0;
    // The line.
    std::string line_;
    bool isControlRow_ = false;
};

std::string_view EncodingText(const EncodingGuess& guess)
{
    if (guess.encoding == Encoding::Utf16)
        return "このファイルは UTF-16 です。プロジェクトとして読めません。Shift-JIS(CP932)で保存し直してください。";
    return guess.wholeText
               ? "このファイルは UTF-8 です。日本語が文字化けします。Shift-JIS(CP932)で保存し直してください。"
               : "この行は UTF-8 です。日本語が文字化けします。Shift-JIS(CP932)に直してください。";
}

std::string_view NoProjectText(std::string_view bytes, const EncodingGuess& guess)
{
    if (bytes.empty())
        return "ファイルが空です。読み込むと何も入っていないプロジェクトになります。ファイルを確かめてください。";
    if (guess.encoding == Encoding::Binary)
        return "文字でないデータ(0のバイト)を含んでいます。プロジェクトのファイルではありません。ファイルを確かめてください。";
    return "本システムの知る区分が一つもありません。プロジェクトのファイルではないので、読み込んでもデータは入りません。"
           "ファイルを確かめてください。";
}

std::set<std::size_t> Utf8Lines(std::string_view bytes)
{
    std::set<std::size_t> numbers;
    CLineReader lines(bytes);
    std::string_view line;
    while (lines.Next(line))
        if (IsUtf8Line(line))
            numbers.insert(lines.Number());
    return numbers;
}

} // namespace

FileFindings ReadWithFindings(std::string_view bytes, CSbdData& data)
{
    const EncodingGuess guess = GuessEncoding(bytes);
    FileFindings found;
    FindingList inside;
    const std::set<std::size_t> foreignLines = guess.line > 0 ? Utf8Lines(bytes) : std::set<std::size_t>();
    Follower follower(inside, foreignLines);
    ReadSections(bytes, data, follower);

    found.isForeign = guess.line > 0 && guess.wholeText;
    found.isProject = guess.encoding != Encoding::Binary && follower.AnyKnownSection();
    if (guess.line > 0)
        found.findings.Add(
            {FindingKind::ForeignEncoding, guess.line, 0, 0, 0, std::string(EncodingText(guess)), {}, {}});
    if (!found.isProject && guess.encoding != Encoding::Utf16)
        found.findings.Add({FindingKind::NotAProject, 0, 0, 0, 0, std::string(NoProjectText(bytes, guess)), {}, {}});
    if (found.isForeign || !found.isProject)
        return found;
    for (Finding& finding : inside.list)
        found.findings.Add(std::move(finding));
    found.findings.more += inside.more;
    found.findings.anyLoss = found.findings.anyLoss || inside.anyLoss;
    // An end that is missing is told where the section begins.
    std::ranges::stable_sort(found.findings.list, {}, &Finding::line);
    return found;
}

} // namespace sbd
