#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/result_notice.h"
#include "panels/result_output.h"
#include "panels/result_panel.h"
#include "panels/result_panel_source.h"
#include "tests/surroundings.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstring>
#include <memory>

namespace sbd {

using namespace Qt::StringLiterals;

/// What a run of the analysis leaves beside an open project, and what the panel makes of it.
class ResultReloadTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CDown253> panel_;

    [[nodiscard]] static QString Example(const QString& name)
    {
        return QString::fromUtf8(test::ExamplesFolder()) + u'/' + name;
    }
    [[nodiscard]] QString ResultFile(const QString& extension) const
    {
        return folder_->filePath(u"bridge_計算結果/bridge"_s + extension);
    }
    /// Puts the result files of an example in the place of those of the project, as a run does.
    void Analyse(const QString& name)
    {
        QVERIFY(QDir(folder_->path()).mkpath(u"bridge_計算結果"_s));
        for (const auto* extension : {".Z1D", ".Z1F", ".Z1R", ".Z3D", ".Z3F", ".Z3R"}) {
            const QString target = ResultFile(QString::fromLatin1(extension));
            QFile::remove(target);
            QVERIFY(
                QFile::copy(Example(name) + u"/%1_計算結果/%1%2"_s.arg(name, QString::fromLatin1(extension)), target));
            QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
        }
    }
    /// Gives a result file another time, with the same content.
    void Touch(const QString& extension)
    {
        QFile file(ResultFile(extension));
        QVERIFY(file.open(QFile::ReadWrite));
        QVERIFY(file.setFileTime(file.fileTime(QFile::FileModificationTime).addSecs(1), QFile::FileModificationTime));
    }
    void OpenProject()
    {
        const QString project = folder_->filePath(u"bridge.sbd"_s);
        QFile::copy(Example(u"plate4"_s) + u"/plate4.sbd"_s, project);
        QVERIFY(doc_->OpenDocument(project).Ok());
    }
    void OpenPanel()
    {
        panel_ = std::make_unique<CDown253>(doc_.get());
        panel_->resize(1200, 330);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel_.get()));
    }
    [[nodiscard]] CResultNotice* Notice() const { return panel_->findChild<CResultNotice*>(); }
    [[nodiscard]] QPushButton* Button() const { return Notice()->findChild<QPushButton*>(); }
    [[nodiscard]] QString Text() const { return Notice()->findChild<QLabel*>()->text(); }
    [[nodiscard]] ResultSelection& Selection() const { return ResultSessionOf(*doc_).selection; }
    void Choose(int box, const QString& text)
    {
        QComboBox* combo = panel_->findChildren<QComboBox*>()[box];
        QVERIFY2(combo->findText(text) >= 0, qPrintable(text));
        combo->setCurrentIndex(combo->findText(text));
    }
    void Keep(const QString& name)
    {
        const QString kept = qEnvironmentVariable("SBD_FIGURES");
        if (!kept.isEmpty())
            QVERIFY(panel_->grab().save(kept + u'/' + name));
    }

private slots:
    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        doc_ = std::make_unique<CKELDSectionDoc>();
    }
    void cleanup()
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_.reset();
        doc_.reset();
    }

    void resultsThatStandAreNotTold();
    void aRunIsToldOnlyWhenItsResultsAreLookedFor();
    void theFirstResultsOfAProjectAreOffered();
    void readingAgainShowsTheNewResultsAndKeepsTheSelection();
    void aSelectionThatHasGoneGivesWay();
    void anotherWindowComingBackLooksAgain();
    void thePanelLooksByItselfWhileItIsSeen();
    void aFileThatIsStillWrittenIsTold();
    void openingTheProjectAgainTakesTheLineAway();
    void aCutFileIsNamedInThePanelUntilAWholeOneIsRead();
};

void ResultReloadTest::resultsThatStandAreNotTold()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    QVERIFY(!Notice()->isVisible());
    QFile::remove(ResultFile(u".Z3F"_s)); // nothing to read in its place
    Notice()->Check();
    QVERIFY(!Notice()->isVisible());
}

void ResultReloadTest::aRunIsToldOnlyWhenItsResultsAreLookedFor()
{
    Analyse(u"plate4"_s);
    OpenProject();
    const AnalysisResults before = doc_->Results();
    Analyse(u"box2"_s);
    OpenPanel();
    QVERIFY(Notice()->isVisible());
    QVERIFY(Text().contains(u"更新"_s));
    QVERIFY(doc_->Results() == before); // only the user reads
    QCOMPARE(Selection().girder, std::string("G1"));
    Keep(u"notice253.png"_s);
}

void ResultReloadTest::theFirstResultsOfAProjectAreOffered()
{
    OpenProject();
    OpenPanel();
    QVERIFY(!Notice()->isVisible());
    Analyse(u"plate4"_s);
    Notice()->Check();
    QVERIFY(Notice()->isVisible());
    QVERIFY(Text().contains(u"できています"_s));
    Keep(u"notice253-first.png"_s);
    Button()->click();
    QVERIFY(!Notice()->isVisible());
    QCOMPARE(panel_->Table().RowCount(), std::size_t{20});
    QCOMPARE(Selection().girder, std::string("G1"));
}

void ResultReloadTest::readingAgainShowsTheNewResultsAndKeepsTheSelection()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    Choose(0, u"変位"_s);
    Choose(1, u"前死荷重(鋼重+床版)"_s);
    Choose(2, u"G3"_s);
    Choose(4, u"θy"_s);
    panel_->Grid()->SetFocusCell(6, 4);
    const ResultSelection chosen = Selection();
    const QString before = panel_->Grid()->Source()->Text(6, 4);

    // The run has doubled the displacements.
    QFile file(ResultFile(u".Z3D"_s));
    QVERIFY(file.open(QFile::ReadWrite));
    QByteArray bytes = file.readAll();
    for (qsizetype at = 12; at + 8 <= bytes.size(); at += 8) {
        double value = 0;
        std::memcpy(&value, bytes.constData() + at, sizeof value);
        value *= 2;
        std::memcpy(bytes.data() + at, &value, sizeof value);
    }
    file.seek(0);
    file.write(bytes);
    file.close();
    Touch(u".Z3D"_s);

    Notice()->Check();
    QCOMPARE(panel_->Grid()->Source()->Text(6, 4), before);
    QSignalSpy figure(&ResultSessionOf(*doc_), &CResultSession::figureChanged);
    Button()->click();
    QVERIFY(!Notice()->isVisible());
    QVERIFY(figure.count() > 0);
    QVERIFY(Selection() == chosen);
    QCOMPARE(panel_->findChildren<QComboBox*>()[4]->currentText(), u"θy"_s);
    QCOMPARE(panel_->Grid()->FocusCell(), (GridCell{6, 4}));
    QVERIFY(before.toDouble() != 0);
    QVERIFY(qAbs(panel_->Grid()->Source()->Text(6, 4).toDouble() - 2 * before.toDouble()) < 0.0016);
    QVERIFY(!doc_->IsModified());
}

void ResultReloadTest::aSelectionThatHasGoneGivesWay()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    Choose(2, u"G4"_s);
    Analyse(u"box2"_s); // has no such girder
    Notice()->Check();
    Button()->click();
    QCOMPARE(Selection().girder, doc_->Results().model.girderNames.front());
    QCOMPARE(panel_->findChildren<QComboBox*>()[2]->currentText(), toQString(Selection().girder));
    QVERIFY(panel_->Table().RowCount() > 0);
}

void ResultReloadTest::anotherWindowComingBackLooksAgain()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    Touch(u".Z1R"_s);
    QVERIFY(!Notice()->isVisible());
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(panel_->window(), &activate);
    QVERIFY(Notice()->isVisible());
}

void ResultReloadTest::thePanelLooksByItselfWhileItIsSeen()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    panel_->hide();
    Touch(u".Z3R"_s);
    QTest::qWait(2500);
    QVERIFY(!Button()->isEnabled());
    panel_->show();
    QVERIFY(Notice()->isVisible());
    Button()->click();
    QVERIFY(!Notice()->isVisible());
    Touch(u".Z3R"_s);
    QTRY_VERIFY(Notice()->isVisible());
}

void ResultReloadTest::aFileThatIsStillWrittenIsTold()
{
    Analyse(u"plate4"_s);
    OpenProject();
    const auto writing = connect(doc_.get(), &CKELDSectionDoc::resultsRead, this, [this] { Touch(u".Z3F"_s); });
    OpenPanel();
    Touch(u".Z3F"_s);
    Notice()->Check();
    Button()->click();
    QVERIFY(Notice()->isVisible());
    QVERIFY(Text().contains(u"読み込みの途中"_s));
    QVERIFY(panel_->Table().RowCount() > 0);
    Keep(u"notice253-again.png"_s);
    disconnect(writing);
    Button()->click();
    QVERIFY(!Notice()->isVisible());
}

void ResultReloadTest::aCutFileIsNamedInThePanelUntilAWholeOneIsRead()
{
    Analyse(u"plate4"_s);
    QFile model(ResultFile(u".Z1D"_s));
    QVERIFY(model.resize(model.size() / 2));
    OpenProject();
    OpenPanel();
    const auto faults = [this] {
        for (const QLabel* label : panel_->findChildren<QLabel*>())
            if (label->accessibleName() == u"結果ファイルの不備"_s)
                return label->isVisible() ? label->text() : QString();
        return u"no label"_s;
    };
    QVERIFY2(faults().contains(u"Z1D が途中で終わっています"_s), qPrintable(faults()));
    QVERIFY2(faults().contains(u"軸の変換は行っていません"_s), qPrintable(faults()));
    Keep(u"cut253.png"_s);
    const QString csv = QString::fromUtf8(ResultCsv(panel_->Table(), Selection()));
    QVERIFY(csv.section(u"\r\n"_s, 1, 1).contains(u"Z1D が不完全です"_s)); // it goes out with the values
    Analyse(u"plate4"_s);
    doc_->ReadResults(doc_->PathName());
    QCOMPARE(faults(), QString());
}

void ResultReloadTest::openingTheProjectAgainTakesTheLineAway()
{
    Analyse(u"plate4"_s);
    OpenProject();
    OpenPanel();
    Touch(u".Z1F"_s);
    Notice()->Check();
    QVERIFY(Notice()->isVisible());
    OpenProject();
    QVERIFY(!Notice()->isVisible());
}

} // namespace sbd

QTEST_MAIN(sbd::ResultReloadTest)
#include "result_reload_test.moc"
