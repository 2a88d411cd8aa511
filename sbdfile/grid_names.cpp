#include "sbdfile/grid_names.h"

#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/line_reader.h"
#include "sbdfile/project_file.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

constexpr std::size_t kMostUnseenNames = 65536; // a count is believed as far as this without names behind it
constexpr std::size_t kLongestName = 35;        // bytes; a longer name is cut, through a character if need be

bool IsFullWidthBlank(std::string_view text, std::size_t pos)
{
    return CharacterLength(text, pos) == 2 && text.substr(pos, 2) == "\x81\x40";
}

/// Each "," as one blank and each full-width blank as `blanks` blanks, trimmed.
std::string CleanNames(std::string_view line, std::size_t blanks)
{
    std::string clean;
    for (std::size_t pos = 0; pos < line.size();) {
        const std::size_t length = CharacterLength(line, pos);
        if (IsFullWidthBlank(line, pos))
            clean.append(blanks, ' ');
        else if (line[pos] == ',')
            clean.push_back(' ');
        else
            clean.append(line, pos, length);
        pos += length;
    }
    return std::string(Trim(clean));
}

/// Characters of a text; the walk over the names ends at as many fields.
std::size_t CharacterCount(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t pos = 0; pos < text.size(); pos += CharacterLength(text, pos))
        ++count;
    return count;
}

/// One of the three name lists. It has the size its count tells. The empty places behind the names that came are made
/// at the end only, so that a count takes neither time nor memory for each time it is told.
struct NameList {
    std::vector<std::string>& names;
    std::vector<int>* marks = nullptr; ///< null, or the list that has the mark of each name
    std::size_t size = 0;

    void Resize(std::size_t newSize)
    {
        size = newSize;
        names.resize(std::min(names.size(), size));
        if (marks != nullptr)
            marks->resize(names.size());
    }
    /// Puts a name in place `place`, which is at most the one behind the last.
    void Set(std::size_t place, std::string_view name, int mark)
    {
        if (place == names.size()) {
            names.emplace_back();
            if (marks != nullptr)
                marks->emplace_back();
        }
        names[place] = name;
        if (marks != nullptr)
            (*marks)[place] = mark;
    }
    void Complete()
    {
        names.resize(size);
        if (marks != nullptr)
            marks->resize(size);
    }
};

/// The three lists of a file.
struct NameListsOfFile {
    explicit NameListsOfFile(GridNames& names)
        : girders{names.girderNames}
        , sways{names.swayNames, &names.swayMarks}
        , lines{names.lineNames}
    {
    }
    NameList girders;
    NameList sways;
    NameList lines;
};

/// Takes the names of one keyword; places that the file does not give a name keep what they had.
class NameListReader {
public:
    NameListReader(NameList& list, std::size_t size) : list_(list) { list_.Resize(size); }

    [[nodiscard]] bool Full() const { return taken_ == list_.size; }

    void TakeNames(std::string_view text)
    {
        text = Trim(text);
        std::size_t fields = CharacterCount(text);
        std::size_t pos = 0;
        while (!Full() && pos < text.size() && fields-- > 0) {
            const std::size_t end = std::min(text.find(' ', pos), text.size());
            if (const std::string_view name = Trim(text.substr(pos, end - pos)); !name.empty())
                Take(name);
            pos = end + 1;
        }
    }

private:
    void Take(std::string_view name)
    {
        const int mark = list_.marks != nullptr ? TakeMark(name) : 0;
        list_.Set(taken_, name.substr(0, kLongestName), mark);
        ++taken_;
    }

    static int TakeMark(std::string_view& name)
    {
        const int mark = name.starts_with("-+") ? 2 : name.starts_with('-') ? 1 : 0;
        const std::string_view signs = mark == 2 ? "-+" : mark == 1 ? "-" : "";
        name.remove_prefix(std::min(name.find_first_not_of(signs), name.size()));
        return mark;
    }

    NameList& list_;
    std::size_t taken_ = 0;
};

/// Reads the lines of one section [GRID_GRID] up to its end line or the end of the file.
class GridSectionReader {
public:
    /// `most`: a count is believed as far as this.
    GridSectionReader(CLineReader& lines, NameListsOfFile& lists, std::size_t most)
        : lines_(lines)
        , lists_(lists)
        , most_(most)
    {
    }

    void Read()
    {
        std::string_view raw;
        while (lines_.Next(raw)) {
            const std::string line = CleanNames(raw, 2);
            std::string_view rest = line;
            const std::string_view word = TakeToken(rest);
            if (word.empty() || word.starts_with('!'))
                continue;
            if (word.starts_with("[E"))
                return;
            if (word == "GIRDER_N_NAME")
                ReadList(line, lists_.girders);
            else if (word == "SWAY_N_NAME")
                ReadList(line, lists_.sways);
            else if (word == "LINE_N_NAME")
                ReadList(line, lists_.lines);
        }
    }

private:
    /// A keyword line "KEY = count names ..." and the lines of names behind it.
    void ReadList(std::string_view line, NameList& list)
    {
        std::vector<std::string_view> words = SplitWords(line);
        const std::string_view count = words.size() > 2 ? words[2] : std::string_view();
        const std::size_t size = static_cast<std::size_t>(std::max(LeadingInteger(count), 0));
        NameListReader reader(list, std::min(size, most_));
        // The names begin behind the first place where the count's text stands, wherever that is.
        const std::size_t place = line.find(count);
        reader.TakeNames(line.substr(std::min(place + count.size(), line.size())));
        std::string_view raw;
        while (!reader.Full() && lines_.Next(raw)) {
            const std::string further = CleanNames(raw, 1);
            if (further.starts_with("[END"))
                break;
            reader.TakeNames(further);
        }
    }

    CLineReader& lines_;
    NameListsOfFile& lists_;
    std::size_t most_;
};

int LongestName(const std::vector<std::string>& names, int width)
{
    for (const std::string& name : names)
        width = std::max(width, static_cast<int>(name.size()));
    return width;
}

} // namespace

void ReadGridNamesFromBytes(std::string_view bytes, CSbdData& data)
{
    GridNames& names = data.gridNames;
    names.girderNames.clear();
    names.swayNames.clear();
    names.swayMarks.clear();
    names.lineNames.clear();
    NameListsOfFile lists(names);
    const std::size_t most = std::max(bytes.size() / 2, kMostUnseenNames); // a name takes two bytes with its divider
    CLineReader lines(bytes);
    std::string_view raw;
    while (lines.Next(raw)) {
        std::string_view line = Trim(raw);
        if (TakeToken(line) == "[GRID_GRID]")
            GridSectionReader(lines, lists, most).Read();
    }
    for (NameList* list : {&lists.girders, &lists.sways, &lists.lines})
        list->Complete();
    data.swayNameCount = names.swayNames.size();
    names.girderNameWidth = LongestName(names.girderNames, names.girderNameWidth);
    names.swayNameWidth = LongestName(names.swayNames, names.swayNameWidth);
}

void ReadGridNames(const std::filesystem::path& path, CSbdData& data)
{
    std::string bytes;
    if (!ReadFileBytes(path, bytes).Ok())
        bytes.clear();
    ReadGridNamesFromBytes(bytes, data);
}

} // namespace sbd
