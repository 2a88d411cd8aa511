#include "upperview/bridge_sheet.h"

#include "project/text.h"
#include "upperview/sheet_frame.h"
#include "upperview/sheet_parts.h"
#include "upperview/sheet_strips.h"

namespace sbd {

namespace {

constexpr std::size_t kListed = 40;

void Title(CSheetFrame& frame)
{
    std::string text = frame.drawing.title;
    if (!frame.look.visible) { // in a pane it is any
        text += Cp932("   縮尺 1:");
        AppendFixed(text, frame.scale, 0, 0);
    }
    if (frame.look.exaggeration > 1)
        text += Cp932("   高さは") + std::to_string(frame.look.exaggeration) + Cp932("倍");
    if (frame.drawing.provisional)
        text += Cp932("   寸法は仮");
    frame.Line(text);
    if (!frame.look.compact)
        for (const std::string& note : frame.drawing.notes)
            frame.Line(note);
    frame.cursor -= frame.steps.gap;
}

/// Do later rows win everywhere over the selected one?
bool IsCovered(const CSheetFrame& frame)
{
    const RowUse* use = frame.drawing.UseOf(frame.look.selected.block, frame.look.selected.row);
    return use != nullptr && use->covered;
}

void List(CSheetFrame& frame)
{
    if (frame.look.selected.row != 0 && IsCovered(frame))
        frame.Line(Cp932("現在の行は，後の行がすべての範囲で優先されるため，図に表れません．"));
    if (frame.drawing.omissions.empty() || frame.look.compact)
        return;
    frame.Line(Cp932("図にできないもの (") + std::to_string(frame.drawing.omissions.size()) + Cp932("件)"));
    std::size_t listed = 0;
    for (const Omission& omission : frame.drawing.omissions) {
        if (++listed > kListed) {
            frame.Line(Cp932("  ほか ") + std::to_string(frame.drawing.omissions.size() - kListed) + Cp932("件"));
            break;
        }
        frame.Line("  " + OmissionText(omission));
    }
}

} // namespace

std::string OmissionText(const Omission& omission)
{
    std::string text;
    if (omission.place.block != 0) {
        text += std::to_string(omission.place.block);
        if (omission.place.row != 0)
            text += Cp932(" の ") + std::to_string(omission.place.row) + Cp932("行目");
        if (omission.place.row != 0 && omission.place.column != 0)
            text += " " + std::to_string(omission.place.column) + Cp932("列目");
        text += Cp932("： ");
    }
    return text + omission.reason;
}

SheetExtent DrawBridgeSheet(CDrawContext& dc, const BridgeDrawing& drawing, const SheetLook& look,
                            std::vector<SheetHit>* hits)
{
    CSheetFrame frame(dc, drawing, look, hits);
    const SheetSteps& steps = frame.steps;
    frame.cursor = -steps.margin;
    dc.SetTextColour(colours::kBlack);
    Title(frame);
    if (!frame.bounds.IsEmpty()) {
        frame.LabelsBeside(LabelRow::FarAbove, steps.labelLines);
        frame.LabelsBeside(LabelRow::Above, steps.labelLines);
        frame.partsTop = frame.cursor;
        DrawParts(frame);
        frame.cursor = frame.Y(frame.bounds.bottom) - steps.gap / 3;
        frame.LabelsBeside(LabelRow::Below, steps.labelLines);
        frame.cursor -= steps.gap;
        DrawBands(frame);
        DrawChains(frame);
        frame.Widen(frame.X(frame.bounds.right));
    }
    List(frame);
    return {frame.taken + kSheetMargin, -frame.cursor + steps.margin};
}

} // namespace sbd
