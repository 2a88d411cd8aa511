#include "upperview/drawing_pane.h"

#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "drawing/joint_detail.h"
#include "panelmodel/panel_model.h"
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "upperview/bridge_sheet.h"
#include "upperview/display_look.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>
#include <QSplitter>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kExaggerations[] = {1, 2, 5};
constexpr int kPlaceRole = Qt::UserRole;
constexpr std::chrono::milliseconds kSearch{1000}; // for the drawing of a row

struct ViewRow {
    DrawingView view;
    QString title;
    Command plane; // of the model figure that looks the same way
};
const ViewRow kViews[] = {
    {DrawingView::Elevation, u"側面図"_s, Command::ViewXZ},
    {DrawingView::Section, u"断面図"_s, Command::ViewYZ},
    {DrawingView::Plan, u"平面図"_s, Command::ViewXY},
    {DrawingView::Joint, u"継手･連結図"_s, Command::None},
};

std::size_t Index(DrawingView view)
{
    return static_cast<std::size_t>(view);
}

} // namespace

CDrawingPane::CDrawingPane(CKELDSectionDoc* doc, QWidget* parent)
    : QWidget(parent)
    , doc_(doc)
    , views_(new QComboBox)
    , items_(new QComboBox)
    , sides_(new QComboBox)
    , camber_(new QCheckBox(u"キャンバー"_s))
    , exaggerations_(new QComboBox)
    , goToRow_(new QToolButton)
    , told_(new QLabel)
    , canvas_(new CDrawingCanvas)
    , listTitle_(new QLabel)
    , omissions_(new QListWidget)
{
    MakeChoosers();
    setFocusProxy(canvas_);
    setAccessibleName(u"橋の図"_s);
    canvas_->wordsOf = [this](const SourceCell& place) { return WordsOf(place); };
    connect(canvas_, &CDrawingCanvas::cellWanted, this, &CDrawingPane::cellWanted);
    connect(omissions_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        const QList<QVariant> place = item->data(kPlaceRole).toList();
        if (place.size() == 3 && place[0].toInt() != 0)
            emit cellWanted(place[0].toInt(), place[1].toInt(), std::max(place[2].toInt(), 1));
    });
    connect(doc_, &CKELDSectionDoc::changed, this, [this](const BlockChange& change) { OnChanged(change.block); });
    soon_.setSingleShot(true);
    soon_.setInterval(0);
    connect(&soon_, &QTimer::timeout, this, &CDrawingPane::Refresh);
    const auto anew = [this] {
        made_.reset();
        if (isVisible())
            Refresh();
    };
    connect(doc_, &CKELDSectionDoc::reloaded, this, anew);
    connect(doc_, &CKELDSectionDoc::resultsRead, this, anew);
}

void CDrawingPane::MakeChoosers()
{
    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(4, 2, 4, 2);
    for (const ViewRow& row : kViews)
        views_->addItem(row.title);
    sides_->addItems({u"左腹板"_s, u"右腹板"_s});
    for (const int times : kExaggerations)
        exaggerations_->addItem(u"高さ %1倍"_s.arg(times));
    views_->setAccessibleName(u"図の種類"_s);
    items_->setAccessibleName(u"主桁または横断線"_s);
    sides_->setAccessibleName(u"箱桁の腹板"_s);
    exaggerations_->setAccessibleName(u"高さの倍率"_s);
    camber_->setToolTip(u"259 のたわみを図に重ねる"_s);
    items_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    for (QWidget* each : std::initializer_list<QWidget*>{views_, items_, sides_, exaggerations_, camber_})
        bar->addWidget(each);
    goToRow_->setText(u"この行の図へ"_s);
    goToRow_->setToolTip(u"カーソルの行が出ている図に切り替える"_s);
    goToRow_->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard in the table
    goToRow_->hide();
    bar->addWidget(goToRow_);
    bar->addWidget(told_, 1);
    told_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto* list = new QWidget;
    auto* listLayout = new QVBoxLayout(list);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listLayout->setSpacing(0);
    listTitle_->setContentsMargins(4, 1, 4, 1);
    listLayout->addWidget(listTitle_);
    listLayout->addWidget(omissions_);
    omissions_->setAccessibleName(u"図にできないもの"_s);
    omissions_->setUniformItemSizes(true);
    omissions_->setMinimumHeight(fontMetrics().height() + 2 * omissions_->frameWidth()); // the drawing needs the room

    auto* splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(true);
    splitter->addWidget(canvas_);
    splitter->addWidget(list);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    const int lines = 3 * fontMetrics().lineSpacing() + 18; // a title and two lines
    splitter->setSizes({100 * lines, lines});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(splitter, 1);

    connect(views_, &QComboBox::currentIndexChanged, this,
            [this](int index) { Show(kViews[static_cast<std::size_t>(index)].view); });
    connect(items_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0 && static_cast<std::size_t>(index) < names_.size())
            chosen_[Index(shown_)] = names_[static_cast<std::size_t>(index)];
        OnChoice();
    });
    connect(sides_, &QComboBox::currentIndexChanged, this, &CDrawingPane::OnChoice);
    connect(camber_, &QCheckBox::toggled, this, &CDrawingPane::OnChoice);
    connect(goToRow_, &QToolButton::clicked, this, &CDrawingPane::GoToRow);
    connect(exaggerations_, &QComboBox::currentIndexChanged, this,
            [this](int index) { canvas_->SetExaggeration(kExaggerations[static_cast<std::size_t>(index)]); });
}

void CDrawingPane::Show(DrawingView view)
{
    figureViews_[Index(shown_)] = canvas_->View();
    shown_ = view;
    const QSignalBlocker quiet(views_);
    views_->setCurrentIndex(static_cast<int>(Index(view)));
    canvas_->SetView(figureViews_[Index(view)]);
    OnChoice();
}

void CDrawingPane::ShowItem(std::size_t number)
{
    items_->setCurrentIndex(static_cast<int>(number));
}

void CDrawingPane::GoToRow()
{
    const DrawingSearch search = DrawingOfRow(doc_->Data(), doc_->Results(), Request(), Selected(), kSearch);
    if (goToRow_->hasFocus())
        canvas_->setFocus(); // the button goes
    if (!search.found) {
        goToRow_->hide();
        told_->setText(search.all ? u"カーソルの行は、どの図にも出ていません。"_s
                                  : u"図が多いため、カーソルの行の図を途中まで探しましたが、見つかりません。"_s);
        told_->setToolTip(told_->text());
        return;
    }
    const DrawingRequest& found = *search.found;
    const GridNames& grid = doc_->Data().gridNames;
    if (found.view == DrawingView::Elevation || found.view == DrawingView::Joint) {
        const QSignalBlocker quiet(sides_);
        sides_->setCurrentIndex(found.side == GirderSide::Right ? 1 : 0);
        chosen_[Index(DrawingView::Elevation)] = grid.girderNames[found.girder];
    }
    if (found.view == DrawingView::Joint)
        chosen_[Index(DrawingView::Joint)] =
            JointNames(doc_->Data(), doc_->Results(), found.girder, found.side)[found.joint];
    if (found.view == DrawingView::Section)
        chosen_[Index(DrawingView::Section)] = grid.swayNames[found.station];
    Show(found.view);
}

void CDrawingPane::SetExaggeration(int times)
{
    const auto* const found = std::ranges::find(kExaggerations, times);
    if (found != std::end(kExaggerations))
        exaggerations_->setCurrentIndex(static_cast<int>(found - std::begin(kExaggerations)));
}

/// The girder that was chosen for the elevation, by its number.
std::size_t CDrawingPane::ChosenGirder() const
{
    const std::vector<std::string>& names = doc_->Data().gridNames.girderNames;
    const auto chosen = std::ranges::find(names, chosen_[Index(DrawingView::Elevation)]);
    return chosen == names.end() ? 0 : static_cast<std::size_t>(chosen - names.begin());
}

GirderSide CDrawingPane::ChosenSide() const
{
    return sides_->currentIndex() == 1 ? GirderSide::Right : GirderSide::Left;
}

/// The names that the view chooses from; what was chosen stays chosen as long as it is there.
void CDrawingPane::FillItems()
{
    const GridNames& grid = doc_->Data().gridNames;
    static const std::vector<std::string> none;
    const std::vector<std::string> joints =
        shown_ == DrawingView::Joint ? JointNames(doc_->Data(), doc_->Results(), ChosenGirder(), ChosenSide()) : none;
    const std::vector<std::string>& names = shown_ == DrawingView::Plan      ? none
                                            : shown_ == DrawingView::Joint   ? joints
                                            : shown_ == DrawingView::Section ? grid.swayNames
                                                                             : grid.girderNames;
    const QSignalBlocker quiet(items_);
    if (names != names_) {
        names_ = names;
        items_->clear();
        for (const std::string& name : names_)
            items_->addItem(toQString(name));
    }
    const auto chosen = std::ranges::find(names_, chosen_[Index(shown_)]);
    items_->setCurrentIndex(chosen == names_.end() ? (names_.empty() ? -1 : 0)
                                                   : static_cast<int>(chosen - names_.begin()));
    items_->setVisible(shown_ != DrawingView::Plan);
    const std::size_t girder = ChosenGirder();
    sides_->setVisible((shown_ == DrawingView::Elevation || shown_ == DrawingView::Joint)
                       && girder < grid.girderNames.size() && WebsOf(doc_->Data(), grid.girderNames[girder]).IsBox());
    camber_->setVisible(shown_ == DrawingView::Elevation);
}

DrawingRequest CDrawingPane::Request() const
{
    DrawingRequest request;
    request.view = shown_;
    const auto item = static_cast<std::size_t>(std::max(items_->currentIndex(), 0));
    if (shown_ == DrawingView::Section)
        request.station = item;
    if (shown_ == DrawingView::Elevation || shown_ == DrawingView::Joint) {
        request.girder = ChosenGirder();
        request.side = sides_->isHidden() ? GirderSide::Left : ChosenSide();
    }
    if (shown_ == DrawingView::Elevation)
        request.camber = camber_->isChecked();
    if (shown_ == DrawingView::Joint)
        request.joint = item;
    return request;
}

void CDrawingPane::OnChoice()
{
    if (isVisible())
        Refresh();
}

void CDrawingPane::OnChanged(int block)
{
    if (!IsReadBy(shown_, block) && made_)
        return;
    made_.reset();
    if (isVisible())
        soon_.start();
}

void CDrawingPane::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Refresh();
}

void CDrawingPane::Update()
{
    FillItems();
    const DrawingRequest request = Request();
    if (made_ == request)
        return;
    made_ = request;
    ++timesMade_;
    canvas_->SetDrawing(MakeDrawing(doc_->Data(), doc_->Results(), request));
    ShowOmissions();
}

void CDrawingPane::Refresh()
{
    if (!isVisible())
        return;
    canvas_->SetLook(PaperColour(doc_->display), FigureFont(doc_->display));
    Update();
    ShowSelected();
}

SourceCell CDrawingPane::Selected() const
{
    return {CanonicalBlock(doc_->HelpBlock() >= 0 ? doc_->HelpBlock() : doc_->CurrentBlock()), doc_->HelpRow(), 0};
}

/// Is it a row with data that some drawing may show, though not this one?
bool CDrawingPane::MayBeElsewhere(const SourceCell& row) const
{
    const auto reads = [&](const ViewRow& view) { return IsReadBy(view.view, row.block); };
    if (doc_->HelpBlock() < 0 || row.row <= WordRowsOf(row.block) || !std::ranges::any_of(kViews, reads)
        || SpeaksOf(canvas_->Drawing(), row))
        return false;
    const std::unique_ptr<CPanelModel> model = MakePanelModel(doc_->Data(), row.block);
    if (model == nullptr || row.row > model->BlockRows())
        return false;
    for (int column = 1; column < model->ColumnCount(); ++column)
        if (!model->Text(row.row, column).empty())
            return true;
    return false;
}

/// The row under the cursor. Where it says nothing of this drawing although the drawing reads its block, that is told.
void CDrawingPane::ShowSelected()
{
    const SourceCell selected = Selected();
    const int block = selected.block;
    canvas_->SetSelected(selected);
    const BridgeDrawing& drawing = canvas_->Drawing();
    QString text = drawing.provisional ? u"寸法は仮です。"_s : QString();
    if (selected.row > 0 && doc_->HelpBlock() >= 0 && IsReadBy(shown_, block)) {
        const RowUse* use = drawing.UseOf(block, selected.row);
        const QString row = u"%1 の %2 行目"_s.arg(block).arg(selected.row);
        if (use != nullptr && use->covered)
            text += row + u"は、後の行がすべての範囲で優先されます。"_s;
        else if (IsDrawn(drawing, selected))
            text += row + u"を赤で示しています。"_s;
        else if (use == nullptr)
            text += row + u"は、この図にありません。"_s;
        else if (use->area.empty())
            text += row + u"は、この図に関係しますが、形に表れていません。"_s;
        else
            text += row + u"の範囲を示しています(その部品は図にありません)。"_s;
    }
    told_->setText(text);
    told_->setToolTip(text);
    goToRow_->setVisible(MayBeElsewhere(selected));
    // The list follows too.
    for (int i = 0; i < omissions_->count(); ++i) {
        const QList<QVariant> place = omissions_->item(i)->data(kPlaceRole).toList();
        const bool isRow = selected.row > 0 && place[0].toInt() == block && place[1].toInt() == selected.row;
        omissions_->item(i)->setForeground(isRow ? QBrush(Qt::red) : QBrush());
    }
}

void CDrawingPane::ShowOmissions()
{
    omissions_->clear();
    const std::vector<Omission>& all = canvas_->Drawing().omissions;
    constexpr std::size_t most = 500;
    for (const Omission& omission : all) {
        if (static_cast<std::size_t>(omissions_->count()) >= most)
            break;
        auto* item = new QListWidgetItem(toQString(OmissionText(omission)), omissions_);
        item->setData(kPlaceRole, QList<QVariant>{omission.place.block, omission.place.row, omission.place.column});
    }
    QString title = u"図にできないもの %1 件"_s.arg(all.size());
    if (all.size() > most)
        title += u" (初めの %1 件)"_s.arg(most);
    listTitle_->setText(title);
    listTitle_->parentWidget()->setVisible(!all.empty());
}

void CDrawingPane::RunViewCommand(Command command)
{
    const auto* const row = std::ranges::find(kViews, command, &ViewRow::plane); // none has no command
    if (row == std::end(kViews))
        canvas_->RunViewCommand(command);
    else
        Show(row->view);
}

QString CDrawingPane::WordsOf(const SourceCell& place) const
{
    QString words = QString::fromStdString(NumberAndTitle(place.block));
    if (place.row <= 0)
        return words;
    words += u"  %1 行目"_s.arg(place.row);
    const std::unique_ptr<CPanelModel> model = MakePanelModel(doc_->Data(), place.block);
    if (model == nullptr || place.row > model->GridRows())
        return words;
    constexpr int most = 16; // values
    int told = 0;
    for (int column = 1; column < model->ColumnCount() && told < most; ++column) {
        const std::string text = model->Text(place.row, column);
        if (text.empty())
            continue;
        QString head = toQString(model->Head(column, place.row)).section(u'\n', 0, 0).trimmed();
        words += u"\n%1%2: %3"_s.arg(column == place.column ? u"▶"_s : u"  "_s,
                                     head.isEmpty() ? u"%1列"_s.arg(column) : head, toQString(text));
        ++told;
    }
    return words;
}

void CDrawingPane::PaintPicture(QPainter& painter)
{
    Update(); // it may be hidden
    canvas_->SetLook(PaperColour(doc_->display), FigureFont(doc_->display));
    painter.save();
    canvas_->PaintPicture(painter, PaperColour(doc_->display));
    painter.restore();
}

void CDrawingPane::PrintSheet(QPainter& painter)
{
    const GridNames& grid = doc_->Data().gridNames;
    const auto numberOf = [](const std::vector<std::string>& names, const std::string& name) {
        const auto found = std::ranges::find(names, name);
        return found == names.end() ? std::nullopt : std::optional(static_cast<std::size_t>(found - names.begin()));
    };
    GeneralChoice choice;
    choice.girder = ChosenGirder();
    choice.side = ChosenSide();
    choice.camber = camber_->isChecked();
    if (const auto station = numberOf(grid.swayNames, chosen_[Index(DrawingView::Section)]))
        choice.stations = {*station};
    const GeneralDrawing drawing = MakeGeneralDrawing(doc_->Data(), doc_->Results(), choice, doc_->Title());
    // The paper of the device, whatever it is, at the size of A3.
    const QRectF paper = painter.viewport().toRectF();
    const double scale = std::min(paper.width() / kSheetUnits.width(), paper.height() / kSheetUnits.height());
    painter.save();
    painter.scale(scale, scale);
    PaintGeneralDrawing(painter, kSheetUnits, FigureFont(doc_->display), drawing);
    painter.restore();
}

} // namespace sbd
