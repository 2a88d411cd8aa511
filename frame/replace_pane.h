// CReplacePane: what is looked for, what is put in its place, and every cell that it would change.
#pragma once

#include "panelmodel/replace.h"

#include <QString>
#include <QWidget>

#include <map>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace sbd {

class CHitModel;
class CKELDSectionDoc;

/// Two lines to type in and a list: block, row, column, the text now and then, what is to be said of it. A line of the list
/// can be ticked off. Enter goes to the next cell, Esc closes.
class CReplacePane : public QWidget {
    Q_OBJECT

public:
    explicit CReplacePane(CKELDSectionDoc* doc, QWidget* parent = nullptr);
    ~CReplacePane() override;

    /// With the line for the new text, or to find only.
    void SetReplaces(bool replaces);
    [[nodiscard]] bool Replaces() const;
    /// The block that stands for "this block".
    void SetBlock(int block, const QString& name);
    /// Puts the keyboard into the line, with a text ready to be typed over; empty: the one that stands there.
    void GoToLine(const QString& text);

    /// What is typed and chosen; `refused`: a character that no cell can hold, empty: none.
    [[nodiscard]] FindRequest Request(QString& refused) const;
    /// What is found, and a remark: what was done before, or why nothing is found. Ticks stay where the request is the same.
    void SetHits(std::vector<CellHit> hits, const QString& remark, const std::map<std::size_t, QString>& notes);
    [[nodiscard]] const std::vector<CellHit>& Hits() const;
    /// Those that are ticked and can be replaced.
    [[nodiscard]] std::vector<CellHit> Chosen() const;
    void Select(std::size_t line);

    [[nodiscard]] QLineEdit* WantedLine() const { return wanted_; }
    [[nodiscard]] QLineEdit* ByLine() const { return by_; }
    [[nodiscard]] QComboBox* Scope() const { return scope_; }
    [[nodiscard]] QCheckBox* WholeCell() const { return whole_; }
    [[nodiscard]] QPushButton* ReplaceButton() const { return replace_; }
    [[nodiscard]] QTableView* Lines() const { return lines_; }
    [[nodiscard]] QString Said() const;

signals:
    void requestChanged();
    void wanted(std::size_t line);
    void nextWanted(bool back);
    void replaceWanted();
    void closeWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MakeLines();
    void MakeTop();
    void OnRequestChanged();
    void ShowCount();
    void TickAll();

    CHitModel* model_;
    QLineEdit* wanted_;
    QLineEdit* by_;
    QLabel* byLabel_;
    QComboBox* scope_;
    QCheckBox* case_;
    QCheckBox* width_;
    QCheckBox* whole_;
    QCheckBox* all_;
    QLabel* count_;
    QPushButton* replace_;
    QTableView* lines_;
    QString remark_;
    int block_ = 0;
    bool replaces_ = true;
};

} // namespace sbd
