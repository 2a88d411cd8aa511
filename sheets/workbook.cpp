#include "sheets/workbook.h"

#include "project/text.h"
#include "sbdfile/output_file.h"
#include "sheets/work_folder.h"
#include "sheets/zip_parts.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <clocale>
#include <future>
#include <map>
#include <set>
#include <thread>
#include <unordered_set>
#include <vector>

// Its header is C, and its macros are not for others.
#include <xlsxwriter.h>

#ifndef _WIN32
#include <locale.h> // newlocale, uselocale
#endif

namespace sbd {

namespace {

constexpr std::size_t kLongestName = 31;    // characters of a sheet's name
constexpr std::size_t kLongestText = 32767; // UTF-16 units of a cell
constexpr double kLineHeight = 15;          // points, of the usual font
constexpr double kHighestRow = 409;         // that spreadsheets take
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// Bytes of the UTF-8 character at `pos`; 0 if none begins there.
std::size_t CharacterSize(std::string_view text, std::size_t pos)
{
    const auto byte = [&](std::size_t at) { return at < text.size() ? static_cast<unsigned char>(text[at]) : 0U; };
    const auto follows = [&](std::size_t at) { return (byte(at) & 0xC0U) == 0x80U; };
    const unsigned first = byte(pos);
    if (first < 0x80U)
        return first >= 0x20U || first == '\t' || first == '\n' ? 1 : 0;
    if (first >= 0xC2U && first <= 0xDFU && follows(pos + 1))
        return 2;
    const unsigned second = byte(pos + 1);
    if (first >= 0xE0U && first <= 0xEFU && follows(pos + 1) && follows(pos + 2)) {
        const bool overlong = first == 0xE0U && second < 0xA0U;
        const bool half = first == 0xEDU && second > 0x9FU;                           // of a surrogate pair
        const bool none = first == 0xEFU && second == 0xBFU && byte(pos + 2) > 0xBDU; // U+FFFE, U+FFFF
        return overlong || half || none ? 0 : 3;
    }
    if (first >= 0xF0U && first <= 0xF4U && follows(pos + 1) && follows(pos + 2) && follows(pos + 3)) {
        const bool outside = (first == 0xF0U && second < 0x90U) || (first == 0xF4U && second > 0x8FU);
        return outside ? 0 : 4;
    }
    return 0;
}

/// UTF-8 that a spreadsheet takes: of whole characters, `longest` UTF-16 units at most.
std::string CleanText(std::string_view text, std::size_t longest)
{
    std::string clean;
    std::size_t units = 0;
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t size = CharacterSize(text, pos);
        units += size == 4 ? 2 : 1;
        if (units > longest)
            break;
        clean += size == 0 ? kReplacement : text.substr(pos, size);
        pos += size == 0 ? 1 : size;
    }
    return clean;
}

std::string SheetName(std::string_view wish)
{
    std::string name = CleanText(wish, kLongestName);
    for (char& c : name)
        if (std::string_view("[]:*?/\\#\t\n").find(c) != std::string_view::npos)
            c = '_';
    if (!name.empty() && name.front() == '\'')
        name.front() = '_';
    if (!name.empty() && name.back() == '\'')
        name.back() = '_';
    return name.empty() ? "Sheet" : name;
}

/// As spreadsheets compare names: without case, as far as it concerns ASCII.
std::string Folded(std::string name)
{
    for (char& c : name)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return name;
}

/// The library prints numbers by the C library, which asks the user's locale for the decimal point.
class PlainDecimalPoint {
public:
    PlainDecimalPoint()
    {
#ifndef _WIN32 // there it is made with its own way to print them
        plain_ = ::newlocale(LC_NUMERIC_MASK, "C", nullptr);
        before_ = plain_ != nullptr ? ::uselocale(plain_) : nullptr;
#endif
    }
    ~PlainDecimalPoint()
    {
#ifndef _WIN32
        if (plain_ != nullptr) {
            ::uselocale(before_);
            ::freelocale(plain_);
        }
#endif
    }
    PlainDecimalPoint(const PlainDecimalPoint&) = delete;
    PlainDecimalPoint& operator=(const PlainDecimalPoint&) = delete;

private:
#ifndef _WIN32
    locale_t plain_ = nullptr;
    locale_t before_ = nullptr;
#endif
};

std::size_t CountOf(std::string_view text, std::string_view what)
{
    std::size_t count = 0;
    for (std::size_t pos = text.find(what); pos != std::string_view::npos; pos = text.find(what, pos + what.size()))
        ++count;
    return count;
}

/// The library does not see what its own files on the way could not take (a full disk), so what it wrote is read: each
/// part ends as it has to, and each sheet holds as many cells as were given to it.
bool IsWhole(std::string_view bytes, const std::vector<std::size_t>& cells)
{
    bool whole = true;
    std::size_t sheets = 0;
    const bool read = ReadZipParts(bytes, [&](const std::string& name, const std::string& content) {
        const std::string_view part = TrimRight(content);
        const std::size_t lastTag = part.rfind("</");
        const std::size_t root = part.find('<', part.find("?>") + 1);
        whole = whole && part.starts_with("<?xml") && part.ends_with('>') && lastTag != std::string_view::npos;
        if (whole) {
            const std::string_view tag = part.substr(lastTag + 2, part.size() - lastTag - 3);
            whole = part.substr(root + 1, tag.size()) == tag;
        }
        constexpr std::string_view textCount = "uniqueCount=\"";
        const std::size_t count = name == "xl/sharedStrings.xml" ? part.find(textCount) : std::string_view::npos;
        if (count != std::string_view::npos) {
            const int texts = LeadingInteger(part.substr(count + textCount.size()));
            whole = whole && CountOf(part, "<si>") == static_cast<std::size_t>(texts);
        }
        constexpr std::string_view sheetPart = "xl/worksheets/sheet";
        if (name.starts_with(sheetPart)) {
            ++sheets;
            const int number = LeadingInteger(std::string_view(name).substr(sheetPart.size()));
            const auto index = static_cast<std::size_t>(number) - 1;
            whole = whole && number > 0 && index < cells.size() && CountOf(part, "<c r=") == cells[index];
        }
    });
    return read && whole && sheets == cells.size();
}

/// Does `work` in a thread of its own while this one asks whether it is wanted, so that a window can live on. The work
/// cannot be stopped on its way: false when it has come to its end and was not wanted.
bool RunBeside(const std::function<void()>& work, const std::function<bool()>& isWanted)
{
    constexpr auto pause = std::chrono::milliseconds(30);
    std::promise<void> done;
    std::future<void> end = done.get_future();
    std::thread worker([&] {
        work();
        done.set_value();
    });
    bool wanted = true;
    while (wanted && end.wait_for(pause) != std::future_status::ready)
        wanted = isWanted();
    worker.join();
    return wanted && isWanted();
}

FileResult NotWritten(lxw_error error, int code)
{
    FileResult result;
    const bool full = code == ENOSPC || code == EFBIG || error == LXW_NO_ERROR; // written, and found not whole
    result.error = full ? FileError::DiskFull : FileError::Other;
    result.detail = full ? "作業用フォルダーのあるディスクに空きがありません" : "作業用フォルダーに書き込めません";
    return result;
}

} // namespace

CellLook HeadLook()
{
    CellLook look;
    look.bold = look.border = look.wrap = look.centred = true;
    look.fill = 0xE4E9F0;
    return look;
}

std::optional<PlainNumber> PlainNumberOf(std::string_view text)
{
    std::string_view digits = text;
    if (digits.starts_with('-'))
        digits.remove_prefix(1);
    const std::size_t point = digits.find('.');
    const std::string_view whole = digits.substr(0, point);
    const std::string_view part = point == std::string_view::npos ? std::string_view() : digits.substr(point + 1);
    const auto allDigits = [](std::string_view some) {
        return some.find_first_not_of("0123456789") == std::string_view::npos;
    };
    if (whole.size() + part.size() == 0 || whole.size() + part.size() > 15 || !allDigits(whole) || !allDigits(part)
        || (whole.size() > 1 && whole.starts_with('0')))
        return std::nullopt;
    const std::optional<double> value = LeadingNumber(text);
    if (!value || (*value == 0 && text.starts_with('-')))
        return std::nullopt;
    PlainNumber number{*value, whole.empty() ? "#" : "0"};
    if (point != std::string_view::npos)
        number.format += "." + std::string(part.size(), '0');
    return number;
}

struct CWorkbook::Inside {
    CWorkFolder folder;
    lxw_workbook* book = nullptr;
    lxw_worksheet* sheet = nullptr;
    std::set<std::string> names; // folded
    std::map<CellLook, lxw_format*> looks;
    std::size_t current = 0;                                            // sheet
    std::vector<std::unordered_set<std::uint64_t>> cells;               // of each sheet, those that hold something
    std::map<std::pair<std::size_t, std::uint32_t>, std::size_t> lines; // of the rows that have more than one

    [[nodiscard]] lxw_format* LookOf(const CellLook& look)
    {
        if (look == CellLook())
            return nullptr;
        const auto [place, isNew] = looks.try_emplace(look, nullptr);
        if (isNew) {
            lxw_format* format = workbook_add_format(book);
            place->second = format;
            if (look.bold)
                format_set_bold(format);
            if (look.border)
                format_set_border(format, LXW_BORDER_THIN);
            if (look.wrap)
                format_set_text_wrap(format);
            if (look.centred) {
                format_set_align(format, LXW_ALIGN_CENTER);
                format_set_align(format, LXW_ALIGN_VERTICAL_CENTER);
            }
            if (look.fill >= 0)
                format_set_bg_color(format, static_cast<lxw_color_t>(look.fill));
            if (!look.numberFormat.empty())
                format_set_num_format(format, look.numberFormat.c_str());
        }
        return place->second;
    }

    void Count(std::uint32_t row, std::uint16_t column, lxw_error error)
    {
        if (error == LXW_NO_ERROR)
            cells[current].insert((static_cast<std::uint64_t>(row) << 16U) | column);
    }
};

CWorkbook::CWorkbook(std::string_view title, std::string_view program) : inside_(std::make_unique<Inside>())
{
    const std::string file = inside_->folder.Narrow() + "/book.xlsx";
    lxw_workbook_options options{};
    std::string place = inside_->folder.Narrow();
    options.tmpdir = place.data(); // copied
    inside_->book = workbook_new_opt(file.c_str(), &options);
    std::string cleanTitle = CleanText(title, kLongestText);
    std::string cleanProgram = CleanText(program, kLongestText);
    lxw_doc_properties properties{};
    properties.title = cleanTitle.data();
    properties.comments = cleanProgram.data();
    workbook_set_properties(inside_->book, &properties);
}

CWorkbook::~CWorkbook()
{
    if (inside_->book != nullptr)
        lxw_workbook_free(inside_->book);
}

std::string CWorkbook::AddSheet(std::string_view wish)
{
    const std::string first = SheetName(wish);
    std::string name = first;
    for (int number = 2; !inside_->names.insert(Folded(name)).second; ++number) {
        const std::string ending = " (" + std::to_string(number) + ")";
        name = CleanText(first, kLongestName - ending.size()) + ending;
    }
    inside_->sheet = workbook_add_worksheet(inside_->book, name.c_str());
    inside_->current = inside_->cells.size();
    inside_->cells.emplace_back();
    worksheet_set_paper(inside_->sheet, 9); // A4
    return name;
}

void CWorkbook::ReturnToSheet(const std::string& name)
{
    lxw_worksheet* sheet = workbook_get_worksheet_by_name(inside_->book, name.c_str());
    if (sheet != nullptr) {
        inside_->sheet = sheet;
        inside_->current = sheet->index;
    }
}

void CWorkbook::SetText(std::uint32_t row, std::uint16_t column, std::string_view text, const CellLook& look)
{
    lxw_format* format = inside_->LookOf(look);
    const std::string clean = CleanText(text, kLongestText);
    if (!clean.empty())
        inside_->Count(row, column, worksheet_write_string(inside_->sheet, row, column, clean.c_str(), format));
    if (look.wrap)
        SetLines(row, static_cast<std::size_t>(std::ranges::count(clean, '\n')) + 1);
    if (!clean.empty())
        return;
    if (format != nullptr)
        inside_->Count(row, column, worksheet_write_blank(inside_->sheet, row, column, format));
}

void CWorkbook::SetNumber(std::uint32_t row, std::uint16_t column, double value, const CellLook& look)
{
    inside_->Count(row, column, worksheet_write_number(inside_->sheet, row, column, value, inside_->LookOf(look)));
}

void CWorkbook::SetValue(std::uint32_t row, std::uint16_t column, std::string_view text, CellLook look)
{
    if (const std::optional<PlainNumber> number = PlainNumberOf(text)) {
        look.numberFormat = number->format;
        SetNumber(row, column, number->value, look);
    } else {
        SetText(row, column, text, look);
    }
}

void CWorkbook::SetLink(std::uint32_t row, std::uint16_t column, std::string_view sheet, std::string_view text)
{
    std::string place = "internal:'";
    for (const char c : sheet)
        place += c == '\'' ? std::string("''") : std::string(1, c);
    place += "'!A1";
    const std::string clean = CleanText(text, kLongestText);
    inside_->Count(
        row, column,
        worksheet_write_url_opt(inside_->sheet, row, column, place.c_str(), nullptr, clean.c_str(), nullptr));
}

void CWorkbook::SetWidth(std::uint16_t column, double characters)
{
    worksheet_set_column(inside_->sheet, column, column, characters, nullptr);
}

void CWorkbook::Freeze(std::uint32_t rows, std::uint16_t columns)
{
    worksheet_freeze_panes(inside_->sheet, rows, columns);
    if (rows > 0)
        worksheet_repeat_rows(inside_->sheet, 0, rows - 1);
}

void CWorkbook::SetLines(std::uint32_t row, std::size_t lines)
{
    std::size_t& highest = inside_->lines.try_emplace({inside_->current, row}, 1).first->second;
    if (lines <= highest)
        return;
    highest = lines;
    worksheet_set_row(inside_->sheet, row, std::min(kLineHeight * static_cast<double>(lines), kHighestRow), nullptr);
}

void CWorkbook::SetLandscape()
{
    worksheet_set_landscape(inside_->sheet);
    worksheet_fit_to_pages(inside_->sheet, 1, 0);
}

void CWorkbook::SetPortrait()
{
    worksheet_set_portrait(inside_->sheet);
    worksheet_fit_to_pages(inside_->sheet, 1, 0);
}

FileResult CWorkbook::Save(const std::filesystem::path& path, const std::function<bool()>& isWanted)
{
    if (inside_->cells.empty())
        AddSheet("Sheet"); // a file without a sheet opens nowhere
    std::vector<std::size_t> cells;
    for (const auto& places : inside_->cells)
        cells.push_back(places.size());
    if (inside_->folder.Narrow().empty())
        return NotWritten(LXW_ERROR_CREATING_XLSX_FILE, 0);

    FileResult result;
    std::string bytes;
    const auto work = [&] {
        lxw_error error = LXW_NO_ERROR;
        {
            const PlainDecimalPoint plain;
            errno = 0;
            error = workbook_close(inside_->book); // frees it
            inside_->book = nullptr;
        }
        if (error != LXW_NO_ERROR) {
            result = NotWritten(error, errno);
            return;
        }
        result = ReadFileBytes(inside_->folder.Path() / "book.xlsx", bytes);
        if (result.Ok() && !IsWhole(bytes, cells))
            result = NotWritten(LXW_NO_ERROR, 0);
    };
    if (!isWanted)
        work();
    else if (!RunBeside(work, isWanted))
        return {};
    if (!result.Ok())
        return result;
    return WriteOutputFile(path, bytes);
}

} // namespace sbd
