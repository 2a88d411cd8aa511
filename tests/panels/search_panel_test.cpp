#include "document/search_session.h"
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panels/search_panel.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

namespace sbd {

using namespace Qt::StringLiterals;

class SearchPanelTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;

    void Open(QSize size = {1000, 400})
    {
        Close();
        panel_ = CreatePanel(doc_.get(), 999);
        QVERIFY(Panel() != nullptr);
        panel_->resize(size);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowActive(panel_.get()));
        panel_->setFocus();
    }
    void Close()
    {
        if (panel_)
            panel_->ClosePanel();
        panel_.reset();
    }
    [[nodiscard]] CDown999* Panel() const { return qobject_cast<CDown999*>(panel_.get()); }
    [[nodiscard]] CGridCtrl* Grid() const { return panel_->Grid(); }
    [[nodiscard]] QWidget* Editor() const { return Grid()->indexWidget(Grid()->currentIndex()); }
    [[nodiscard]] QString Cell(int row) const { return Grid()->Source()->Text(row, 1); }
    [[nodiscard]] int Rows() const { return Grid()->Source()->UsedRows(); }
    template <typename Button>
    [[nodiscard]] Button* Find(const QString& text) const
    {
        for (Button* button : panel_->findChildren<Button*>())
            if (button->property("text").toString() == text || button->property("title").toString() == text)
                return button;
        return nullptr;
    }
    [[nodiscard]] QString Detail() const { return panel_->findChild<QTextBrowser*>()->toPlainText(); }
    void Line(const QString& line)
    {
        Grid()->Source()->SetText(1, 1, line);
        Grid()->ShowAll();
    }
    void GoTo(int row) { Grid()->SetFocusCell(row, 1); }
    /// The first row with a text that holds `part`.
    [[nodiscard]] int RowWith(const QString& part) const
    {
        for (int row = 2; row <= Rows(); ++row)
            if (Cell(row).contains(part))
                return row;
        return 0;
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

private slots:
    void init();
    void cleanup();

    void HeadsAndWidthsAreThoseOfTheBlock();
    void TheListOffersQuestionsAndReadyMadeSearches();
    void WithPlainCellsTheLineHasNoList();
    void ResultsStandBelowATitle();
    void ResultsAppearWhileTyping();
    void RowsThatAreNotNeededAreHidden();
    void OpeningTheEditorKeepsTheWordsAndTheHits_data();
    void OpeningTheEditorKeepsTheWordsAndTheHits();
    void TheLineTakesNewWordsFromWhereverTheFocusWas();
    void AWordFromTheListIsSearchedAtOnce();
    void TheScopeAndTheChoiceOfWordsAreFollowed();
    void QuestionsAreListedAndTheChoicesDisabled();
    void TheAnswerOfAQuestionIsShownWithLinks();
    void AnOptionRowIsShownWithItsValue();
    void EnterJumps();
    void ADoubleClickJumps();
    void TheKeyOfTheCommandJumps();
    void ALinkOfAnAnswerJumps();
    void NothingIsAskedWhereNoJumpLeads();
    void TheMenuHasTheCommand();
    void ThePanelMayGoWhenAJumpIsAsked();
    void LineChoicesAndCellComeBack();
    void TheDocumentStaysUnmodified();
    void AReloadKeepsTheSearch();
    void LongRowsStandWhole();
    void CopyGivesTheResults();
    void ClosingWithAnOpenEditorKeepsWhatWasTyped();
    void NoWordOfTheLineIsRefused();
    void UndoBringsTheLineBack();
    void ScreenReadersHearWhatTheControlsAre();
    void ASearchOverEverythingIsQuick();
};

void SearchPanelTest::init()
{
    doc_ = std::make_unique<CKELDSectionDoc>();
    QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
    Open();
}

void SearchPanelTest::cleanup()
{
    panel_.reset();
    doc_.reset();
}

void SearchPanelTest::HeadsAndWidthsAreThoseOfTheBlock()
{
    const CGridSource& source = *Grid()->Source();
    QCOMPARE(source.Head(0, 0), u"999\nF1"_s);
    QCOMPARE(source.Head(1, 0), u"   項目・検索結果(第１行に検索内容を選択して下さい．直接入力も可能です!)"
                                u"\n(複数文字検索する場合，文字間に空白で区別で入力すること)"_s);
    QCOMPARE(source.ColumnWidth(0), 35);
    QCOMPARE(source.ColumnWidth(1), 600);
    QCOMPARE(source.ColumnCount(), 1);
    QCOMPARE(panel_->Block(), 999);
    QVERIFY(Find<QGroupBox>(u"検索範囲"_s) != nullptr);
    QVERIFY(Find<QGroupBox>(u"検索設定(複数文字)"_s) != nullptr);
    QVERIFY(panel_->findChildren<QLabel*>(Qt::FindDirectChildrenOnly).isEmpty());
}

void SearchPanelTest::TheListOffersQuestionsAndReadyMadeSearches()
{
    const QStringList words = Grid()->Source()->Words(1, 1);
    QCOMPARE(words.first(), u"Q&A"_s);
    QCOMPARE(words[1], u"検索：ガセット"_s);
    QVERIFY(words.contains(u"検索：補強材"_s));
    QVERIFY(words.size() > 60);
    QVERIFY(Grid()->Source()->Words(2, 1).isEmpty());
}

void SearchPanelTest::WithPlainCellsTheLineHasNoList()
{
    doc_->comboOrList = 2;
    Open();
    QVERIFY(!Grid()->Source()->HasWords(1, 1));
}

void SearchPanelTest::ResultsStandBelowATitle()
{
    Line(u"検索：吊金具"_s);
    QVERIFY(Rows() > 5);
    QCOMPARE(Cell(2), u"「吊金具」の検索結果：(計%1件)"_s.arg(Rows() - 2));
    QVERIFY(RowWith(u"吊金具(標準) ---> 401の第4行"_s) > 2);
    Line(u"どこにもない言葉"_s);
    QCOMPARE(Cell(2), u"「どこにもない言葉」の検索結果：(計0件)"_s);
    QVERIFY2(Cell(3).contains(u"検索してみて下さい"_s), "what to try");
    Line(u"添加物"_s);
    QVERIFY2(Cell(2).endsWith(u"「添加物」は見つからないので、「添架物」で検索しました。"_s), qPrintable(Cell(2)));
    QVERIFY2(Cell(3).contains(u" ---> 517"_s), "the hits begin in the row that they always begin in");
    Line({});
    QCOMPARE(Rows(), 1);
    QCOMPARE(Cell(2), QString());
}

void SearchPanelTest::ResultsAppearWhileTyping()
{
    GoTo(1);
    Key(Qt::Key_F2);
    QTRY_VERIFY(Editor() != nullptr);
    QCoreApplication::processEvents();
    QLineEdit* line = EditorLine(Editor());
    for (const QChar c : u"uflg"_s)
        QTest::keyClick(line, c.toLatin1());
    QTRY_COMPARE(Cell(2).section(u'：', 0, 0), u"「uflg」の検索結果"_s);
    QVERIFY(Rows() > 20);
    QVERIFY2(Grid()->IsEditing() && Editor() != nullptr, "the editor was closed by the results");
    QCOMPARE(EditorLine(Editor())->text(), u"uflg"_s);
    const int many = Rows();
    for (const QChar c : u" bolt"_s)
        QTest::keyClick(line, c.toLatin1());
    QTRY_VERIFY(Rows() < many);
    QVERIFY(Grid()->IsEditing());
    Key(Qt::Key_Return);
    QVERIFY(!Grid()->IsEditing());
    QCOMPARE(Cell(1), u"uflg bolt"_s);
}

void SearchPanelTest::OpeningTheEditorKeepsTheWordsAndTheHits_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("F2") << 0;
    QTest::newRow("Alt+Down") << 1;
    QTest::newRow("double click") << 2;
}

void SearchPanelTest::OpeningTheEditorKeepsTheWordsAndTheHits()
{
    QFETCH(int, way);
    Line(u"uflg"_s);
    const int hits = Rows();
    QVERIFY(hits > 20);
    GoTo(1);
    if (way == 0)
        Key(Qt::Key_F2);
    else if (way == 1)
        Key(Qt::Key_Down, Qt::AltModifier);
    if (way == 2) {
        const QPoint middle = Grid()->visualRect(Grid()->currentIndex()).center();
        QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(Grid()->viewport(), Qt::LeftButton, {}, middle);
    }
    QVERIFY(Grid()->IsEditing());
    QCoreApplication::processEvents();
    QCOMPARE(EditorLine(Editor())->text(), u"uflg"_s);
    QCOMPARE(Rows(), hits);
    if (auto* box = qobject_cast<QComboBox*>(Editor()))
        box->hidePopup();
    QTest::keyClick(Editor(), Qt::Key_Escape);
    QVERIFY(!Grid()->IsEditing());
    QCOMPARE(Cell(1), u"uflg"_s);
    QCOMPARE(Rows(), hits);
}

void SearchPanelTest::TheLineTakesNewWordsFromWhereverTheFocusWas()
{
    Line(u"uflg"_s);
    GoTo(12);
    Panel()->GoToLine();
    QCOMPARE(Grid()->FocusCell(), (GridCell{1, 1}));
    QVERIFY(Grid()->hasFocus());
    Key(Qt::Key_F2); // and once more while the line is open
    Panel()->GoToLine();
    for (const QChar c : u"web"_s)
        QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    Key(Qt::Key_Return);
    QCOMPARE(Cell(1), u"web"_s);
    QCOMPARE(Cell(2).section(u'：', 0, 0), u"「web」の検索結果"_s);
}

void SearchPanelTest::RowsThatAreNotNeededAreHidden()
{
    Line(u"ボルト"_s);
    const int many = Rows();
    QVERIFY(many > 50);
    QVERIFY(!Grid()->isRowHidden(many - 1));
    Line(u"吊金具"_s);
    const int few = Rows();
    QVERIFY(few < many);
    QVERIFY(!Grid()->isRowHidden(few - 1));
    for (int row = few; row < many; ++row)
        QVERIFY2(Grid()->isRowHidden(row), qPrintable(QString::number(row)));
    // A screen reader counts those that are shown.
    QCOMPARE(QAccessible::queryAccessibleInterface(Grid())->tableInterface()->rowCount(), few);
    GoTo(few);
    Key(Qt::Key_Down);
    QCOMPARE(Grid()->FocusCell().row, few);
    Key(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(Grid()->FocusCell().row, few);
    Line(u"ボルト"_s);
    QVERIFY(!Grid()->isRowHidden(many - 1));
}

void SearchPanelTest::AWordFromTheListIsSearchedAtOnce()
{
    GoTo(1);
    Grid()->OpenList();
    auto* combo = qobject_cast<CCellCombo*>(Editor());
    QVERIFY(combo != nullptr);
    QCoreApplication::processEvents();
    combo->hidePopup();
    combo->setCurrentIndex(combo->findText(u"検索：疲労"_s));
    emit combo->activated(combo->currentIndex());
    QTRY_VERIFY(Cell(2).startsWith(u"「疲労」の検索結果：(計"_s));
}

void SearchPanelTest::TheScopeAndTheChoiceOfWordsAreFollowed()
{
    auto* topics = Find<QCheckBox>(u"基本項目に検索"_s);
    auto* items = Find<QCheckBox>(u"入力項目に検索"_s);
    auto* all = Find<QRadioButton>(u"全てが含まれる"_s);
    auto* any = Find<QRadioButton>(u"いずれかが含まれる"_s);
    QVERIFY(topics != nullptr && items != nullptr && all != nullptr && any != nullptr);
    QVERIFY(topics->isChecked() && items->isChecked() && all->isChecked());
    Line(u"スカーラップ"_s);
    const int both = Rows();
    items->click();
    const int onlyTopics = Rows();
    QVERIFY(onlyTopics < both);
    topics->click();
    QVERIFY(Cell(2).endsWith(u"(計0件)"_s));
    items->click();
    QCOMPARE(Rows() - 2, both - onlyTopics);
    topics->click();
    Line(u"横桁 スカーラップ"_s);
    const int ofBoth = Rows();
    any->click();
    QVERIFY(Rows() > ofBoth);
    all->click();
    QCOMPARE(Rows(), ofBoth);
}

void SearchPanelTest::QuestionsAreListedAndTheChoicesDisabled()
{
    auto* items = Find<QCheckBox>(u"入力項目に検索"_s);
    auto* any = Find<QRadioButton>(u"いずれかが含まれる"_s);
    Line(u"Q&A"_s);
    QVERIFY(!items->isEnabled() && !any->isEnabled());
    QVERIFY(!Find<QGroupBox>(u"検索範囲"_s)->isEnabled());
    QCOMPARE(Rows() - 1, int(Questions().size()));
    QVERIFY(Cell(2).startsWith(u"Q."_s));
    QVERIFY(RowWith(u"Q.下部工反力について"_s) > 0);
    Line(u"検索：箱桁"_s);
    QVERIFY(items->isEnabled() && any->isEnabled());
}

void SearchPanelTest::TheAnswerOfAQuestionIsShownWithLinks()
{
    Line(u"Q&A"_s);
    GoTo(RowWith(u"Q.曲線桁の曲率について"_s));
    QVERIFY(Detail().contains(u"Q.曲線桁の曲率について"_s));
    QVERIFY(Detail().contains(u"曲率半径は328に"_s));
    QVERIFY(Detail().contains(u"301.主桁(床組・断面)_CONTROL 第14行 格点曲率半径自動計算"_s));
    GoTo(1);
    QVERIFY(Detail().contains(u"第１行に言葉を入力"_s));
}

void SearchPanelTest::AnOptionRowIsShownWithItsValue()
{
    test::DataOf(*doc_).SetOption(303, 18, "0.80");
    Line(u"SPLICE_075"_s);
    GoTo(RowWith(u"   303 --->"_s));
    QVERIFY(Detail().contains(u"現在の入力：0.80"_s));
    QVERIFY(Detail().contains(u"初期値：0.75"_s));
}

void SearchPanelTest::EnterJumps()
{
    QSignalSpy spy(Panel(), &CDown999::jumpRequested);
    Line(u"外側添接板を分割"_s);
    GoTo(RowWith(u"外側添接板を分割 ---> 303の第1行"_s));
    QVERIFY(Panel()->CanJump());
    Key(Qt::Key_Return);
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(spy[0], (QVariantList{303, 1, 2}));
}

void SearchPanelTest::ADoubleClickJumps()
{
    QSignalSpy spy(Panel(), &CDown999::jumpRequested);
    Line(u"Q&A"_s);
    GoTo(3);
    const QPoint middle = Grid()->visualRect(Grid()->currentIndex()).center();
    QTest::mouseClick(Grid()->viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseDClick(Grid()->viewport(), Qt::LeftButton, {}, middle);
    QTRY_COMPARE(spy.size(), 1);
    const SearchPlace place = Questions()[1].places[0];
    QCOMPARE(spy[0], (QVariantList{place.block, place.row, place.column}));
}

void SearchPanelTest::TheKeyOfTheCommandJumps()
{
    QSignalSpy spy(Panel(), &CDown999::jumpRequested);
    Line(u"垂直補剛材(配置・寸法)"_s);
    GoTo(RowWith(u"---> 313"_s));
    Key(Qt::Key_M, Qt::ControlModifier);
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(spy[0], (QVariantList{313, 0, 0}));
}

void SearchPanelTest::ALinkOfAnAnswerJumps()
{
    QSignalSpy spy(Panel(), &CDown999::jumpRequested);
    Line(u"Q&A"_s);
    GoTo(RowWith(u"Q.曲線桁の曲率について"_s));
    emit panel_->findChild<QTextBrowser*>()->anchorClicked(QUrl(u"cell:301/14/2"_s));
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(spy[0], (QVariantList{301, 14, 2}));
    emit panel_->findChild<QTextBrowser*>()->anchorClicked(QUrl(u"http://example.com/"_s));
    QTest::qWait(10);
    QCOMPARE(spy.size(), 1);
}

void SearchPanelTest::NothingIsAskedWhereNoJumpLeads()
{
    QSignalSpy spy(Panel(), &CDown999::jumpRequested);
    Line(u"SEC_SF_MY"_s);
    QVERIFY(!Panel()->CanJump());
    for (const int row : {1, 2, RowWith(u"---> 291"_s)}) {
        QVERIFY(row > 0);
        GoTo(row);
        QVERIFY(!Panel()->CanJump());
        Panel()->JumpToHit();
    }
    QVERIFY(Detail().contains(u"左の一覧から開いて下さい"_s));
    QTest::qWait(10);
    QCOMPARE(spy.size(), 0);
}

void SearchPanelTest::TheMenuHasTheCommand()
{
    QStringList texts;
    QList<bool> enabled;
    const auto open = [&](int row) {
        GoTo(row);
        QTimer::singleShot(50, this, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu != nullptr);
            for (const QAction* action : menu->actions()) {
                texts << action->text();
                enabled << action->isEnabled();
            }
            menu->close();
        });
        const QPoint middle = Grid()->visualRect(Grid()->currentIndex()).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, middle, Grid()->viewport()->mapToGlobal(middle));
        QApplication::sendEvent(Grid()->viewport(), &event);
    };
    Line(u"吊金具"_s);
    open(3);
    open(1);
    QCOMPARE(texts,
             (QStringList{u"入力位置へ移動 (  ダブルクリックもOK )"_s, u"入力位置へ移動 (  ダブルクリックもOK )"_s}));
    QCOMPARE(enabled, (QList<bool>{true, false}));
}

void SearchPanelTest::ThePanelMayGoWhenAJumpIsAsked()
{
    int jumps = 0;
    connect(Panel(), &CDown999::jumpRequested, this, [&](int block, int, int) {
        Close();
        panel_ = CreatePanel(doc_.get(), block);
        ++jumps;
    });
    Line(u"外側添接板を分割"_s);
    GoTo(3);
    Key(Qt::Key_Return);
    QTRY_COMPARE(jumps, 1);
    QCOMPARE(panel_->Block(), 303);
}

void SearchPanelTest::LineChoicesAndCellComeBack()
{
    Line(u"検索：ボルト"_s);
    Find<QCheckBox>(u"基本項目に検索"_s)->click();
    Find<QRadioButton>(u"いずれかが含まれる"_s)->click();
    const int rows = Rows();
    GoTo(40);
    Grid()->verticalScrollBar()->setValue(30);
    Open();
    QCOMPARE(Cell(1), u"検索：ボルト"_s);
    QCOMPARE(Rows(), rows);
    QVERIFY(!Find<QCheckBox>(u"基本項目に検索"_s)->isChecked());
    QVERIFY(Find<QRadioButton>(u"いずれかが含まれる"_s)->isChecked());
    QCOMPARE(Grid()->FocusCell(), (GridCell{40, 1}));
    QTRY_COMPARE(Grid()->verticalScrollBar()->value(), 30);
    QCOMPARE(doc_->MemoryOf(999).row, 40);
}

void SearchPanelTest::TheDocumentStaysUnmodified()
{
    QVERIFY(!doc_->IsModified());
    const CSbdData before = doc_->Data();
    Line(u"検索：箱桁"_s);
    GoTo(4);
    Line(u"Q&A"_s);
    Close();
    QVERIFY(!doc_->IsModified());
    QVERIFY(doc_->Data().SameProject(before));
}

void SearchPanelTest::AReloadKeepsTheSearch()
{
    Line(u"検索：箱桁"_s);
    const int rows = Rows();
    emit doc_->reloaded();
    QCOMPARE(Rows(), rows);
    QCOMPARE(Cell(1), u"検索：箱桁"_s);
    GoTo(3);
    QVERIFY(!Detail().isEmpty());
}

void SearchPanelTest::LongRowsStandWhole()
{
    Open({760, 400});
    Line(u"ボルト長さ"_s);
    const QFontMetrics metrics = Grid()->fontMetrics();
    int several = 0;
    for (int row = 2; row <= Rows(); ++row) {
        const QStringList lines = Cell(row).split(u'\n');
        QCOMPARE(Grid()->Source()->RowLines(row), int(lines.size()));
        several += lines.size() > 1;
        QVERIFY(Grid()->rowHeight(row - 1) >= lines.size() * metrics.height());
        for (const QString& text : lines)
            QVERIFY2(metrics.horizontalAdvance(text) <= Grid()->viewport()->width(), qPrintable(text));
    }
    QVERIFY(several > 0);
    QVERIFY(!Grid()->horizontalScrollBar()->isVisible());
    Open();
    QVERIFY(Grid()->columnWidth(0) >= 600);
}

void SearchPanelTest::CopyGivesTheResults()
{
    Line(u"ボルト長さ"_s);
    Grid()->selectAll();
    panel_->Copy();
    const QStringList lines = QApplication::clipboard()->text().split(u'\n');
    QCOMPARE(lines.size(), Rows());
    QCOMPARE(lines[0], u"ボルト長さ"_s);
    QVERIFY(lines[1].contains(u"の検索結果：(計"_s));
}

void SearchPanelTest::ClosingWithAnOpenEditorKeepsWhatWasTyped()
{
    GoTo(1);
    Key(Qt::Key_U);
    QTRY_VERIFY(Editor() != nullptr);
    QTRY_COMPARE(SearchSessionOf(*doc_).line, u"u"_s);
    Open();
    QCOMPARE(Cell(1), u"u"_s);
    QVERIFY(Rows() > 2);
    QVERIFY(!Grid()->IsEditing());
}

void SearchPanelTest::NoWordOfTheLineIsRefused()
{
    bool told = false;
    Grid()->showMessage = [&](const QString&) { told = true; };
    GoTo(1);
    Key(Qt::Key_F2);
    QTRY_VERIFY(Editor() != nullptr);
    EditorLine(Editor())->setText(u"桁 \u00E9\U0001F600"_s); // not to be stored, so not to be refused
    Key(Qt::Key_Return);
    QVERIFY(!told);
    QVERIFY(Cell(2).startsWith(u"「桁 \u00E9\U0001F600」の検索結果："_s));
}

void SearchPanelTest::UndoBringsTheLineBack()
{
    Line(u"箱桁"_s);
    const int rows = Rows();
    Line(u"疲労"_s);
    panel_->Undo();
    QCOMPARE(Cell(1), u"箱桁"_s);
    QCOMPARE(Rows(), rows);
    GoTo(1);
    panel_->Delete();
    QCOMPARE(Cell(1), QString());
    QApplication::clipboard()->setText(u"検索：\t継手\n板厚"_s);
    panel_->Paste();
    QCOMPARE(Cell(1), u"検索： 継手"_s);
}

void SearchPanelTest::ScreenReadersHearWhatTheControlsAre()
{
    QVERIFY(!Grid()->accessibleName().isEmpty());
    QVERIFY(!panel_->findChild<QTextBrowser*>()->accessibleName().isEmpty());
    for (const QCheckBox* box : panel_->findChildren<QCheckBox*>())
        QVERIFY(!box->text().isEmpty());
}

void SearchPanelTest::ASearchOverEverythingIsQuick()
{
    Line(u"横桁"_s); // nearly every table holds it
    QVERIFY(Rows() > 500);
    QElapsedTimer timer;
    timer.start();
    Line(u"ボルト"_s);
    Line(u"の"_s);
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed < 1000, qPrintable(QString::number(elapsed)));
    qInfo("two searches with their rows: %lld ms", elapsed);
}

} // namespace sbd

QTEST_MAIN(sbd::SearchPanelTest)
#include "search_panel_test.moc"
