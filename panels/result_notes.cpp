#include "panels/result_notes.h"

#include "document/section_doc.h"
#include "panels/result_notice.h"
#include "results/result_faults.h"
#include "results/result_table.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSpacing = 4;

/// A text that can be marked and copied.
QLabel* MakeText(const QString& name)
{
    auto* label = new QLabel;
    label->setAccessibleName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    label->setMargin(kSpacing);
    return label;
}

void MakeWarning(QWidget* widget, bool warns)
{
    widget->setAutoFillBackground(warns);
    widget->setBackgroundRole(warns ? QPalette::ToolTipBase : QPalette::Window);
    widget->setForegroundRole(warns ? QPalette::ToolTipText : QPalette::WindowText);
}

} // namespace

CResultNotes::CResultNotes(CKELDSectionDoc* doc, QWidget* panel)
    : QWidget(panel)
    , doc_(doc)
    , session_(ResultSessionOf(*doc))
    , point_(new QWidget)
    , pointText_(MakeText(tr("図で選んだ点")))
    , showOver_(new QPushButton(tr("重ねた方を表に出す(&V)")))
    , origin_(MakeText(tr("結果の状態")))
    , faults_(MakeText(tr("結果ファイルの不備")))
{
    showOver_->setToolTip(tr("重ねた荷重・主桁と、表の荷重・主桁を入れ替えます。図の2本の線はそのままです。"));
    showOver_->setEnabled(false);
    auto* line = new QHBoxLayout(point_);
    line->setContentsMargins(0, 0, kSpacing, 0);
    line->addWidget(pointText_, 1);
    line->addWidget(showOver_);
    MakeWarning(point_, true);
    pointText_->setForegroundRole(QPalette::ToolTipText);
    MakeWarning(faults_, true);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    for (QWidget* note : std::initializer_list<QWidget*>{point_, origin_, faults_}) {
        note->hide();
        rows->addWidget(note);
    }
    rows->addWidget(new CResultNotice(doc, panel)); // below, so that nothing moves under the pointer when it comes
    connect(showOver_, &QPushButton::clicked, this, &CResultNotes::overWanted);
}

void CResultNotes::ShowOrigin(const CResultTable& table)
{
    const ResultState& state = session_.State();
    QStringList parts;
    for (const std::string& line : {ResultStateLine(state), StaleLine(state)})
        if (!line.empty())
            parts << toQString(line);
    if (const std::size_t count = table.NotNumbers(); count > 0)
        parts << tr("表の %1 個の値は数ではありません (最大・最小と図には含まれません)").arg(count);
    origin_->setText(parts.join(u'　'));
    origin_->setVisible(!parts.isEmpty());
    MakeWarning(origin_, !state.newerInput.empty() || table.NotNumbers() > 0);
}

void CResultNotes::ShowFaults()
{
    QStringList lines;
    for (const ResultFault& fault : ResultFaults(doc_->Results()))
        lines << toQString(fault.text);
    if (!lines.isEmpty()) {
        lines.prepend(tr("結果ファイルに不備があります。"));
        lines << tr("入力データには影響ありません。解析をもう一度実行してから、結果を読み込んでください。");
    }
    faults_->setText(lines.join(u'\n'));
    faults_->setVisible(!lines.isEmpty());
}

void CResultNotes::ShowPoint(const PickedPoint& point, bool isInTable)
{
    const QString words = WordsOf(point, isInTable);
    pointText_->setText(words);
    showOver_->setVisible(point.isOver);
    showOver_->setEnabled(point.isOver);
    point_->setVisible(!words.isEmpty());
}

void CResultNotes::HidePoint()
{
    point_->hide();
    showOver_->setEnabled(false);
}

QString CResultNotes::WordsOf(const PickedPoint& point, bool isInTable) const
{
    const ResultSelection& selection = session_.selection;
    const QString what = toQString(point.words).replace(u'\n', u'　');
    const bool isOtherLoad = point.isOver && !selection.overLoad.empty() && selection.overLoad != selection.load;
    if (isOtherLoad && isInTable)
        return tr("図で選んだ点は、重ねた荷重のものです: %1\n表の同じ行の値は荷重 %2 のものです。")
            .arg(what, toQString(ShownLoad(selection.load)));
    if (isInTable)
        return {}; // under the cursor
    return point.isOver
               ? tr("図で選んだ点は、重ねた図のものです: %1\nこの表にはありません。").arg(what)
               : tr("図で選んだ点は、表に出ていません: %1\n絞り込み、出力しない名称、名称の選択を確かめてください。")
                     .arg(what);
}

} // namespace sbd
