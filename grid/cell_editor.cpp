#include "grid/cell_editor.h"

#include "grid/grid_style.h"
#include "grid/text_fold.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyle>
#include <QStyleOptionComboBox>

#include <algorithm>
#include <limits>
#include <utility>

namespace sbd {

namespace {

/// Tab and Backtab never reach keyPressEvent by themselves: a widget moves the focus with them.
bool IsTab(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent*>(event)->key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

/// A line edit cuts what is longer than 32767 characters; a cell may hold more.
void TakeAnyLength(QLineEdit& line)
{
    line.setMaxLength(std::numeric_limits<int>::max());
}

void DrawFrame(QWidget& editor)
{
    QPainter painter(&editor);
    painter.setPen(QColor::fromRgba(gridstyle::ColorsFor(editor.palette()).focusFrame));
    painter.drawRect(editor.rect().adjusted(0, 0, -1, -1));
}

} // namespace

void CCellLine::inputMethodEvent(QInputMethodEvent* event)
{
    const bool composes = !event->preeditString().isEmpty();
    const bool takes = !event->commitString().isEmpty() || event->replacementLength() > 0;
    if (composes && !before_)
        before_ = Before{text(), cursorPosition(), selectionStart(), int(selectedText().size())};
    QLineEdit::inputMethodEvent(event);
    if (composes)
        return;
    const std::optional<Before> before = std::exchange(before_, std::nullopt);
    if (!before || takes)
        return;
    // An input method may clear the composition ahead of the text that came of it: that goes where this one goes.
    setText(before->text);
    setCursorPosition(before->caret);
    if (before->selection >= 0)
        setSelection(before->selection, before->selected);
}

CCellEdit::CCellEdit(QWidget* parent, EditorKeyHandler keys) : CCellLine(parent), keys_(std::move(keys))
{
    setFrame(false);
    TakeAnyLength(*this);
    setTextMargins(gridstyle::kPadding - 2, 0, 0, 0); // a line edit leaves 2 pixels itself
}

bool CCellEdit::event(QEvent* event)
{
    if (IsTab(event) && keys_(this, static_cast<QKeyEvent*>(event)))
        return true;
    return QLineEdit::event(event);
}

void CCellEdit::keyPressEvent(QKeyEvent* event)
{
    if (!keys_(this, event))
        QLineEdit::keyPressEvent(event);
}

void CCellEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    DrawFrame(*this);
}

CCellCombo::CCellCombo(QWidget* parent, const QStringList& words, EditorKeyHandler keys)
    : QComboBox(parent)
    , keys_(std::move(keys))
{
    constexpr int visibleWords = 16;
    QStringList once = words;
    once.removeDuplicates();
    setEditable(true);
    setLineEdit(new CCellLine(this));
    setInsertPolicy(QComboBox::NoInsert);
    setFrame(false);
    setMaxVisibleItems(visibleWords);
    addItems(once);
    TakeAnyLength(*lineEdit());
    lineEdit()->setTextMargins(0, 0, 0, 0);
    setCompleter(nullptr); // its own one writes into the text

    completer_ = new QCompleter(new QStringListModel(this), this); // of the words that fit what is typed
    completer_->setCompletionMode(QCompleter::PopupCompletion);
    completer_->setMaxVisibleItems(visibleWords);
    completer_->setWidget(this);
    connect(lineEdit(), &QLineEdit::textEdited, this, &CCellCombo::Offer);
    connect(completer_, qOverload<const QString&>(&QCompleter::highlighted), this, &QComboBox::setEditText);
    connect(completer_, qOverload<const QString&>(&QCompleter::activated), this, [this](const QString& word) {
        setEditText(word);
        emit chosen();
    });
    connect(this, &QComboBox::activated, this, &CCellCombo::chosen);
    view()->installEventFilter(this);
}

int CCellCombo::WidestWord() const
{
    int widest = 0;
    for (int i = 0; i < count(); ++i)
        widest = std::max(widest, fontMetrics().horizontalAdvance(itemText(i)));
    return widest;
}

void CCellCombo::showPopup()
{
    constexpr int margins = 16;
    HideOffers();
    view()->setMinimumWidth(WidestWord() + margins + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    // A text that is none of the words stays: the list must not be given "no word", which would empty the line.
    const int place = findText(currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (place >= 0)
        setCurrentIndex(place);
    QComboBox::showPopup();
    if (place < 0)
        view()->selectionModel()->clear(); // no word is marked, so none can be taken by mistake
}

bool CCellCombo::eventFilter(QObject* object, QEvent* event)
{
    if (object == view() && event->type() == QEvent::KeyPress && !view()->currentIndex().isValid()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) { // nothing is marked: the list closes, the text stays
            hidePopup();
            return true;
        }
    }
    return QComboBox::eventFilter(object, event);
}

bool CCellCombo::IsOnArrow(const QPoint& pos) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    return style()->hitTestComplexControl(QStyle::CC_ComboBox, &option, pos, this) == QStyle::SC_ComboBoxArrow;
}

/// The list opens when the button is let go: opened by the press, it would close again by the same click.
void CCellCombo::mousePressEvent(QMouseEvent* event)
{
    pressedOnArrow_ = event->button() == Qt::LeftButton && IsOnArrow(event->position().toPoint());
    if (!pressedOnArrow_)
        QComboBox::mousePressEvent(event);
}

void CCellCombo::mouseReleaseEvent(QMouseEvent* event)
{
    const bool pressed = std::exchange(pressedOnArrow_, false);
    if (pressed && event->button() == Qt::LeftButton && IsOnArrow(event->position().toPoint()))
        showPopup();
    else if (!pressed)
        QComboBox::mouseReleaseEvent(event);
}

void CCellCombo::HideOffers()
{
    if (OffersWords())
        completer_->popup()->hide();
}

bool CCellCombo::OffersWords() const
{
    return completer_->popup()->isVisible();
}

void CCellCombo::Offer(const QString& text)
{
    QStringList words;
    for (int i = 0; i < count(); ++i)
        words << itemText(i);
    const QStringList matches = WordsThatFit(words, text);
    if (matches.isEmpty() || (matches.size() == 1 && matches.constFirst() == text)) {
        HideOffers();
        return;
    }
    static_cast<QStringListModel*>(completer_->model())->setStringList(matches);
    completer_->setCompletionPrefix({});
    constexpr int margins = 16;
    completer_->popup()->setFont(font());
    QRect below = rect();
    below.setWidth(std::max(width(), WidestWord() + margins + style()->pixelMetric(QStyle::PM_ScrollBarExtent)));
    completer_->complete(below);
}

bool CCellCombo::event(QEvent* event)
{
    if (IsTab(event) && keys_(this, static_cast<QKeyEvent*>(event)))
        return true;
    return QComboBox::event(event);
}

void CCellCombo::keyPressEvent(QKeyEvent* event)
{
    const bool arrow = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down;
    if (arrow && (event->modifiers() & Qt::AltModifier)) {
        showPopup();
        return;
    }
    if (keys_(this, event))
        return;
    if (arrow) // the list opens; a word is not changed unseen
        showPopup();
    else
        QComboBox::keyPressEvent(event);
}

void CCellCombo::wheelEvent(QWheelEvent* event)
{
    event->ignore(); // the grid scrolls; the word stays
}

void CCellCombo::paintEvent(QPaintEvent* event)
{
    QComboBox::paintEvent(event);
    DrawFrame(*this);
}

void CCellCombo::resizeEvent(QResizeEvent* event)
{
    QComboBox::resizeEvent(event);
    lineEdit()->setGeometry(lineEdit()->geometry().adjusted(1, 1, 0, -1)); // inside the frame
}

QLineEdit* EditorLine(QWidget* editor)
{
    if (QComboBox* combo = qobject_cast<QComboBox*>(editor))
        return combo->lineEdit();
    return qobject_cast<QLineEdit*>(editor);
}

QString EditorText(const QWidget* editor)
{
    if (const QComboBox* combo = qobject_cast<const QComboBox*>(editor))
        return combo->currentText();
    const QLineEdit* line = qobject_cast<const QLineEdit*>(editor);
    return line != nullptr ? line->text() : QString();
}

void SetEditorText(QWidget* editor, const QString& text)
{
    if (QComboBox* combo = qobject_cast<QComboBox*>(editor))
        combo->setCurrentIndex(combo->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    if (QLineEdit* line = EditorLine(editor))
        line->setText(text);
}

} // namespace sbd
