// The editors of a cell: a line of text, or a line with a list.
#pragma once

#include <QComboBox>
#include <QLineEdit>

#include <functional>
#include <optional>

class QCompleter;

namespace sbd {

/// Property of a widget that takes the keyboard for a moment: an open editor stays open.
inline constexpr char kKeepsEditors[] = "keepsEditors";

/// Asked first about every key in an editor; true: the key is done with.
using EditorKeyHandler = std::function<bool(QWidget* editor, QKeyEvent* event)>;

/// A line of text in which a composition of an input method that is given up leaves what stood there, selected as it
/// was: the first sign of a composition takes the place of the selected text.
class CCellLine : public QLineEdit {
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    struct Before {
        QString text;
        int caret = 0;
        int selection = -1; // where it begins; -1: none
        int selected = 0;
    };
    std::optional<Before> before_; // a composition is under way
};

class CCellEdit : public CCellLine {
    Q_OBJECT

public:
    CCellEdit(QWidget* parent, EditorKeyHandler keys);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    EditorKeyHandler keys_;
};

/// A drop-down with free typing. While the user types, the words that hold the text, in any width and case, are offered
/// below; nothing is put into the text unasked.
class CCellCombo : public QComboBox {
    Q_OBJECT

public:
    CCellCombo(QWidget* parent, const QStringList& words, EditorKeyHandler keys);

    void showPopup() override;
    /// Hides the words that are offered while typing.
    void HideOffers();
    [[nodiscard]] bool OffersWords() const;

signals:
    /// A word was taken from the list.
    void chosen();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Offer(const QString& text);
    [[nodiscard]] int WidestWord() const;
    [[nodiscard]] bool IsOnArrow(const QPoint& pos) const;

    EditorKeyHandler keys_;
    QCompleter* completer_;
    bool pressedOnArrow_ = false;
};

/// The text in an editor made by the grid.
[[nodiscard]] QString EditorText(const QWidget* editor);
void SetEditorText(QWidget* editor, const QString& text);
/// The line in which the text stands.
[[nodiscard]] QLineEdit* EditorLine(QWidget* editor);

} // namespace sbd
