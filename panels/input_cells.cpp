// What CInputPanel does with many cells at once, beyond the grid's own commands.
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/replace.h"
#include "panels/input_panel.h"
#include "panels/panel_source.h"
#include "project/links.h"
#include "project/text.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace sbd {

PasteOutcome CInputPanel::ImportCells(const std::vector<CellEntry>& cells)
{
    if (!model_ || !Grid()->CommitEditor())
        return {};
    CommitGrid(); // the text of an editor is a step of its own
    PasteOutcome outcome = source_->Editor().PutCells(EditCommand::Import, cells);
    if (outcome.effect == CellEffect::None)
        return outcome;
    Grid()->ShowAll();
    const CellRange range = outcome.range;
    Grid()->SetFocusCell(range.top, range.left);
    Grid()->SelectRange({range.top, range.left, std::min(range.bottom, model_->GridRows()),
                         std::min(range.right, model_->ColumnCount() - 1)});
    CommitGrid();
    emit undoChanged();
    return outcome;
}

PasteOutcome CInputPanel::TryCells(const std::vector<CellEntry>& cells) const
{
    const std::unique_ptr<CPanelModel> model =
        model_ ? MakePanelModel(Doc().Data(), OpenedFor(), {.listNames = ListNames::OfTheProject}) : nullptr;
    if (model == nullptr)
        return {};
    model->PutLoose(model_->Loose());
    return CPanelEditor(*model).PutCells(EditCommand::Import, cells);
}

OpenGrid CInputPanel::ShownGrid() const
{
    OpenGrid open;
    if (!model_)
        return open;
    open.block = block_;
    open.loose = model_->Loose();
    const CPanelEditor& editor = source_->Editor();
    if (editor.HidesRows())
        for (int row = 1; row <= model_->GridRows(); ++row)
            open.hidden.push_back(editor.IsHidden(row) ? 1 : 0);
    return open;
}

/// One step, which belongs to this block if it changes it: what its grid holds beside the data goes along.
ReplaceOutcome CInputPanel::ReplaceHits(const std::vector<CellHit>& hits)
{
    ReplaceOutcome outcome;
    if (!model_ || hits.empty() || !Grid()->CommitEditor())
        return outcome;
    CommitGrid();
    std::vector<CellHit> others;
    std::ranges::copy_if(hits, std::back_inserter(others), [this](const CellHit& hit) { return hit.block != block_; });
    const std::vector<CellEntry> own = TextsOf(*model_, hits);
    const std::size_t ownHits = hits.size() - others.size();
    const std::size_t put = static_cast<std::size_t>(source_->Editor().PutCells(EditCommand::Replace, own).put);
    source_->Editor().ForgetDone();
    {
        const QScopedValueRollback committing(committing_, true);
        PanelEdit edit;
        edit.place = own.empty() ? EditPlace{hits.front().block, hits.front().row, hits.front().column}
                                 : EditPlace{block_, own.front().place.row, own.front().place.column};
        edit.name = Cp932(std::to_string(hits.size()) + " セルの置換");
        edit.write = [&](CProjectWriter& writer) {
            model_->Commit(writer);
            FollowLinks(writer, block_);
            outcome = ReplaceCells(writer, others);
        };
        edit.isModified = [&] { return put + outcome.put > 0 || Doc().IsModified(); };
        if (!own.empty())
            edit.looseBefore = loose_;
        edit.looseAfter = [&] { return own.empty() ? LooseRows() : model_->Loose(); };
        Doc().Commit(edit);
        loose_ = model_->Loose();
    }
    outcome.put += put;
    outcome.stayed += ownHits - put;
    ShowAnew(model_->Loose()); // names, locks and lists may follow what has changed elsewhere
    wasModified_ = true;
    emit undoChanged();
    return outcome;
}

} // namespace sbd
