#include "frame/settings.h"

#include "document/cell_input.h"
#include "frame/language.h"

#include <QFontInfo>

#include <algorithm>
#include <cstdlib>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kLanguage = u"Language/Language"_s;
const auto kLeftWindow = u"Window Size/LeftWindow"_s;
const auto kUpWindow = u"Window Size/UpWindow"_s;
const auto kMidWindow = u"Window Size/MidWindow"_s;
const auto kTabbed = u"Window Size/Tabbed"_s;
const auto kHelpBeside = u"Window Size/HelpBeside"_s;
const auto kHelpWidth = u"Window Size/HelpWidth"_s;
const auto kKeepsSession = u"Session/Keep"_s;
const auto kSessionPlaces = u"Session/Places"_s;
const auto kBackColor = u"BackColor/"_s;
const auto kFontColor = u"SYSTEMFONT/"_s;
const auto kFontHeight = u"SYSTEMFONT/H"_s;
const auto kFontCharSet = u"SYSTEMFONT/C"_s;
const auto kFontItalic = u"SYSTEMFONT/I"_s;
const auto kFontUnderline = u"SYSTEMFONT/U"_s;
const auto kFontStrikeOut = u"SYSTEMFONT/S"_s;
const auto kFontFace = u"SYSTEMFONT/F"_s;
const auto kRowHeight = u"row_height/up"_s;
const auto kRowWidth = u"row_width/up"_s;
const auto kComboOrList = u"combo_or_list/cc"_s;

const auto kGridZoom = u"Grid/Zoom"_s;
const auto kGridLayouts = u"Grid/Columns"_s;

const auto kFindingsShown = u"Findings/List"_s;
const auto kFindingsHeight = u"Findings/Height"_s;
const auto kFindingsSilent = u"Findings/Silent"_s;

constexpr int kRowWidthForChanges = 18;
constexpr int kLeastZoom = 50; // percent
constexpr int kMostZoom = 300;

// No screen needs more; a profile that says more must not stop the program.
constexpr int kMostPixels = 16'000;
constexpr int kMostRowHeight = 400;
constexpr int kMostFontHeight = 400;

constexpr int kMostByte = 255;
constexpr int kRedShift = 0;
constexpr int kGreenShift = 8;
constexpr int kBlueShift = 16;

struct ColorKey {
    QLatin1StringView name;
    int shift;
};
constexpr ColorKey kColorKeys[] = {{"R"_L1, kRedShift}, {"G"_L1, kGreenShift}, {"B"_L1, kBlueShift}};

int ByteOf(std::uint32_t color, int shift)
{
    return static_cast<int>(color >> shift & kMostByte);
}

void WriteColor(CProfile& profile, const QString& section, std::uint32_t color)
{
    for (const ColorKey& key : kColorKeys)
        profile.setValue(section + key.name, ByteOf(color, key.shift));
}

} // namespace

int CSettings::Number(const QString& key, int absent) const
{
    bool ok = false;
    const int number = profile_.value(key).toInt(&ok);
    return ok ? number : absent;
}

TitleLanguage CSettings::Language() const
{
    return TitleLanguageOf(profile_.value(kLanguage).toString().toStdString());
}

void CSettings::SetLanguage(TitleLanguage language)
{
    profile_.setValue(kLanguage, QString::fromLatin1(LanguageModeOf(language).word));
}

PaneSizes CSettings::Panes(const PaneSizes& computed) const
{
    const auto size = [this](const QString& key, int absent) {
        const int kept = Number(key, -1);
        return kept < 0 ? absent : std::min(kept, kMostPixels);
    };
    return {size(kLeftWindow, computed.left), size(kUpWindow, computed.up), size(kMidWindow, computed.mid)};
}

void CSettings::SetPanes(const PaneSizes& panes)
{
    profile_.setValue(kLeftWindow, panes.left);
    profile_.setValue(kUpWindow, panes.up);
    profile_.setValue(kMidWindow, panes.mid);
}

DisplaySettings CSettings::Display() const
{
    const auto color = [this](const QString& section, std::uint32_t absent) {
        std::uint32_t value = 0;
        for (const ColorKey& key : kColorKeys) {
            const int byte = std::clamp(Number(section + key.name, ByteOf(absent, key.shift)), 0, kMostByte);
            value |= static_cast<std::uint32_t>(byte) << key.shift;
        }
        return value;
    };
    DisplaySettings display;
    display.backColor = color(kBackColor, display.backColor);
    display.textColor = color(kFontColor, display.textColor);
    display.fontHeight = std::clamp(Number(kFontHeight, display.fontHeight), -kMostFontHeight, kMostFontHeight);
    display.fontCharSet = std::clamp(Number(kFontCharSet, display.fontCharSet), 0, kMostByte);
    display.fontItalic = Number(kFontItalic, 0) != 0;
    display.fontUnderline = Number(kFontUnderline, 0) != 0;
    display.fontStrikeOut = Number(kFontStrikeOut, 0) != 0;
    if (const QString face = profile_.value(kFontFace).toString().trimmed(); !face.isEmpty())
        display.fontFaceName = face;
    display.rowHeight = RowHeight();
    display.zoom = std::clamp(Number(kGridZoom, display.zoom), kLeastZoom, kMostZoom);
    display.grids = Grids();
    return display;
}

/// One list in one value: "313=4 1:20" and so on. What cannot be read is as at first.
std::map<int, GridLayout> CSettings::Grids() const
{
    std::map<int, GridLayout> grids;
    for (const QString& line : profile_.value(kGridLayouts).toStringList()) {
        const qsizetype sign = line.indexOf(u'=');
        bool isBlock = false;
        const int block = line.left(std::max<qsizetype>(sign, 0)).toInt(&isBlock);
        if (const GridLayout layout = GridLayoutOf(line.mid(sign + 1)); isBlock && layout != GridLayout{})
            grids[block] = layout;
    }
    return grids;
}

void CSettings::SetGrids(const DisplaySettings& display)
{
    QStringList lines;
    for (const auto& [block, layout] : display.grids)
        if (layout != GridLayout{})
            lines << QStringLiteral("%1=%2").arg(block).arg(GridLayoutLine(layout));
    profile_.setValue(kGridZoom, display.zoom);
    if (lines.join(u'|') != profile_.value(kGridLayouts).toStringList().join(u'|'))
        profile_.setValue(kGridLayouts, lines);
}

void CSettings::SetBackColor(std::uint32_t color)
{
    WriteColor(profile_, kBackColor, color);
}

void CSettings::SetFont(const DisplaySettings& display)
{
    profile_.setValue(kFontHeight, display.fontHeight);
    profile_.setValue(kFontCharSet, display.fontCharSet);
    profile_.setValue(kFontItalic, display.fontItalic ? 1 : 0);
    profile_.setValue(kFontUnderline, display.fontUnderline ? 1 : 0);
    profile_.setValue(kFontStrikeOut, display.fontStrikeOut ? 1 : 0);
    profile_.setValue(kFontFace, display.fontFaceName);
    WriteColor(profile_, kFontColor, display.textColor);
}

void CSettings::ResetHelpPane(DisplaySettings& display)
{
    DisplaySettings first;
    first.metreDecimals = display.metreDecimals;
    first.millimetreDecimals = display.millimetreDecimals;
    first.rowHeight = display.rowHeight;
    first.zoom = display.zoom;
    first.grids = display.grids;
    display = first;
    SetFont(display);
    SetBackColor(display.backColor);
}

int CSettings::RowHeight() const
{
    return std::clamp(Number(kRowHeight, kLeastRowHeight), kLeastRowHeight, kMostRowHeight);
}

int CSettings::ChangeRowHeight(int step)
{
    const int kept = std::clamp(Number(kRowHeight, kLeastRowHeight), 0, kMostRowHeight);
    const int height = std::clamp(kept + step, kLeastRowHeight, kMostRowHeight);
    profile_.setValue(kRowHeight, height);
    return height;
}

int CSettings::RowWidthMode() const
{
    return std::clamp(Number(kRowWidth, 0), -kMostPixels, kMostPixels);
}

int CSettings::ChangeRowWidth(int step)
{
    const int kept = std::clamp(Number(kRowWidth, kRowWidthForChanges), -kMostPixels, kMostPixels);
    const int mode = std::clamp(kept + step, -kMostPixels, kMostPixels);
    profile_.setValue(kRowWidth, mode);
    return mode;
}

void CSettings::ResetCells()
{
    profile_.setValue(kRowWidth, 0);
    profile_.setValue(kRowHeight, kLeastRowHeight);
}

int CSettings::ComboOrList() const
{
    return Number(kComboOrList, kWordLists) == kPlainCells ? kPlainCells : kWordLists;
}

int CSettings::FlipComboOrList()
{
    const int flipped = Number(kComboOrList, kWordLists) == kWordLists ? kPlainCells : kWordLists;
    profile_.setValue(kComboOrList, flipped);
    return flipped;
}

bool CSettings::TabbedWindows() const
{
    return Number(kTabbed, 0) != 0;
}

void CSettings::SetTabbedWindows(bool tabbed)
{
    profile_.setValue(kTabbed, tabbed ? 1 : 0);
}

bool CSettings::HelpBeside() const
{
    return Number(kHelpBeside, 0) != 0;
}

void CSettings::SetHelpBeside(bool beside)
{
    profile_.setValue(kHelpBeside, beside ? 1 : 0);
}

int CSettings::HelpWidth(int absent) const
{
    const int kept = Number(kHelpWidth, -1);
    return kept < 0 ? absent : std::min(kept, kMostPixels);
}

void CSettings::SetHelpWidth(int pixels)
{
    profile_.setValue(kHelpWidth, pixels);
}

bool CSettings::KeepsSession() const
{
    return Number(kKeepsSession, 0) != 0;
}

void CSettings::SetKeepsSession(bool keeps)
{
    profile_.setValue(kKeepsSession, keeps ? 1 : 0);
}

/// "313/5/3/path": what is anything else was written by nobody here, and is passed over.
QList<SessionPlace> CSettings::Session() const
{
    constexpr qsizetype most = 20;
    QList<SessionPlace> places;
    for (const QString& line : profile_.value(kSessionPlaces).toStringList()) {
        bool isBlock = false;
        bool isRow = false;
        bool isColumn = false;
        const SessionPlace place{line.section(u'/', 3), line.section(u'/', 0, 0).toInt(&isBlock),
                                 line.section(u'/', 1, 1).toInt(&isRow), line.section(u'/', 2, 2).toInt(&isColumn)};
        if (isBlock && isRow && isColumn && !place.path.isEmpty() && place.row >= 0 && places.size() < most)
            places.append(place);
    }
    return places;
}

void CSettings::SetSession(const QList<SessionPlace>& places)
{
    QStringList lines;
    for (const SessionPlace& place : places)
        lines << u"%1/%2/%3/%4"_s.arg(place.block).arg(place.row).arg(place.column).arg(place.path);
    profile_.setValue(kSessionPlaces, lines);
}

bool CSettings::ShowsFindings() const
{
    return Number(kFindingsShown, 0) != 0;
}

void CSettings::SetShowsFindings(bool shows)
{
    profile_.setValue(kFindingsShown, shows ? 1 : 0);
}

int CSettings::FindingsHeight() const
{
    constexpr int first = 160; // px: some lines
    return std::clamp(Number(kFindingsHeight, first), 0, kMostPixels);
}

void CSettings::SetFindingsHeight(int pixels)
{
    profile_.setValue(kFindingsHeight, pixels);
}

SilentKinds CSettings::SilentFindings() const
{
    const QStringList words = profile_.value(kFindingsSilent).toString().split(u' ');
    SilentKinds kinds;
    for (const FindingRule& rule : FindingRules())
        if (rule.severity != Severity::Loss && words.contains(QString::fromUtf8(rule.word)))
            kinds.insert(rule.kind);
    return kinds;
}

void CSettings::SetSilentFindings(const SilentKinds& kinds)
{
    QStringList words;
    for (const FindingKind kind : kinds)
        words << QString::fromUtf8(RuleOf(kind).word);
    profile_.setValue(kFindingsSilent, words.join(u' '));
}

QColor ToQColor(std::uint32_t color)
{
    return {ByteOf(color, kRedShift), ByteOf(color, kGreenShift), ByteOf(color, kBlueShift)};
}

std::uint32_t FromQColor(const QColor& color)
{
    const auto part = [](int byte, int shift) { return static_cast<std::uint32_t>(byte) << shift; };
    return part(color.red(), kRedShift) | part(color.green(), kGreenShift) | part(color.blue(), kBlueShift);
}

QFont FontOf(const DisplaySettings& display)
{
    QFont font(display.fontFaceName);
    font.setStyleHint(QFont::Monospace); // the pages align by one width
    font.setPixelSize(std::max(1, std::abs(display.fontHeight)));
    font.setItalic(display.fontItalic);
    font.setUnderline(display.fontUnderline);
    font.setStrikeOut(display.fontStrikeOut);
    return font;
}

void TakeFont(DisplaySettings& display, const QFont& font)
{
    display.fontHeight = -QFontInfo(font).pixelSize();
    display.fontFaceName = font.family();
    display.fontItalic = font.italic();
    display.fontUnderline = font.underline();
    display.fontStrikeOut = font.strikeOut();
}

} // namespace sbd
