// CDown253: the panel that shows the results of the frame analysis.
#pragma once

#include "panels/panel.h"
#include "results/result_kind.h"

#include <QString>

#include <array>
#include <functional>
#include <memory>

class QCheckBox;
class QComboBox;
class QFont;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStringListModel;

namespace sbd {

class CResultSession;
class CResultSource;
class CResultTable;
struct FileResult;
struct ResultSelection;

/// The choices of what is shown beside the table of it. The choices are kept by the document; the table is read from its
/// results, of which it makes the texts in view alone.
class CDown253 : public CPanel {
    Q_OBJECT

public:
    explicit CDown253(CKELDSectionDoc* doc, QWidget* parent = nullptr);
    ~CDown253() override;

    [[nodiscard]] const CResultTable& Table() const;

    // Seams; by default dialogs of the platform.

    /// The file to save a table in; the dialog begins with the path `proposal`. Empty: none.
    std::function<QString(QWidget* parent, const QString& proposal)> askFile;
    /// Prints a table; false: it could not be printed.
    std::function<bool(QWidget* parent, const CResultTable& table, const ResultSelection& selection)> print;
    /// Tells the user something.
    std::function<void(QWidget* parent, const QString& message)> warn;

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void SaveCsv();
    void SaveXlsx();
    void Print();

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void MakeControls();
    [[nodiscard]] QWidget* MakeColumnChoice();
    [[nodiscard]] QWidget* MakeExcludedChoice();
    void MakeEnvelopeChoice();
    [[nodiscard]] QWidget* MakeOverChoice();
    void ConnectControls();

    // Controls from the selection.
    void SetUpControls();
    void ShowLoads();
    void ShowStations();
    void ShowOffered();
    void ShowKindWords();
    void ShowSeveral();
    void FillResultTable();
    void ShowState();
    void ShowFaults();
    void ShowOrigin();
    /// The figure marks the row under the cursor.
    void MarkRow();
    /// The cursor goes to what was clicked in the figure.
    void OnPicked(const std::string& name, std::size_t component, bool rightEnd, bool isLeast);
    /// Columns that the mouse has made wider or narrower stay so.
    void KeepWidths();
    void OnMagnification(int index);
    void OnFilter(const QString& text);
    /// Upward, downward, and then in the order of the files again; 0: at once in that.
    void SortBy(int column);
    void ShowOrder();
    /// Shows results that were read anew; what is chosen stays as far as they have it.
    void ShowNewResults();

    // What the user chose.
    void OnKind(int index);
    void OnLoad(int index);
    void OnGirder(int index);
    void OnStation(const QString& text);
    void OnFigureItem(int index);
    void OnEnvelope(bool on);
    void OnEnvelopeLoads();
    void OnOver();
    void OnColumns();
    void OnExcluded();
    void TellSaved(const QString& path, const FileResult& result);
    /// The document's copy takes what the controls show.
    void Commit();

    CKELDSectionDoc* shown_;
    CResultSession& session_;
    std::unique_ptr<CResultSource> cells_;
    QComboBox* kind_ = nullptr;
    QComboBox* load_ = nullptr;
    QComboBox* girder_ = nullptr;
    QComboBox* station_ = nullptr;
    QLabel* stationLabel_ = nullptr;
    QComboBox* figureItem_ = nullptr;
    std::array<QCheckBox*, kNodeComponents> columnOn_{};
    QLabel* excludedLabel_ = nullptr;
    QListView* excluded_ = nullptr;
    QStringListModel* offered_ = nullptr;
    QStringListModel* stations_ = nullptr;
    QLabel* state_ = nullptr;
    QLabel* origin_ = nullptr; // below the table: from which files it is
    QComboBox* magnification_ = nullptr;
    QCheckBox* envelope_ = nullptr;
    QListView* envelopeLoads_ = nullptr;
    QStringListModel* loads_ = nullptr; // that the envelope can take
    QComboBox* overLoad_ = nullptr;     // laid over in the figure
    QComboBox* overGirder_ = nullptr;
    QLineEdit* filter_ = nullptr;
    QPushButton* fileOrder_ = nullptr; // there while the rows stand in another one
    QLabel* faults_ = nullptr;         // below everything; hidden without a fault
    QPushButton* save_ = nullptr;
    QPushButton* saveBook_ = nullptr;
    QPushButton* print_ = nullptr;
    QPushButton* sheets_ = nullptr;
};

} // namespace sbd
