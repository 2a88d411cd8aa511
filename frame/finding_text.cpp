#include "frame/finding_text.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QStringList>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr SeverityLook kSeverities[] = {
    {Severity::Loss, MarkKind::Loss, u"変わる"},
    {Severity::Doubt, MarkKind::Doubt, u"疑い"},
    {Severity::Hint, MarkKind::Hint, u"確認"},
};

constexpr SwitchableKind kSwitchable[] = {
    {FindingKind::UnknownName, u"プロジェクトにない名称"},
    {FindingKind::NotANumber, u"数値の列の文字"},
    {FindingKind::NotInList, u"選択肢にない語"},
    {FindingKind::RangeReversed, u"始と終が逆の範囲"},
    {FindingKind::RowCovered, u"後の行に含まれる行"},
    {FindingKind::NeededBlockEmpty, u"必要なブロックが空"},
    {FindingKind::BlocksDisagree, u"連動するブロックの不一致"},
    {FindingKind::NotDrawable, u"橋の図に描けない所"},
};

} // namespace

std::span<const SeverityLook> SeverityLooks()
{
    return kSeverities;
}

const SeverityLook& LookOf(Severity severity)
{
    return *std::ranges::find(kSeverities, severity, &SeverityLook::severity);
}

QString SignAndWord(Severity severity)
{
    const SeverityLook& look = LookOf(severity);
    return QString(QChar(LookOf(look.mark).sign)) + u' ' + look.word.toString();
}

QIcon SignIcon(MarkKind mark, const QPalette& palette)
{
    constexpr int size = 12; // px
    const double ratio = qApp->devicePixelRatio();
    QPixmap picture(QSize(size, size) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(TintOf(mark, palette));
    painter.drawRoundedRect(QRectF(0, 0, size, size), 3, 3);
    QFont font;
    font.setBold(true);
    font.setPixelSize(size - 2);
    painter.setFont(font);
    painter.setPen(SignColorOf(mark, palette));
    painter.drawText(QRectF(0, 0, size, size), int(Qt::AlignCenter), QString(QChar(LookOf(mark).sign)));
    return picture;
}

std::span<const SwitchableKind> SwitchableKinds()
{
    return kSwitchable;
}

std::vector<CellMark> MarksOf(std::span<const Finding> findings)
{
    std::vector<CellMark> marks;
    for (const Finding& finding : findings) {
        if (finding.row > 0)
            marks.push_back({finding.row, finding.column, LookOf(RuleOf(finding.kind).severity).mark,
                             QString::fromStdString(finding.text)});
    }
    return marks;
}

QString CountsText(const SeverityCounts& counts)
{
    QStringList parts;
    for (const SeverityLook& look : kSeverities) {
        if (const std::size_t count = counts[static_cast<std::size_t>(look.severity)]; count > 0)
            parts << SignAndWord(look.severity) + u' ' + QString::number(count);
    }
    return parts.join(u'　');
}

} // namespace sbd
