// Results in the real window, by mouse: what is clicked in a figure is found in a table, and sheets of all girders.
#include "answers.h"
#include "document/result_session.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "frame/result_sheets_dialog.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "project/block_numbers.h"
#include "results/diagram_curves.h"
#include "results/figure_pick.h"
#include "tests/surroundings.h"
#include "upperview/figure_pane.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Station {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};
    CChildFrame* child = nullptr;

    explicit Station(const QString& example)
    {
        frame.resize(1366, 900);
        frame.show();
        frame.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&frame));
        const QString project = folder.Example(example);
        const QString results = u"/%1_計算結果"_s.arg(example);
        const QDir from(QString::fromUtf8(test::ExamplesFolder()) + u'/' + example + results);
        const QString to = QFileInfo(project).path() + results;
        static_cast<void>(QDir().mkpath(to));
        for (const QString& name : from.entryList(QDir::Files))
            QFile::copy(from.filePath(name), to + u'/' + name);
        child = frame.OpenProject(project);
        QApplication::processEvents();
    }
    [[nodiscard]] CKELDSectionDoc& Doc() const { return child->Doc(); }
    [[nodiscard]] CFigurePane& Figure() const { return child->UpView().Figure(); }
    [[nodiscard]] CGridCtrl& Grid() const { return *child->Panel()->Grid(); }
    [[nodiscard]] QString Focused() const
    {
        const GridCell cell = Grid().FocusCell();
        return Grid().Source()->Text(cell.row, 1);
    }
    [[nodiscard]] QString FocusedHead() const { return Grid().Source()->Head(Grid().FocusCell().column, 0); }
    void Click(FigurePoint at) const
    {
        QTest::mouseClick(&Figure(), Qt::LeftButton, {}, QPoint(int(std::lround(at.x)), int(std::lround(at.y))));
        QApplication::processEvents();
    }
};

} // namespace

class ResultJourneyTest : public QObject {
    Q_OBJECT

private slots:
    void everyStationOfAGirderIsFoundByAClick();
    void theCurvesOfAnEnvelopeAreFoundByAClick();
    void aPointOfACurveThatIsLaidOverSaysWhichCaseItIs();
    void aBraceOfTheModelIsFoundByAClick();
    void figuresAreReadOnLightAndDarkGround();
    void allGirdersBecomeOnePdf();
    void thePdfCanBeCancelled();
};

void ResultJourneyTest::everyStationOfAGirderIsFoundByAClick()
{
    for (const QString& example : {u"plate4"_s, u"box2"_s, u"single1"_s}) {
        Station station(example);
        station.child->SwitchToBlock(kResultBlock);
        const CResultSession& session = ResultSessionOf(station.Doc());
        const std::vector<DiagramCurve> curves = CurvesOf(station.Doc().Results(), session.selection);
        QCOMPARE(curves.size(), std::size_t(1));
        const GirderDiagram& diagram = curves[0].diagram;
        const FigureView& view = station.Figure().View();
        const DiagramScale scale = FitCurves(curves, FigureScreenOf(station.Figure()), view.zoom, PanOf(view));
        for (const DiagramBay& bay : diagram.bays) {
            // A third of the bay, between the axis and the line: nearer to its left end than to any other.
            const double x = bay.x0 + (bay.x1 - bay.x0) * 0.3;
            const double y = bay.left + (bay.right - bay.left) * 0.3;
            if (std::abs(scale.Y(y) - scale.AxisY()) < 30)
                continue;
            station.Click({scale.X(x), (scale.Y(y) + scale.AxisY()) / 2});
            QCOMPARE(station.Focused(),
                     toQString(station.Doc().Results().model.elementNames[std::size_t(bay.element) - 1]));
            QCOMPARE(station.FocusedHead(), u"左My\n[kN・m]"_s);
        }
    }
}

void ResultJourneyTest::theCurvesOfAnEnvelopeAreFoundByAClick()
{
    Station station(u"box2"_s);
    station.child->SwitchToBlock(kResultBlock);
    for (QCheckBox* box : station.child->Panel()->findChildren<QCheckBox*>())
        if (box->text().contains(u"包絡"_s))
            QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    const CResultSession& session = ResultSessionOf(station.Doc());
    QVERIFY(session.selection.envelope);
    const std::vector<DiagramCurve> curves = CurvesOf(station.Doc().Results(), session.selection);
    QCOMPARE(curves.size(), std::size_t(2));
    const FigureView& view = station.Figure().View();
    const DiagramScale scale = FitCurves(curves, FigureScreenOf(station.Figure()), view.zoom, PanOf(view));
    for (const DiagramCurve& curve : curves) {
        const DiagramBay& bay = curve.diagram.bays[5];
        station.Click({scale.X(bay.x0) + 1, scale.Y(bay.left)});
        QVERIFY2(
            station.FocusedHead().startsWith(curve.pen == FigurePen::Greatest ? u"左My最大"_s : u"左My最小"_s)
                || station.FocusedHead().startsWith(curve.pen == FigurePen::Greatest ? u"右My最大"_s : u"右My最小"_s),
            qPrintable(station.FocusedHead()));
    }
}

void ResultJourneyTest::aPointOfACurveThatIsLaidOverSaysWhichCaseItIs()
{
    for (const QString& example : {u"plate4"_s, u"box2"_s})
        for (const bool otherGirder : {false, true}) {
            Station station(example);
            station.child->SwitchToBlock(kResultBlock);
            CResultSession& session = ResultSessionOf(station.Doc());
            const AnalysisResults& results = station.Doc().Results();
            session.selection.overLoad = results.model.loadCaseNames[0];
            if (otherGirder)
                session.selection.overGirder = results.model.girderNames[1];
            session.ShowFigureAnew();
            QApplication::processEvents();
            const std::string firstLoad = session.selection.load;
            const std::vector<DiagramCurve> curves = CurvesOf(results, session.selection);
            QCOMPARE(curves.size(), std::size_t(2));
            const FigureView& view = station.Figure().View();
            const DiagramScale scale = FitCurves(curves, FigureScreenOf(station.Figure()), view.zoom, PanOf(view));
            QLabel* note = nullptr;
            for (QLabel* label : station.child->Panel()->findChildren<QLabel*>())
                if (label->accessibleName() == u"図で選んだ点"_s)
                    note = label;
            QVERIFY(note != nullptr);
            QPushButton* show = nullptr;
            for (QPushButton* button : station.child->Panel()->findChildren<QPushButton*>())
                if (button->text().startsWith(u"重ねた方を表に出す"_s))
                    show = button;
            QVERIFY(show != nullptr);
            // A point of the second curve that stands off the first one.
            bool found = false;
            for (std::size_t i = 1; i + 1 < curves[1].diagram.bays.size() && !found; ++i) {
                const DiagramBay& bay = curves[1].diagram.bays[i];
                const FigurePoint tip{scale.X(bay.x0), scale.Y(bay.left)};
                const auto wanted = PickOrdinate(results, curves, scale, {std::round(tip.x) + 1, std::round(tip.y)});
                if (!wanted || wanted->pen != FigurePen::Second)
                    continue;
                found = true;
                station.Click({std::round(tip.x) + 1, std::round(tip.y)});
                QVERIFY2(note->isVisible(), qPrintable(example));
                QVERIFY2(note->text().contains(toQString(wanted->name)), qPrintable(note->text()));
                QVERIFY2(note->text().contains(toQString(ShownLoad(results.model.loadCaseNames[0]))),
                         qPrintable(note->text()));
                if (!otherGirder)
                    QCOMPARE(station.Focused(), toQString(wanted->name));
                const QString folder = qEnvironmentVariable("SBD_FIGURES");
                if (!folder.isEmpty())
                    QVERIFY(station.frame.grab().save(folder + u"/over-%1-%2.png"_s.arg(example).arg(otherGirder)));
                QTest::mouseClick(show, Qt::LeftButton);
                QCOMPARE(station.Focused(), toQString(wanted->name));
                QVERIFY(session.selection.load == results.model.loadCaseNames[0]);
                QVERIFY(session.selection.overLoad == firstLoad);
                // The value in the table is that of the point.
                const QString text =
                    station.Grid().Source()->Text(station.Grid().FocusCell().row, station.Grid().FocusCell().column);
                QCOMPARE(text, QString::number(wanted->value, 'f', 3));
                QVERIFY(!note->isVisible());
            }
            QVERIFY(found);
        }
}

void ResultJourneyTest::aBraceOfTheModelIsFoundByAClick()
{
    Station station(u"plate4"_s);
    station.child->SwitchToBlock(573);
    station.Doc().showHelpPage = false;
    station.child->UpView().RunViewCommand(Command::ViewXY);
    QApplication::processEvents();
    const CModelProjection projection(FigurePlaces(station.Doc().Results()), {0, 0, 1});
    const FigureView& view = station.Figure().View();
    const FramePlaces places =
        PlacesOnScreen(station.Doc().Results(), station.Doc().Data(), projection,
                       FitModel(projection.Bounds(), FigureScreenOf(station.Figure()), view.zoom, PanOf(view)));
    int found = 0;
    for (const PickLine& line : places.lines) {
        const FigurePoint at{line.from.x + (line.to.x - line.from.x) * 0.3,
                             line.from.y + (line.to.y - line.from.y) * 0.3};
        const auto wanted = PickRow(places, {std::round(at.x), std::round(at.y)});
        if (!wanted || PickNode(places, {std::round(at.x), std::round(at.y)}))
            continue;
        station.Click(at);
        QCOMPARE(station.Doc().CurrentBlock(), wanted->block);
        QCOMPARE(station.Grid().FocusCell().row, int(wanted->row) + 1);
        station.child->SwitchToBlock(573);
        if (++found == 12)
            break;
    }
    QVERIFY(found > 5);
}

void ResultJourneyTest::figuresAreReadOnLightAndDarkGround()
{
    const QPalette light = QApplication::palette();
    QPalette dark(QColor(40, 40, 40), QColor(30, 30, 30));
    dark.setColor(QPalette::Base, QColor(24, 24, 24));
    for (const QString& example : {u"plate4"_s, u"box2"_s, u"single1"_s})
        for (const bool isDark : {false, true}) {
            QApplication::setPalette(isDark ? dark : light);
            Station station(example);
            station.child->SwitchToBlock(kResultBlock);
            CResultSession& session = ResultSessionOf(station.Doc());
            const AnalysisModel& model = station.Doc().Results().model;
            for (const bool envelope : {false, true}) {
                session.selection.envelope = envelope;
                session.selection.envelopeLoads = EnvelopeLoads(model, session.selection.kind);
                session.selection.overLoad = model.loadCaseNames[0];
                session.ShowFigureAnew();
                QApplication::processEvents();
                const QImage picture = station.Figure().grab().toImage();
                // Ground and ink are far enough from each other.
                int darkest = 255;
                int lightest = 0;
                for (int y = 0; y < picture.height(); ++y)
                    for (int x = 0; x < picture.width(); ++x) {
                        const int grey = qGray(picture.pixel(x, y));
                        darkest = std::min(darkest, grey);
                        lightest = std::max(lightest, grey);
                    }
                QVERIFY(lightest - darkest > 150);
                QCOMPARE(qGray(picture.pixel(picture.width() - 5, picture.height() / 2)) < 128, isDark);
                const QString folder = qEnvironmentVariable("SBD_FIGURES");
                if (!folder.isEmpty())
                    QVERIFY(station.frame.grab().save(
                        folder
                        + u"/window-%1-%2-%3.png"_s.arg(example, isDark ? u"dark"_s : u"light"_s,
                                                        envelope ? u"envelope"_s : u"over"_s)));
            }
        }
    QApplication::setPalette(light);
}

void ResultJourneyTest::allGirdersBecomeOnePdf()
{
    for (const QString& example : {u"plate4"_s, u"box2"_s, u"single1"_s}) {
        Station station(example);
        station.child->SwitchToBlock(kResultBlock);
        const QString folder = qEnvironmentVariable("SBD_FIGURES");
        const QString path =
            folder.isEmpty() ? station.folder.Path(u"sheets.pdf"_s) : folder + u"/sheets-"_s + example + u".pdf"_s;
        bool wasOpen = false;
        QTimer::singleShot(0, [&] {
            auto* dialog = station.child->findChild<CResultSheetsDialog*>();
            wasOpen = dialog != nullptr;
            if (!wasOpen)
                return;
            dialog->askFile = [&](QWidget*, const QString&) { return path; };
            dialog->warn = [](QWidget*, const QString& message) { qWarning("%s", qPrintable(message)); };
            if (!folder.isEmpty())
                static_cast<void>(dialog->grab().save(folder + u"/sheets-dialog.png"_s));
            for (QPushButton* button : dialog->findChildren<QPushButton*>())
                if (button->text().contains(u"PDF"_s))
                    button->click();
        });
        for (QPushButton* button : station.child->Panel()->findChildren<QPushButton*>())
            if (button->text().contains(u"図をPDFに"_s))
                button->click();
        QVERIFY(wasOpen);
        QFile file(path);
        QVERIFY(file.open(QFile::ReadOnly));
        const QByteArray pdf = file.readAll();
        const auto girders = qsizetype(station.Doc().Results().model.girderNames.size());
        QVERIFY(pdf.contains("/Count " + QByteArray::number(girders) + "\n/ProcSet")
                || pdf.contains("/Count " + QByteArray::number(girders)));
        QCOMPARE(pdf.count("/Type /Outlines"), 1);
        QCOMPARE(pdf.count("/Dest ["), girders * 4); // the girder, My, Sz, Uz
    }
}

void ResultJourneyTest::thePdfCanBeCancelled()
{
    Station station(u"plate4"_s);
    station.child->SwitchToBlock(kResultBlock);
    const QString path = station.folder.Path(u"kept.pdf"_s);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("before");
    file.close();
    ResultSessionOf(station.Doc()).selection.overGirder = "G2";
    CResultSheetsDialog dialog(&station.Doc());
    bool saysOver = false;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        saysOver = saysOver || label->text().endsWith(u"\n重ね描き: G2"_s);
    QVERIFY(saysOver);
    dialog.askFile = [&](QWidget*, const QString&) { return path; };
    int asked = 0;
    dialog.isCancelled = [&](int done) { return ++asked > 2 && done >= 2; };
    dialog.SavePdf();
    QCOMPARE(asked, 3);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("before"));
}

QTEST_MAIN(ResultJourneyTest)
#include "result_journey_test.moc"
