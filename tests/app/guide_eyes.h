// What a user sees of the program's windows: the texts on the screen, and a picture of them as they lie over each other.
#pragma once

#include "frame/tail_delegate.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHash>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTableView>
#include <QTreeView>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

/// A text of the screen without the letter that is its key.
[[nodiscard]] inline QString Plain(QString text)
{
    for (QChar letter = u'A'; letter <= u'Z'; letter = QChar(letter.unicode() + 1))
        text.remove(u"(&%1)"_s.arg(letter));
    return text.replace(u"&&"_s, u"\u0001"_s).remove(u'&').replace(u'\u0001', u'&');
}

namespace eyes {

inline void AddCells(const QAbstractItemView& view, QStringList& texts)
{
    const QAbstractItemModel* model = view.model();
    if (model == nullptr)
        return;
    if (const auto* tree = qobject_cast<const QTreeView*>(&view)) {
        for (QModelIndex index = tree->indexAt({5, 5}); index.isValid(); index = tree->indexBelow(index)) {
            if (!view.viewport()->rect().intersects(tree->visualRect(index)))
                break;
            texts << index.data().toString() << index.data(CTailDelegate::kTailRole).toString();
        }
        return;
    }
    const auto* table = qobject_cast<const QTableView*>(&view);
    const int columns = model->columnCount();
    for (int row = 0; row < model->rowCount(); ++row)
        for (int column = 0; column < columns; ++column)
            if (const QModelIndex index = model->index(row, column);
                view.viewport()->rect().intersects(view.visualRect(index)))
                texts << index.data().toString();
    for (int column = 0; table != nullptr && table->horizontalHeader()->isVisible() && column < columns; ++column)
        texts << model->headerData(column, Qt::Horizontal).toString();
}

inline void AddTextsOf(const QWidget& widget, QStringList& texts)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        texts << label->text();
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        texts << Plain(button->text());
    else if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        texts << box->currentText();
    else if (const auto* line = qobject_cast<const QLineEdit*>(&widget))
        texts << line->text();
    else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget))
        AddCells(*view, texts);
    else if (const auto* menu = qobject_cast<const QMenu*>(&widget))
        for (const QAction* action : menu->actions())
            texts << Plain(action->text());
    else if (const auto* bar = qobject_cast<const QMenuBar*>(&widget))
        for (const QAction* action : bar->actions())
            texts << Plain(action->text());
}

/// The windows over the main one, the lowest first.
[[nodiscard]] inline QWidgetList WindowsOver(const QWidget& frame)
{
    QWidgetList over;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window != &frame && window->isVisible()
            && (qobject_cast<QDialog*>(window) != nullptr || qobject_cast<QMenu*>(window) != nullptr))
            over.append(window);
    return over;
}

} // namespace eyes

/// The guide's own window; null: it is not open.
[[nodiscard]] inline QWidget* GuideWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == u"guide" && window->isVisible())
            return window;
    return nullptr;
}

/// All texts that can be read in the window and those over it.
[[nodiscard]] inline QStringList TextsOnScreen(const QWidget& frame)
{
    QStringList texts;
    QWidgetList windows = eyes::WindowsOver(frame);
    for (const QWidget* window : windows) {
        texts << window->windowTitle();
        eyes::AddTextsOf(*window, texts);
    }
    windows.prepend(const_cast<QWidget*>(&frame));
    for (const QWidget* window : windows)
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && widget->window() == window)
                eyes::AddTextsOf(*widget, texts);
    texts.removeAll(QString());
    return texts;
}

/// Where a widget's rectangle lies in the picture of the window.
[[nodiscard]] inline QRect InPicture(const QWidget& frame, const QWidget& widget, const QRect& place)
{
    return {frame.mapFromGlobal(widget.mapToGlobal(place.topLeft())), place.size()};
}

/// The window and what lies over it, with places marked in red. A dialog has a line with its title, which a desktop
/// would give it.
[[nodiscard]] inline QImage PictureOf(QWidget& frame, const QList<QRect>& marks)
{
    constexpr int titleHeight = 26; // px
    QPixmap picture = frame.grab();
    QPainter painter(&picture);
    for (QWidget* window : eyes::WindowsOver(frame)) {
        const QPoint at = InPicture(frame, *window, window->rect()).topLeft();
        QRect place(at, window->size());
        if (qobject_cast<QDialog*>(window) != nullptr) {
            const QRect title(at - QPoint(0, titleHeight), QSize(window->width(), titleHeight));
            painter.fillRect(title, QColor(0x4a5a6a));
            painter.setPen(Qt::white);
            painter.drawText(title.adjusted(8, 0, 0, 0), int(Qt::AlignVCenter | Qt::AlignLeft), window->windowTitle());
            place |= title;
        }
        painter.drawPixmap(at, window->grab());
        painter.setPen(QColor(0x4a5a6a));
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0xd8, 0x10, 0x20), 3));
    for (const QRect& mark : marks)
        painter.drawRoundedRect(mark.adjusted(-3, -3, 3, 3).intersected(frame.rect().adjusted(2, 2, -3, -3)), 6, 6);
    return picture.toImage().convertToFormat(QImage::Format_RGB32);
}

/// The picture in 64 colours, a tenth of the bytes, with letters as sharp: those that it has most of, and behind the
/// first ones those that look like none that is there already: a small red sign has its place beside all shades of grey.
[[nodiscard]] inline QImage InFewColours(const QImage& picture)
{
    constexpr qsizetype most = 64;
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            ++counts[line[x] | 0xff000000];
    }
    QList<std::pair<int, QRgb>> order;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        order.append({-it.value(), it.key()});
    std::sort(order.begin(), order.end());
    const auto differ = [](QRgb a, QRgb b) {
        return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
    };
    QList<QRgb> colours;
    const std::pair<qsizetype, int> rounds[] = {{24, 1}, {most, 48}, {most, 32}, {most, 1}}; // areas, then signs
    for (const auto& round : rounds)
        for (const std::pair<int, QRgb>& colour : order)
            if (colours.size() < round.first && std::all_of(colours.begin(), colours.end(), [&](QRgb known) {
                    return differ(known, colour.second) >= round.second;
                }))
                colours.append(colour.second);
    return picture.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither | Qt::AvoidDither);
}

} // namespace sbd
