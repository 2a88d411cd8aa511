// A spreadsheet file (*.xlsx): sheets with texts and numbers, by libxlsxwriter.
#pragma once

#include "sbdfile/project_file.h"

#include <compare>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace sbd {

/// How a cell looks.
struct CellLook {
    bool bold = false;
    bool border = false;
    bool wrap = false;
    bool centred = false;
    std::int32_t fill = -1;   ///< 0xRRGGBB; negative: none
    std::string numberFormat; ///< in the language of spreadsheets, "0.00"; empty: as many digits as there are

    friend auto operator<=>(const CellLook&, const CellLook&) = default;
};

/// A head: bold, in a frame, shaded, in several lines where it is long.
[[nodiscard]] CellLook HeadLook();

/// A text that is a number to a spreadsheet and shows there with the same digits.
struct PlainNumber {
    double value = 0;
    std::string format; ///< "0.00" for "1.50"
};
/// Nothing where the number would show in another way than the text: "007", "1e3", more than 15 digits.
[[nodiscard]] std::optional<PlainNumber> PlainNumberOf(std::string_view text);

/// Collects sheets and writes them as one file. Texts are UTF-8 and stay texts, whatever they begin with; what is no
/// UTF-8, and control characters, become U+FFFD. Rows and columns count from 0.
class CWorkbook {
public:
    /// `title` and `program` are told by the properties of the file.
    explicit CWorkbook(std::string_view title = {}, std::string_view program = {});
    ~CWorkbook();
    CWorkbook(const CWorkbook&) = delete;
    CWorkbook& operator=(const CWorkbook&) = delete;

    /// A new sheet, which the functions below then fill. The name is cut to 31 characters, signs that no sheet's name may
    /// hold are replaced, and a second one of the same name gets a number. Returns the name that the sheet has.
    std::string AddSheet(std::string_view name);

    /// An earlier sheet is filled again.
    void ReturnToSheet(const std::string& name);

    void SetText(std::uint32_t row, std::uint16_t column, std::string_view text, const CellLook& look = {});
    void SetNumber(std::uint32_t row, std::uint16_t column, double value, const CellLook& look = {});
    /// A number where the text is a plain one, else the text; nothing where it is empty and has no look.
    void SetValue(std::uint32_t row, std::uint16_t column, std::string_view text, CellLook look = {});
    /// A text that leads to the first cell of a sheet, by its name as AddSheet gave it.
    void SetLink(std::uint32_t row, std::uint16_t column, std::string_view sheet, std::string_view text);

    /// In characters of the usual font; a wide character counts two.
    void SetWidth(std::uint16_t column, double characters);
    /// So many rows and columns stay while the rest is rolled; the rows stand at the head of each printed page too.
    void Freeze(std::uint32_t rows, std::uint16_t columns);
    /// Height of a row in lines of the usual font, if it is not higher already. What is set in a look that wraps makes its
    /// row as high as the lines that it is written in; not every spreadsheet finds that by itself.
    void SetLines(std::uint32_t row, std::size_t lines);
    /// Printed on A4 lying, or upright, all columns on a page.
    void SetLandscape();
    void SetPortrait();

    /// Writes the file as a whole or not at all; once. What was written is read again before it takes its place.
    /// `isWanted` is asked again and again during the work, by the thread of the call: once it is not, all is well and the
    /// file stays what it was.
    [[nodiscard]] FileResult Save(const std::filesystem::path& path, const std::function<bool()>& isWanted = {});

private:
    struct Inside;
    std::unique_ptr<Inside> inside_;
};

} // namespace sbd
