#include "upperview/book_sketches.h"

#include "project/sbd_data.h"
#include "upperview/draw_painter.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_drawing.h"
#include "upperview/page/page_store.h"

#include <QPainter>
#include <QRectF>

#include <algorithm>

namespace sbd {

namespace {

// 0.1 mm
constexpr int kTextSize = 32;
constexpr double kHighest = 800;
constexpr double kBelow = 30;
constexpr double kLargest = 0.75; // of its size on the screen

} // namespace

struct CBookSketches::Placed {
    const Sketch* sketch = nullptr;
    QRectF box; // what it takes, y downward
    double scale = 1;
    double top = 0; // below the first one's
    [[nodiscard]] double Height() const { return box.height() * scale + kBelow; }
};

/// Those that a page has no room for are left out.
std::vector<CBookSketches::Placed> CBookSketches::PlacedOf(int block) const
{
    std::vector<Placed> placed;
    const Page* page = look_.sketches ? FindPage(block) : nullptr;
    const PageView view{data_, block, 0, 0};
    const PageBranch* branch = page != nullptr ? page->BranchOf(view) : nullptr;
    if (branch == nullptr)
        return placed;
    const double room = (page_.Foot() - book_page::kTop) / 2;
    double height = 0;
    for (const std::string& name : branch->sketches) {
        const Sketch* sketch = FindSketch(*page, name);
        if (sketch == nullptr || !sketch->when.Holds(view))
            continue;
        CDrawRecorder recorder(MetricsOf(BookFont(look_, kTextSize)));
        (void)DrawSketch(recorder, *sketch, view, {0, 0});
        QRectF box;
        for (const Primitive& primitive : recorder.Primitives()) {
            const DrawBox taken = recorder.BoxOf(primitive);
            box = box.united(QRectF(QPointF(taken.left, -taken.top), QPointF(taken.right + 1, -taken.bottom + 1)));
        }
        if (box.isEmpty())
            continue;
        const double scale = std::min({kLargest, page_.Room() / box.width(), kHighest / box.height()});
        const Placed at{sketch, box, scale, height};
        if (height + at.Height() >= room)
            continue;
        height += at.Height();
        placed.push_back(at);
    }
    return placed;
}

double CBookSketches::HeightOf(int block) const
{
    const std::vector<Placed> placed = PlacedOf(block);
    return placed.empty() ? 0 : placed.back().top + placed.back().Height();
}

void CBookSketches::Paint(QPainter& painter, int block, double top) const
{
    for (const Placed& at : PlacedOf(block)) {
        painter.save();
        painter.translate(book_page::kLeft + 20, top + at.top);
        painter.scale(at.scale, at.scale);
        painter.translate(-at.box.topLeft());
        painter.setBackground(Qt::white);
        {
            CPainterContext context(painter, BookFont(look_, kTextSize));
            (void)DrawSketch(context, *at.sketch, PageView{data_, block, 0, 0}, {0, 0});
        }
        painter.restore();
    }
}

} // namespace sbd
