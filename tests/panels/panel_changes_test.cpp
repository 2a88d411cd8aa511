// What a panel tells of its changes, and what it shows of those of others.
#include "document/box_web.h"
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "tests/document/data_of.h"
#include "tests/panels/example_panel.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

class PanelChangesTest : public test::ExamplePanel {
    Q_OBJECT

private slots:
    void init() { OpenExample(); }
    void cleanup() { CloseExample(); }

    void ADocumentThatWasModifiedStaysModified();
    void ChangesBySomebodyElseStayModified();
    void WhatSomebodyElseWritesIsShownAndAnOpenEditorKeepsItsText();
    void TheBoxWebsThatWereEnteredInTheirSheetAreShown();
    void TheTypeOf301ChangesTheHeadsAtOnce();
    void ChangesAreToldRowByRow();
    void LinkedBlocksAreToldToo();
    void AReloadShowsTheNewProjectAndDropsWhatWasTyped();
};

void PanelChangesTest::ADocumentThatWasModifiedStaysModified()
{
    doc_->SetModifiedFlag(true);
    Open(302);
    Focus(6, 2);
    Focus(7, 2);
    QVERIFY(doc_->IsModified());
}

void PanelChangesTest::ChangesBySomebodyElseStayModified()
{
    Open(302);
    Focus(6, 2);
    doc_->SetModifiedFlag(true);
    Focus(7, 2);
    QVERIFY(doc_->IsModified());
}

void PanelChangesTest::WhatSomebodyElseWritesIsShownAndAnOpenEditorKeepsItsText()
{
    Open(301);
    Focus(10, 2);
    panel_->Grid()->Source()->SetText(10, 2, u"YES"_s);
    Focus(20, 2);
    const int scrolled = panel_->Grid()->verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"半分"_s);
    EditorLine(Editor())->setCursorPosition(1);
    test::DataOf(*doc_).SetOption(301, 2, "UC-GRID");
    test::TellChanged(*doc_, {301, 2});
    QCOMPARE(panel_->Grid()->Source()->Text(3, 2), u"UC-GRID"_s);
    QCOMPARE(panel_->Grid()->FocusCell(), (GridCell{20, 2}));
    QCOMPARE(panel_->Grid()->verticalScrollBar()->value(), scrolled);
    QVERIFY(panel_->Grid()->IsEditing());
    QCOMPARE(EditorText(Editor()), u"半分"_s);
    QCOMPARE(EditorLine(Editor())->cursorPosition(), 1);
    QVERIFY(panel_->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(Option(301, 20), u"YES"_s); // as it was
    Key(Qt::Key_Return);
    QCOMPARE(Option(301, 20), u"半分"_s);
    QCOMPARE(Option(301, 10), u"YES"_s); // typed before, not written yet
    QCOMPARE(Option(301, 3), u"UC-GRID"_s);
    QVERIFY(doc_->IsModified()); // though nobody had said so
}

void PanelChangesTest::TheBoxWebsThatWereEnteredInTheirSheetAreShown()
{
    Open(305);
    const int before = panel_->Model()->BlockRows();
    const BoxWebPrompts prompts{[](BoxWebNames&) { return true; }, [](const QString&) { return true; }};
    QVERIFY(BoxWebFlow(*doc_, prompts));
    const int girders = int(doc_->Data().gridNames.girderNames.size());
    QVERIFY(girders > 0);
    QCOMPARE(panel_->Model()->BlockRows(), before + girders);
    QCOMPARE(panel_->Grid()->Source()->Text(before + girders, 1), toQString(doc_->Data().gridNames.girderNames.back()));
    Focus(before + 1, 2);
    Type(u"W9"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Stored(305, before + 1, 2), u"W9"_s);
    QCOMPARE(int(doc_->Data().RowCount(305)), before + girders);
}

void PanelChangesTest::TheTypeOf301ChangesTheHeadsAtOnce()
{
    Open(301);
    Focus(3, 2);
    QApplication::clipboard()->setText(u"断面1のみ"_s);
    panel_->Paste();
    QVERIFY(toQString(panel_->Model()->Head(1)).contains(u"ピンク色"_s));
    QVERIFY(panel_->Grid()->rowHeight(18) > panel_->Grid()->rowHeight(17)); // its label has two lines now
    QVERIFY(Notified(301, 2));
}

void PanelChangesTest::ChangesAreToldRowByRow()
{
    Open(313);
    Focus(3, 6);
    changes_.clear();
    Type(u"1"_s);
    Key(Qt::Key_Return);
    QCOMPARE(changes_.size(), std::size_t(1));
    QVERIFY(Notified(313, 2));
}

void PanelChangesTest::LinkedBlocksAreToldToo()
{
    Open(331);
    Focus(1, 2);
    Type(u"YES"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Option(301, 9), u"YES"_s);
    QCOMPARE(Stored(332, 1, 2), u"YES"_s);
    QVERIFY(Notified(301, 8));
    QVERIFY(Notified(332, 0));
}

void PanelChangesTest::AReloadShowsTheNewProjectAndDropsWhatWasTyped()
{
    Open(301);
    Focus(1, 2);
    Type(u"old"_s);
    QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.sbd"_s).Ok());
    QVERIFY(panel_->Grid()->model()->index(0, 1).data().toString() != u"old"_s);
    QCOMPARE(panel_->Grid()->model()->index(0, 1).data().toString(), Option(301, 1));
    Focus(4, 2);
    QVERIFY(Option(301, 1) != u"old"_s);
    QVERIFY(!doc_->IsModified());
}

} // namespace sbd

QTEST_MAIN(sbd::PanelChangesTest)
#include "panel_changes_test.moc"
