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

/// One of the three name lists while it is read. It takes the size its count tells, bounded by `most`; names that the
/// file does not give stay as they were, empty at first.
class NameListReader {
public:
    /// `marks`: null, or the list that takes the mark of each name.
    NameListReader(std::vector<std::string>& names, std::vector<int>* marks, int count, std::size_t most)
        : names_(names)
        , marks_(marks)
    {
        const std::size_t size = std::min(static_cast<std::size_t>(std::max(count, 0)), most);
        names_.resize(size);
        if (marks_)
            marks_->resize(size);
    }

    [[nodiscard]] bool Full() const { return taken_ == names_.size(); }

    void TakeNames(std::string_view text)
    {
        std::size_t fields = CharacterCount(Trim(text));
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
        if (marks_)
            (*marks_)[taken_] = TakeMark(name);
        names_[taken_] = name.substr(0, kLongestName);
        ++taken_;
    }

    static int TakeMark(std::string_view& name)
    {
        const int mark = name.starts_with("-+") ? 2 : name.starts_with('-') ? 1 : 0;
        const std::string_view signs = mark == 2 ? "-+" : mark == 1 ? "-" : "";
        name.remove_prefix(std::min(name.find_first_not_of(signs), name.size()));
        return mark;
    }

    std::vector<std::string>& names_;
    std::vector<int>* marks_;
    std::size_t taken_ = 0;
};

/// Reads the lines of one section [GRID_GRID] up to its end line or the end of the file.
class GridSectionReader {
public:
    GridSectionReader(LineReader& lines, GridNames& names, std::size_t most)
        : lines_(lines)
        , names_(names)
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
                ReadList(line, names_.girderNames, nullptr);
            else if (word == "SWAY_N_NAME")
                ReadList(line, names_.swayNames, &names_.swayMarks);
            else if (word == "LINE_N_NAME")
                ReadList(line, names_.lineNames, nullptr);
        }
    }

private:
    /// A keyword line "KEY = count names ..." and the lines of names behind it.
    void ReadList(std::string_view line, std::vector<std::string>& names, std::vector<int>* marks)
    {
        std::vector<std::string_view> words = SplitWords(line);
        const std::string_view count = words.size() > 2 ? words[2] : std::string_view();
        NameListReader list(names, marks, LeadingInteger(count), most_);
        // The names begin behind the first place where the count's text stands, wherever that is.
        const std::size_t place = line.find(count);
        list.TakeNames(line.substr(std::min(place + count.size(), line.size())));
        std::string_view raw;
        while (!list.Full() && lines_.Next(raw)) {
            const std::string further = CleanNames(raw, 1);
            if (further.starts_with("[END"))
                break;
            list.TakeNames(further);
        }
    }

    LineReader& lines_;
    GridNames& names_;
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
    LineReader lines(bytes);
    std::string_view raw;
    while (lines.Next(raw)) {
        std::string_view line = Trim(raw);
        if (TakeToken(line) == "[GRID_GRID]")
            GridSectionReader(lines, names, std::max(bytes.size(), kMostUnseenNames)).Read();
    }
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
