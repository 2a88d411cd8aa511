// CDifferenceDialog: what differs between two states of a project, in a list.
#pragma once

#include "compare/compare.h"

#include <QAbstractTableModel>
#include <QDialog>
#include <QString>

#include <functional>
#include <vector>

class QTableView;

namespace sbd {

/// What the list shows, and what can be done with it.
struct DifferenceView {
    QString title;
    QString intro;  ///< what is compared, and with what
    QString before; ///< heads of the two columns of texts
    QString after;
    std::vector<Difference> differences;
    QString verb = QStringLiteral("戻す"); ///< what taking back is called
    /// Takes differences back; empty: nothing can be taken back from here. The dialog closes with it.
    std::function<void(const std::vector<Difference>& chosen)> takeBack = {};
    /// Shows the place of a difference; empty: there is none to be shown. The dialog closes with it.
    std::function<void(const Difference& difference)> goTo = {};
    /// Writes the list to a file that the user names; empty: it cannot be. The dialog stays.
    std::function<void(const std::vector<Difference>& differences)> save = {};
};

/// "313 間隔", as the menus call a block; the title may be missing.
[[nodiscard]] QString BlockName(int block);

/// How many cells in how many blocks: "12 か所 (3 ブロック)".
[[nodiscard]] QString CountText(const std::vector<Difference>& differences);

/// The differences as rows: block, row, column, and the texts of both sides.
class CDifferenceModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { kBlock, kRow, kColumn, kBefore, kAfter, kColumns };

    explicit CDifferenceModel(const DifferenceView& view, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    [[nodiscard]] QString Text(const Difference& difference, int column) const;

    const DifferenceView& view_;
};

/// The list in a window.
class CDifferenceDialog : public QDialog {
    Q_OBJECT

public:
    explicit CDifferenceDialog(DifferenceView view, QWidget* parent = nullptr);

private:
    /// How much goes along with what is chosen.
    enum class Reach { Cell, Row, Block };
    [[nodiscard]] std::vector<Difference> Chosen(Reach reach) const;
    void GoTo(const QModelIndex& index);

    DifferenceView view_;
    QTableView* list_;
};

} // namespace sbd
