#include "panels/result_choices.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "project/text.h"
#include "results/model_projection.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBoxCharacters = 16; // the drop lists are as wide, whatever names they hold
constexpr int kListWidth = 170;    // px, for names of 20 bytes
constexpr int kLeastListWidth = 90;
constexpr int kSpacing = 4;

QStringList Texts(const std::vector<std::string>& names)
{
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(names.size()));
    std::ranges::transform(names, std::back_inserter(texts), [](const std::string& name) { return toQString(name); });
    return texts;
}

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// A drop list that the wheel changes only while it has the focus: who scrolls the choices must not change one.
class ChoiceBox : public QComboBox {
public:
    ChoiceBox() { setFocusPolicy(Qt::StrongFocus); } // the wheel gives no focus

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore(); // the pane around it scrolls
    }
};

/// As wide as the choices are; in a narrow window they give way to the table and are rolled to both sides.
class ChoicePane : public QScrollArea {
public:
    explicit ChoicePane(QWidget* choices)
    {
        constexpr int leastWidth = 150;
        setWidget(choices);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus); // its controls have the keyboard, and scroll it
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
        setMinimumWidth(leastWidth);
    }
    [[nodiscard]] QSize sizeHint() const override
    {
        return {widget()->sizeHint().width() + verticalScrollBar()->sizeHint().width(),
                QScrollArea::sizeHint().height()};
    }
};

QComboBox* MakeBox()
{
    auto* box = new ChoiceBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kBoxCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

void Fill(QComboBox* box, const QStringList& entries, const QString& shown)
{
    const QSignalBlocker quiet(box);
    box->clear();
    box->addItems(entries);
    box->setCurrentIndex(box->findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

} // namespace

CResultChoices::CResultChoices(CKELDSectionDoc* doc, QWidget* parent)
    : QWidget(parent)
    , doc_(doc)
    , session_(ResultSessionOf(*doc))
{
    MakeControls();
    ConnectControls();
}

void CResultChoices::MakeControls()
{
    kind_ = MakeBox();
    load_ = MakeBox();
    girder_ = MakeBox();
    station_ = MakeBox();
    station_->setEditable(true);
    station_->setInsertPolicy(QComboBox::NoInsert);
    station_->setCompleter(nullptr); // the beginning of a name is a choice of its own
    stations_ = new QStringListModel(this);
    station_->setModel(stations_);
    figureItem_ = MakeBox();
    stationLabel_ = new QLabel;
    stationLabel_->setBuddy(station_);

    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setVerticalSpacing(kSpacing);
    form->addRow(tr("出力選択"), kind_);
    form->addRow(tr("荷重"), load_);
    MakeEnvelopeChoice();
    form->addRow(envelope_);
    form->addRow(envelopeLoads_);
    form->addRow(tr("主桁(すべて･なし･桁名)"), girder_);
    form->addRow(stationLabel_, station_);
    form->addRow(tr("図出力項目"), figureItem_);
    magnification_ = MakeBox();
    for (const int times : kMagnifications)
        magnification_->addItem(times == 0 ? tr("自動") : QString::number(times));
    form->addRow(tr("変形の倍率"), magnification_);
    filter_ = new QLineEdit;
    filter_->setClearButtonEnabled(true);
    filter_->setPlaceholderText(tr("名称の一部"));
    filter_->setToolTip(tr("この文字を含む名称だけを表に出します。図は変わりません。"));
    form->addRow(tr("絞り込み"), filter_);

    auto* choices = new QWidget;
    auto* left = new QVBoxLayout(choices);
    left->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    left->addLayout(form);
    left->addWidget(MakeColumnChoice());
    left->addWidget(MakeOverChoice());
    left->addStretch();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(new ChoicePane(choices));
    row->addWidget(MakeExcludedChoice());
}

QWidget* CResultChoices::MakeColumnChoice()
{
    constexpr int columns = 3;
    auto* group = new QGroupBox(tr("表出力項目"));
    group->setObjectName(u"columns"_s);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(0);
    for (std::size_t i = 0; i < columnOn_.size(); ++i) {
        columnOn_[i] = new QCheckBox;
        grid->addWidget(columnOn_[i], static_cast<int>(i) / columns, static_cast<int>(i) % columns);
    }
    return group;
}

void CResultChoices::MakeEnvelopeChoice()
{
    constexpr int listHeight = 110;
    envelope_ = new QCheckBox(tr("荷重の最大・最小 (包絡)"));
    envelope_->setToolTip(tr("選んだ荷重の最大値と最小値を、その荷重名とともに表と図に出します。"));
    loads_ = new QStringListModel(this);
    envelopeLoads_ = new QListView;
    envelopeLoads_->setObjectName(u"envelopeLoads"_s);
    envelopeLoads_->setModel(loads_);
    envelopeLoads_->setAccessibleName(tr("包絡する荷重"));
    envelopeLoads_->setToolTip(tr("包絡する荷重。Ctrl+A ですべて選びます。"));
    envelopeLoads_->setSelectionMode(QAbstractItemView::MultiSelection);
    envelopeLoads_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    envelopeLoads_->setUniformItemSizes(true);
    envelopeLoads_->setFixedHeight(listHeight);
}

QWidget* CResultChoices::MakeOverChoice()
{
    overLoad_ = MakeBox();
    overGirder_ = MakeBox();
    auto* group = new QGroupBox(tr("図の重ね描き"));
    auto* form = new QFormLayout(group);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setVerticalSpacing(kSpacing);
    form->addRow(tr("図に重ねる荷重"), overLoad_);
    form->addRow(tr("図に重ねる主桁"), overGirder_);
    return group;
}

QWidget* CResultChoices::MakeExcludedChoice()
{
    excludedLabel_ = new QLabel;
    offered_ = new QStringListModel(this);
    excluded_ = new QListView;
    excluded_->setModel(offered_);
    excluded_->setSelectionMode(QAbstractItemView::MultiSelection);
    excluded_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    excluded_->setUniformItemSizes(true);
    excludedLabel_->setBuddy(excluded_);
    auto* side = new QWidget;
    side->setMaximumWidth(kListWidth);
    side->setMinimumWidth(kLeastListWidth);
    auto* box = new QVBoxLayout(side);
    box->setContentsMargins(0, kSpacing, kSpacing, kSpacing);
    box->addWidget(excludedLabel_);
    box->addWidget(excluded_, 1);
    return side;
}

void CResultChoices::ConnectControls()
{
    connect(kind_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnKind);
    connect(load_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnLoad);
    connect(girder_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnGirder);
    connect(station_, &QComboBox::editTextChanged, this, &CResultChoices::OnStation);
    connect(figureItem_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnFigureItem);
    connect(magnification_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnMagnification);
    connect(filter_, &QLineEdit::textChanged, this, &CResultChoices::OnFilter);
    connect(envelope_, &QCheckBox::toggled, this, &CResultChoices::OnEnvelope);
    connect(envelopeLoads_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &CResultChoices::OnEnvelopeLoads);
    connect(overLoad_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnOver);
    connect(overGirder_, &QComboBox::currentIndexChanged, this, &CResultChoices::OnOver);
    for (QCheckBox* box : columnOn_)
        connect(box, &QCheckBox::clicked, this, &CResultChoices::OnColumns);
    connect(excluded_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CResultChoices::OnExcluded);
}

void CResultChoices::ShowSelection()
{
    const AnalysisModel& model = doc_->Results().model;
    ResultSelection& selection = session_.selection;
    if (!selection.panelUsed || selection.load.empty()) // there were no results when it was first used
        selection = FirstUseSelection(model);

    QStringList kinds;
    for (const ResultKindInfo& info : ResultKinds())
        kinds << Text8(info.word);
    Fill(kind_, kinds, Text8(InfoOf(selection.kind).word));
    ShowLoads();
    Fill(girder_, Texts(ChoicesOf(model, selection.kind).girders), toQString(selection.girder));
    station_->setEnabled(selection.stationEnabled || model.girderNames.empty());
    ShowStations();
    ShowOffered();
    for (std::size_t i = 0; i < columnOn_.size(); ++i)
        columnOn_[i]->setChecked(selection.columnOn[i]);
    const auto* const times = std::ranges::find(kMagnifications, selection.magnification);
    {
        const QSignalBlocker quiet(magnification_);
        magnification_->setCurrentIndex(static_cast<int>(times - std::begin(kMagnifications)));
        const QSignalBlocker quietToo(filter_);
        filter_->setText(toQString(selection.filter));
    }
    ShowKindWords();
}

void CResultChoices::ShowDefaultItem()
{
    ResultSelection& selection = session_.selection;
    const ResultKindInfo& info = InfoOf(selection.kind);
    selection.figureItem = ComponentWord(selection.kind, info.defaultComponent);
    const QSignalBlocker quiet(figureItem_);
    figureItem_->setCurrentIndex(static_cast<int>(info.defaultComponent));
}

void CResultChoices::ChooseItem(const QString& item)
{
    figureItem_->setCurrentText(item);
}

void CResultChoices::ShowSeveral()
{
    const AnalysisModel& model = doc_->Results().model;
    const ResultSelection& selection = session_.selection;
    const std::vector<std::string> names = EnvelopeLoads(model, selection.kind);
    QStringList shown;
    for (const std::string& name : names)
        shown << toQString(ShownLoad(Trim(name)));
    {
        const QSignalBlocker quiet(envelope_);
        const QSignalBlocker quietToo(envelopeLoads_->selectionModel());
        envelope_->setChecked(selection.envelope);
        envelopeLoads_->setVisible(selection.envelope);
        if (loads_->stringList() != shown)
            loads_->setStringList(shown);
        QItemSelection chosen;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (std::ranges::find(selection.envelopeLoads, names[i]) != selection.envelopeLoads.end())
                chosen.select(loads_->index(static_cast<int>(i)), loads_->index(static_cast<int>(i)));
        envelopeLoads_->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
        envelopeLoads_->viewport()->update();
    }
    const QString none = tr("(なし)");
    const auto orNone = [&](const std::string& cp932) { return cp932.empty() ? none : toQString(cp932); };
    Fill(overLoad_, QStringList{none} + Texts(ChoicesOf(model, selection.kind).loads),
         orNone(ShownLoad(selection.overLoad)));
    Fill(overGirder_, QStringList{none} + Texts(model.girderNames), orNone(selection.overGirder));
    overLoad_->setEnabled(!selection.envelope);
    overGirder_->setEnabled(!selection.envelope);
    load_->setEnabled(!selection.envelope);
}

void CResultChoices::ShowLoads()
{
    ShowSeveral();
    const ResultSelection& selection = session_.selection;
    Fill(load_, Texts(ChoicesOf(doc_->Results().model, selection.kind).loads), toQString(ShownLoad(selection.load)));
}

void CResultChoices::ShowStations()
{
    const QSignalBlocker quiet(station_);
    stations_->setStringList(Texts(ChoicesOf(doc_->Results().model, session_.selection.kind).stations));
    station_->setEditText(toQString(session_.selection.station));
}

void CResultChoices::ShowOffered()
{
    const QSignalBlocker quiet(excluded_->selectionModel());
    const ResultSelection& selection = session_.selection;
    const QStringList names = Texts(selection.offeredNames);
    offered_->setStringList(names);
    for (const std::string& name : selection.excludedNames)
        if (const qsizetype row = names.indexOf(toQString(name)); row >= 0)
            excluded_->selectionModel()->select(offered_->index(static_cast<int>(row)), QItemSelectionModel::Select);
    excluded_->viewport()->update();
}

void CResultChoices::ShowKindWords()
{
    const ResultKindInfo& info = InfoOf(session_.selection.kind);
    stationLabel_->setText(Text8(info.stationLabel));
    excludedLabel_->setText(Text8(info.excludedLabel));
    QStringList items;
    for (std::size_t i = 0; i < kNodeComponents; ++i) {
        items << Text8(info.components[i]);
        columnOn_[i]->setText(items.last());
    }
    Fill(figureItem_, items, items[static_cast<qsizetype>(info.defaultComponent)]);
}

// --- what the user chose -----------------------------------------------------------------------------

void CResultChoices::OnKind(int index)
{
    if (index < 0)
        return;
    SelectKind(session_.selection, doc_->Results().model, ResultKinds()[static_cast<std::size_t>(index)].kind);
    ShowLoads();
    ShowStations();
    ShowOffered();
    ShowKindWords();
    emit tableWanted();
}

void CResultChoices::OnLoad(int index)
{
    const std::vector<std::string> loads = ChoicesOf(doc_->Results().model, session_.selection.kind).loads;
    if (index < 0 || static_cast<std::size_t>(index) >= loads.size())
        return;
    SelectLoad(session_.selection, loads[static_cast<std::size_t>(index)]);
    emit tableWanted();
}

void CResultChoices::OnGirder(int index)
{
    const AnalysisModel& model = doc_->Results().model;
    const std::vector<std::string> girders = ChoicesOf(model, session_.selection.kind).girders;
    if (index < 0 || static_cast<std::size_t>(index) >= girders.size())
        return;
    SelectGirder(session_.selection, model, girders[static_cast<std::size_t>(index)]);
    station_->setEnabled(session_.selection.stationEnabled);
    ShowOffered();
    emit tableWanted();
}

void CResultChoices::OnStation(const QString& text)
{
    const std::optional<std::string> station = fromQString(text);
    if (!station) // no name holds such a character; the input goes on
        return;
    SelectStation(session_.selection, doc_->Results().model, *station);
    ShowOffered();
    emit tableWanted();
}

void CResultChoices::OnFigureItem(int index)
{
    if (index < 0)
        return;
    session_.selection.figureItem = ComponentWord(session_.selection.kind, static_cast<std::size_t>(index));
    session_.ShowFigureAnew();
}

void CResultChoices::OnMagnification(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= std::size(kMagnifications))
        return;
    session_.selection.magnification = kMagnifications[index];
    session_.ShowFigureAnew();
}

void CResultChoices::OnFilter(const QString& text)
{
    const std::optional<std::string> filter = fromQString(text.trimmed());
    if (!filter) // no name holds such a character; the input goes on
        return;
    session_.selection.filter = *filter;
    emit tableOfTheItemWanted();
}

void CResultChoices::OnEnvelope(bool on)
{
    ResultSelection& selection = session_.selection;
    selection.envelope = on;
    selection.sortColumn = 0; // the columns are others
    if (on && EnvelopeCases(doc_->Results().model, selection).empty())
        selection.envelopeLoads = EnvelopeLoads(doc_->Results().model, selection.kind);
    ShowSeveral();
    emit tableOfTheItemWanted();
}

void CResultChoices::OnEnvelopeLoads()
{
    ResultSelection& selection = session_.selection;
    const std::vector<std::string> names = EnvelopeLoads(doc_->Results().model, selection.kind);
    selection.envelopeLoads.clear();
    for (std::size_t i = 0; i < names.size(); ++i)
        if (envelopeLoads_->selectionModel()->isSelected(loads_->index(static_cast<int>(i))))
            selection.envelopeLoads.push_back(names[i]);
    emit tableOfTheItemWanted();
}

void CResultChoices::OnOver()
{
    const AnalysisModel& model = doc_->Results().model;
    ResultSelection& selection = session_.selection;
    const std::vector<std::string> loads = ChoicesOf(model, selection.kind).loads;
    const int load = overLoad_->currentIndex() - 1; // behind "none"
    const int girder = overGirder_->currentIndex() - 1;
    selection.overLoad = load >= 0 && static_cast<std::size_t>(load) < loads.size()
                             ? LoadOfShown(loads[static_cast<std::size_t>(load)])
                             : std::string();
    selection.overGirder = girder >= 0 && static_cast<std::size_t>(girder) < model.girderNames.size()
                               ? model.girderNames[static_cast<std::size_t>(girder)]
                               : std::string();
    session_.ShowFigureAnew();
}

void CResultChoices::OnColumns()
{
    for (std::size_t i = 0; i < columnOn_.size(); ++i)
        session_.selection.columnOn[i] = columnOn_[i]->isChecked();
    session_.selection.sortColumn = 0; // the columns are others
    emit tableWanted();
}

void CResultChoices::OnExcluded()
{
    Commit();
    emit tableWanted();
}

void CResultChoices::Commit()
{
    ResultSelection& selection = session_.selection;
    selection.excludedNames.clear();
    for (const QModelIndex& index : excluded_->selectionModel()->selectedIndexes())
        selection.excludedNames.push_back(selection.offeredNames[static_cast<std::size_t>(index.row())]);
}

} // namespace sbd
