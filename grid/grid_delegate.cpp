#include "grid/grid_delegate.h"

#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"

#include <QApplication>
#include <QHelpEvent>
#include <QInputMethod>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace sbd {

using namespace gridstyle;

namespace {

/// As much of a text as `width` pixels can show: measuring all of a very long one would take seconds.
QString SeenPart(const QString& text, int width)
{
    const qsizetype most = std::max(width, 1); // no character is narrower than a pixel
    return text.size() > most ? text.left(most) + u'…' : text;
}

/// A text that is a little too wide is drawn with narrower letters, one that is much too wide is cut off.
void DrawCellText(QPainter& painter, const QRect& rect, const QString& text, Qt::Alignment align)
{
    constexpr double narrowest = 0.8;
    const int flags = int(Qt::AlignVCenter | align) | int(text.contains(u'\n') ? 0 : Qt::TextSingleLine);
    const QFontMetrics metrics = painter.fontMetrics();
    const int width = metrics.size(flags, text).width();
    if (width <= rect.width()) {
        painter.drawText(rect, flags, text);
        return;
    }
    const double factor = std::max(narrowest, double(rect.width()) / width);
    const QRectF wide(0, 0, rect.width() / factor, rect.height());
    painter.save();
    painter.translate(rect.topLeft());
    painter.scale(factor, 1.0);
    painter.drawText(wide, flags,
                     text.contains(u'\n') ? text : metrics.elidedText(text, Qt::ElideRight, int(wide.width()) + 1));
    painter.restore();
}

/// A sign that is seen where the tint is not, in the focused cell. Each kind has a shape of its own, for those who tell
/// no colours apart.
void DrawMarkCorner(QPainter& painter, const QRect& cell, MarkKind kind, const QColor& color)
{
    constexpr int size = 6; // px
    const QRect place(cell.left(), cell.top(), size, size);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    switch (kind) {
    case MarkKind::Loss: {
        const QPoint corner[] = {cell.topLeft(), cell.topLeft() + QPoint(size, 0), cell.topLeft() + QPoint(0, size)};
        painter.drawPolygon(corner, 3);
        break;
    }
    case MarkKind::Doubt:
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawEllipse(QRectF(place));
        painter.setRenderHint(QPainter::Antialiasing, false);
        break;
    case MarkKind::Hint:
        painter.fillRect(place.adjusted(0, 0, 0, -size + 2), color);
        painter.fillRect(place.adjusted(0, 0, -size + 2, 0), color);
        break;
    case MarkKind::Changed:
        painter.fillRect(QRect(cell.left(), cell.top(), 2, cell.height() - 1), color);
        break;
    }
}

/// A cell of the focused row that takes nothing is green like the others.
void DrawLockedInFocusRow(QPainter& painter, const QRect& cell, const Colors& colors)
{
    QColor lines = QColor::fromRgba(colors.text);
    lines.setAlpha(60); // the text stands on them
    painter.fillRect(cell, QBrush(lines, Qt::BDiagPattern));
}

void DrawButton(QPainter& painter, const QRect& rect, const Colors& colors)
{
    painter.setPen(QPen(QColor::fromRgba(colors.headLine), 0));
    painter.setBrush(QColor::fromRgba(colors.head));
    painter.drawRect(rect);
    const QPointF center = QRectF(rect).center() + QPointF(0.5, 0.5);
    const QPointF arrow[] = {center + QPointF(-3.5, -2), center + QPointF(3.5, -2), center + QPointF(0, 2.5)};
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(colors.text));
    painter.drawPolygon(arrow, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace

CGridDelegate::CGridDelegate(CGridCtrl& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

QRect CGridDelegate::ButtonRect(const QRect& cell)
{
    return {cell.right() - kButtonWidth - 1, cell.top() + 1, kButtonWidth, cell.height() - 3};
}

bool CGridDelegate::HasButton(const QModelIndex& index) const
{
    const GridCell cell = CGridModel::CellOf(index);
    return index == grid_.currentIndex() && grid_.Source()->IsEditable(cell.row, cell.column)
           && grid_.Source()->HasWords(cell.row, cell.column);
}

QColor CGridDelegate::Ground(const QModelIndex& index) const
{
    const QModelIndex focus = grid_.currentIndex();
    const Colors& colors = ColorsFor(grid_.palette());
    if (focus.isValid() && index.row() == focus.row())
        return QColor::fromRgba(index == focus ? colors.cell : colors.focusRow);
    if (focus.isValid() && index.column() == 0)
        return QColor::fromRgba(colors.labelBesideFocus);
    const GridCell cell = CGridModel::CellOf(index);
    return QColor::fromRgba(grid_.Source()->IsLocked(cell.row, cell.column) ? colors.locked : colors.cell);
}

QRect CGridDelegate::TextRect(const QRect& cell, const QModelIndex& index) const
{
    const int right = HasButton(index) ? kButtonWidth + 1 : 0;
    return cell.adjusted(kPadding, 0, -kPadding - 1 - right, -1);
}

void CGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (grid_.Source() == nullptr)
        return;
    const GridCell cell = CGridModel::CellOf(index);
    const CGridSource& source = *grid_.Source();
    const Colors& colors = ColorsFor(grid_.palette());
    const bool focusRow = index.row() == grid_.currentIndex().row() && index != grid_.currentIndex();
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, Ground(index));
    const std::optional<MarkKind> mark = grid_.Marks().Of(cell.row, cell.column);
    if (mark && index != grid_.currentIndex())
        painter->fillRect(option.rect, TintOf(*mark, grid_.palette()));
    if ((option.state & QStyle::State_Selected) && index != grid_.currentIndex())
        painter->fillRect(option.rect, QColor::fromRgba(focusRow ? colors.selectedInFocusRow : colors.selected));
    if (focusRow && cell.column > 1 && source.IsLocked(cell.row, cell.column)) // labels are locked everywhere
        DrawLockedInFocusRow(*painter, option.rect, colors);
    painter->setPen(QPen(QColor::fromRgba(colors.line), 0));
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());

    const QColor color = source.TextColor(cell.row, cell.column);
    QFont font = grid_.font();
    font.setBold(!source.ColorWord(cell.row, cell.column).isEmpty()); // its colour says something: so does its weight
    painter->setFont(font);
    // Red and magenta cannot be read on the ground of the focused row.
    painter->setPen(TextColorFor(grid_.palette(), focusRow ? QColor() : color));
    const QRect textRect = TextRect(option.rect, index);
    DrawCellText(*painter, textRect, SeenPart(source.Text(cell.row, cell.column), textRect.width()),
                 source.IsRightAligned(cell.row, cell.column) ? Qt::AlignRight : Qt::AlignLeft);
    if (HasButton(index))
        DrawButton(*painter, ButtonRect(option.rect), colors);
    if (mark)
        DrawMarkCorner(*painter, option.rect, *mark, SignColorOf(*mark, grid_.palette()));
    if (index == grid_.currentIndex()) {
        QPen frame(QColor::fromRgba(colors.focusFrame), 2);
        frame.setJoinStyle(Qt::MiterJoin);
        painter->setPen(frame);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    }
    painter->restore();
}

bool CGridDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                              const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || grid_.Source() == nullptr || !index.isValid())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const GridCell cell = CGridModel::CellOf(index);
    constexpr int mostShown = 4000; // characters
    const QString text = SeenPart(grid_.Source()->Text(cell.row, cell.column), mostShown);
    const int width = grid_.fontMetrics().boundingRect(QRect(), Qt::AlignLeft, text).width();
    QStringList parts;
    if (width > TextRect(option.rect, index).width())
        parts << QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped());
    if (const QString color = grid_.Source()->ColorWord(cell.row, cell.column); !color.isEmpty())
        parts << QStringLiteral("<p>%1</p>").arg(tr("%1の項目です。").arg(color));
    if (const QString told = grid_.Marks().ToolTip(cell.row, cell.column); !told.isEmpty())
        parts << QStringLiteral("<p>%1</p>").arg(told.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
    if (parts.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(event->globalPos(), parts.join(QString()), view);
    return true;
}

QWidget* CGridDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    CGridDelegate* self = const_cast<CGridDelegate*>(this);
    const EditorKeyHandler keys = [self](QWidget* editor, QKeyEvent* event) { return self->HandleKey(editor, event); };
    const GridCell cell = CGridModel::CellOf(index);
    QWidget* editor = nullptr;
    if (grid_.Source()->HasWords(cell.row, cell.column)) {
        CCellCombo* combo = new CCellCombo(parent, grid_.Source()->Words(cell.row, cell.column), keys);
        connect(combo, &CCellCombo::chosen, self, [self, combo] {
            self->Finish(combo, 0, 0);
            emit self->grid_.listChosen();
        });
        editor = combo;
    } else {
        editor = new CCellEdit(parent, keys);
    }
    editor->setFont(grid_.font());
    editor->setAutoFillBackground(true);
    const QString description = grid_.Source()->Description(cell.row, cell.column);
    editor->setAccessibleName(description);
    EditorLine(editor)->setAccessibleName(description);
    return editor;
}

/// Marks that arrive, and changes elsewhere in the table, tell the view that its cells are new, and the toolkit gives an open
/// editor the stored text again. A text that the user has touched is his; one that he has not follows its cell.
void CGridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    constexpr char givenText[] = "givenText";
    const QString stored = index.data(Qt::EditRole).toString();
    const QVariant given = editor->property(givenText);
    if (given.isValid() && (given == stored || EditorText(editor) != given.toString()))
        return;
    editor->setProperty(givenText, stored);
    SetEditorText(editor, stored);
    if (QLineEdit* line = EditorLine(editor))
        line->selectAll();
}

void CGridDelegate::setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    grid_.StoreEdited(CGridModel::CellOf(index), EditorText(editor));
}

void CGridDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                         const QModelIndex& index) const
{
    // A narrow cell gets an editor that shows its text whole, as far as the grid reaches.
    constexpr int leastWidth = 100;
    constexpr int margins = 2 * kPadding + kButtonWidth + 8;
    QRect rect = option.rect.adjusted(0, 0, -1, -1);
    const int room = grid_.viewport()->width() - rect.left();
    const QString text = SeenPart(index.data(Qt::EditRole).toString(), room);
    const int needed = grid_.fontMetrics().horizontalAdvance(text) + margins;
    rect.setWidth(std::max(rect.width(), std::min(std::max(needed, leastWidth), room)));
    editor->setGeometry(rect);
    // Scrolled below the columns that stay, as the cell is.
    const int hidden = index.column() < grid_.SeenFrozen() ? 0 : grid_.FrozenWidth() - rect.left();
    if (hidden > 0)
        editor->setMask(QRect(hidden, 0, std::max(1, rect.width() - hidden), rect.height()));
    else
        editor->clearMask();
}

bool CGridDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress)
        return false; // the editors ask HandleKey
    if (event->type() == QEvent::FocusOut) {
        for (const QWidget* at = QApplication::focusWidget(); at != nullptr; at = at->parentWidget())
            if (at->property(kKeepsEditors).toBool())
                return false; // the keyboard comes back
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

bool CGridDelegate::HandleKey(QWidget* editor, QKeyEvent* event)
{
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    const bool leaves = grid_.IsTyping() && !(event->modifiers() & ~Qt::KeypadModifier);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() & Qt::ControlModifier) {
            FinishInRange(editor);
            return true;
        }
        Finish(editor, 0, 0);
        if (!grid_.HasRefused())
            grid_.MoveByEnter(shift);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        Finish(editor, 0, 0);
        if (!grid_.HasRefused())
            grid_.MoveByTab(shift || event->key() == Qt::Key_Backtab);
        return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        Finish(editor, 0, 0);
        if (!grid_.HasRefused())
            grid_.keyPressEvent(event);
        return true;
    case Qt::Key_Escape:
        emit closeEditor(editor, RevertModelCache);
        return true;
    case Qt::Key_F2:
        grid_.EndTyping();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (leaves)
            Finish(editor, event->key() == Qt::Key_Up ? -1 : 1, 0);
        return leaves;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (leaves)
            Finish(editor, 0, event->key() == Qt::Key_Left ? -1 : 1);
        return leaves;
    default:
        return false;
    }
}

void CGridDelegate::Finish(QWidget* editor, int rows, int columns)
{
    if (CCellCombo* combo = qobject_cast<CCellCombo*>(editor))
        combo->HideOffers();
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
    if (!grid_.HasRefused() && (rows != 0 || columns != 0))
        grid_.MoveFocus(rows, columns);
}

/// The text goes into all selected cells, in one step; the focus stays.
void CGridDelegate::FinishInRange(QWidget* editor)
{
    if (CCellCombo* combo = qobject_cast<CCellCombo*>(editor))
        combo->HideOffers();
    QGuiApplication::inputMethod()->commit();
    const QString text = EditorText(editor);
    if (!grid_.HasRange() || !grid_.CanFillWith(text)) { // the cell itself tells why it does not take the text
        Finish(editor, 0, 0);
        return;
    }
    emit closeEditor(editor, RevertModelCache);
    grid_.FillSelected(text);
}

} // namespace sbd
