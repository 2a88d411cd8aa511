#include "upperview/help_page.h"

#include "upperview/draw_painter.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_store.h"
#include "upperview/topics_page.h"

#include <QStringList>

#include <algorithm>
#include <cstdlib>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastHeight = 8;
constexpr int kMostHeight = 600;

PageExtent Draw(CDrawContext& dc, const CSbdData& data, const HelpCell& cell, QSize client)
{
    const Page* page = FindPage(cell.block);
    if (page == nullptr)
        return {};
    const PageView view{data, cell.block, cell.row, cell.column, client.width(), client.height(), cell.searchText};
    if (cell.topics && page->BranchOf(view) == nullptr)
        page = &TopicsPage();
    return DrawPage(dc, *page, view);
}

} // namespace

QFont HelpFont(const DisplaySettings& display)
{
    QFont font;
    font.setFamilies({display.fontFaceName, u"ＭＳ ゴシック"_s, u"MS Gothic"_s, u"IPAGothic"_s, u"IPAゴシック"_s});
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(
        std::clamp(2 * std::abs(std::clamp(display.fontHeight, -kMostHeight, kMostHeight)), kLeastHeight, kMostHeight));
    font.setItalic(display.fontItalic);
    font.setUnderline(display.fontUnderline);
    font.setStrikeOut(display.fontStrikeOut);
    font.setHintingPreference(QFont::PreferNoHinting); // so that it scales as it is measured
    return font;
}

PageExtent PaintHelpPage(QPainter& painter, const CSbdData& data, const HelpCell& cell, QSize client, const QFont& font)
{
    CPainterContext context(painter, font);
    return Draw(context, data, cell, client);
}

PageExtent MeasureHelpPage(const CSbdData& data, const HelpCell& cell, QSize client, const QFont& font)
{
    CDrawRecorder recorder(MetricsOf(font));
    return Draw(recorder, data, cell, client);
}

} // namespace sbd
