// CResultChoices: what is to be seen of the results of the frame analysis.
#pragma once

#include "results/result_kind.h"

#include <QString>
#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QStringListModel;

namespace sbd {

class CKELDSectionDoc;
class CResultSession;

/// The choices beside the table of block 253, kept by the document: the controls show them, and change them.
class CResultChoices : public QWidget {
    Q_OBJECT

public:
    explicit CResultChoices(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// Controls from the selection.
    void ShowSelection();
    /// The figure item that each fill of the table sets.
    void ShowDefaultItem();
    /// Another figure item, as if the user had chosen it.
    void ChooseItem(const QString& item);
    /// The document's copy takes what the controls show.
    void Commit();

signals:
    /// The table of the selection is another one; the figure has the usual item of its kind.
    void tableWanted();
    /// The same, but the figure goes on showing the item that was chosen.
    void tableOfTheItemWanted();

private:
    void MakeControls();
    [[nodiscard]] QWidget* MakeColumnChoice();
    [[nodiscard]] QWidget* MakeExcludedChoice();
    void MakeEnvelopeChoice();
    [[nodiscard]] QWidget* MakeOverChoice();
    void ConnectControls();

    void ShowLoads();
    void ShowStations();
    void ShowOffered();
    void ShowKindWords();
    void ShowSeveral();

    // What the user chose.
    void OnKind(int index);
    void OnLoad(int index);
    void OnGirder(int index);
    void OnStation(const QString& text);
    void OnFigureItem(int index);
    void OnMagnification(int index);
    void OnFilter(const QString& text);
    void OnEnvelope(bool on);
    void OnEnvelopeLoads();
    void OnOver();
    void OnColumns();
    void OnExcluded();

    CKELDSectionDoc* doc_;
    CResultSession& session_;
    QComboBox* kind_ = nullptr;
    QComboBox* load_ = nullptr;
    QComboBox* girder_ = nullptr;
    QComboBox* station_ = nullptr;
    QLabel* stationLabel_ = nullptr;
    QComboBox* figureItem_ = nullptr;
    QComboBox* magnification_ = nullptr;
    QLineEdit* filter_ = nullptr;
    std::array<QCheckBox*, kNodeComponents> columnOn_{};
    QLabel* excludedLabel_ = nullptr;
    QListView* excluded_ = nullptr;
    QStringListModel* offered_ = nullptr;
    QStringListModel* stations_ = nullptr;
    QCheckBox* envelope_ = nullptr;
    QListView* envelopeLoads_ = nullptr;
    QStringListModel* loads_ = nullptr; // that the envelope can take
    QComboBox* overLoad_ = nullptr;     // laid over in the figure
    QComboBox* overGirder_ = nullptr;
};

} // namespace sbd
