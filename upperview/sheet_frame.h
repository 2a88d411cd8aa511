// A sheet while a drawing is put on it: from millimetres to units, what is seen and selected, and texts that have room.
#pragma once

#include "upperview/bridge_sheet.h"

#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace sbd {

/// Texts beside each other in some lines; one that would lie on another is left out.
class CTextRow {
public:
    CTextRow(CDrawContext& dc, int top, int lines)
        : dc_(dc)
        , top_(top)
        , ends_(static_cast<std::size_t>(lines), std::numeric_limits<int>::min())
    {
    }

    /// `x` is the middle of the text. Called from left to right. Gives where the text's top is; nothing if it has no
    /// room. One that is not seen has its room too, so that what is seen stays as it was while the view moves.
    std::optional<int> Put(int x, std::string_view text, bool seen);

private:
    CDrawContext& dc_;
    int top_;
    std::vector<int> ends_;
};

class CSheetFrame {
public:
    CSheetFrame(CDrawContext& context, const BridgeDrawing& drawn, const SheetLook& wanted,
                std::vector<SheetHit>* hits);

    [[nodiscard]] int X(double x) const { return Unit((x - bounds.left) * perX_) + kSheetLeftMargin; }
    [[nodiscard]] int Y(double y) const { return partsTop - Unit((bounds.top - y) * perY_); }
    [[nodiscard]] DrawPoint At(const DrawnPoint& point) const { return {X(point.x), Y(point.y)}; }
    /// A length of the bridge that is the same in all directions, whatever the exaggeration.
    [[nodiscard]] int Size(double millimetres) const { return Unit(millimetres * perX_); }
    /// Rounded, and within the bounds of a sheet.
    [[nodiscard]] int Unit(double value) const;

    [[nodiscard]] bool IsSelected(const SourceCell& place) const
    {
        return look.selected.block != 0 && look.selected.row != 0 && place.SameRow(look.selected);
    }
    /// May anything between these units be seen?
    [[nodiscard]] bool IsSeen(int left, int right) const
    {
        return !look.visible || (left <= look.visible->right && right >= look.visible->left);
    }
    [[nodiscard]] bool IsSeen(std::span<const DrawPoint> points, int around) const;

    void Hit(SheetBox box, const SourceCell& source, std::string_view text);
    void Widen(int to);
    /// A line of text at the cursor.
    void Line(std::string_view text);
    /// Puts a text whose middle is `x` into a row, and tells where it stands.
    bool PutLabel(CTextRow& row, int x, std::string_view text, const SourceCell& source);
    void LabelsBeside(LabelRow place, int lines);

    CDrawContext& dc;
    const BridgeDrawing& drawing;
    const SheetLook look;
    const SheetSteps& steps;
    const SheetBounds bounds;
    const double scale;
    const int height; ///< of a text
    int partsTop = 0; ///< their upper edge
    int cursor = 0;   ///< the next free line
    int taken = 0;    ///< to the right, so far

private:
    std::vector<SheetHit>* hits_;
    double perX_; // units a mm
    double perY_;
    double most_;
};

} // namespace sbd
