// CSettings: the user's display settings in the profile.
#pragma once

#include "check/doubts.h"
#include "document/display_settings.h"
#include "frame/profile.h"
#include "panelmodel/tree_rows.h"

#include <QColor>
#include <QFont>

namespace sbd {

/// Sizes of the panes in pixels.
struct PaneSizes {
    int left = 0; ///< width of the tree
    int up = 0;   ///< height of the help pane
    int mid = 0;  ///< height of the panel
    friend bool operator==(const PaneSizes&, const PaneSizes&) = default;
};

/// A project that was open at the end, with the cell where the user stood.
struct SessionPlace {
    QString path;
    int block = 0;
    int row = 0; ///< 0: no cell
    int column = 0;
    friend bool operator==(const SessionPlace&, const SessionPlace&) = default;
};

/// Display settings, each in its section and key of the profile. A value that is missing or unreadable has its default,
/// one that is out of range is limited; writing says nothing when it fails.
class CSettings {
public:
    static constexpr int kLeastRowHeight = 18;
    static constexpr int kRowHeightStep = 3;
    static constexpr int kRowWidthStep = 10;

    [[nodiscard]] TitleLanguage Language() const;
    void SetLanguage(TitleLanguage language);

    /// The kept sizes; those that are not kept, or negative, are as computed.
    [[nodiscard]] PaneSizes Panes(const PaneSizes& computed) const;
    void SetPanes(const PaneSizes& panes);

    /// What a new document takes: colours and font of the help pane, row height. Decimals are not kept.
    [[nodiscard]] DisplaySettings Display() const;
    void SetBackColor(std::uint32_t color);
    /// Keeps font and text colour.
    void SetFont(const DisplaySettings& display);
    /// Keeps the size of the cells, columns that are held and widths.
    void SetGrids(const DisplaySettings& display);
    /// Back to the first colours and font, here and in `display`; the cells stay as they are.
    void ResetHelpPane(DisplaySettings& display);

    [[nodiscard]] int RowHeight() const;
    /// The new height.
    int ChangeRowHeight(int step);

    /// Pixels by which columns are wider than their base: 0 if nothing is kept.
    [[nodiscard]] int RowWidthMode() const;
    /// The new mode. If nothing is kept the change begins at 18.
    int ChangeRowWidth(int step);

    /// Rows and columns as at first.
    void ResetCells();

    /// 1: word lists, 2: plain cells.
    [[nodiscard]] int ComboOrList() const;
    /// The new value.
    int FlipComboOrList();

    /// True if projects stand as tabs, false if as windows.
    [[nodiscard]] bool TabbedWindows() const;
    void SetTabbedWindows(bool tabbed);

    /// True if the help pane stands beside the panel, and its width there.
    [[nodiscard]] bool HelpBeside() const;
    void SetHelpBeside(bool beside);
    [[nodiscard]] int HelpWidth(int absent) const;
    void SetHelpWidth(int pixels);

    /// True if the projects that are open at the end come back, and where the user stood in them, the one in front last.
    [[nodiscard]] bool KeepsSession() const;
    void SetKeepsSession(bool keeps);
    [[nodiscard]] QList<SessionPlace> Session() const;
    void SetSession(const QList<SessionPlace>& places);

    /// True if the list of findings stands below the panel, and its height.
    [[nodiscard]] bool ShowsFindings() const;
    void SetShowsFindings(bool shows);
    [[nodiscard]] int FindingsHeight() const;
    void SetFindingsHeight(int pixels);
    /// The kinds of doubts that the user has switched off.
    [[nodiscard]] SilentKinds SilentFindings() const;
    void SetSilentFindings(const SilentKinds& kinds);

private:
    [[nodiscard]] std::map<int, GridLayout> Grids() const;
    [[nodiscard]] int Number(const QString& key, int absent) const;

    CProfile profile_;
};

/// A colour with blue in the high byte, for Qt and back.
[[nodiscard]] QColor ToQColor(std::uint32_t color);
[[nodiscard]] std::uint32_t FromQColor(const QColor& color);

/// The font that is kept, for a dialog or a sample; the pages scale it to their own unit.
[[nodiscard]] QFont FontOf(const DisplaySettings& display);
/// Takes size, face and effects of a font.
void TakeFont(DisplaySettings& display, const QFont& font);

} // namespace sbd
