#include "document/box_web.h"
#include "document/section_doc.h"
#include "tests/document/data_of.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

using Texts = std::vector<std::string>;

GridNames Bridge(const Texts& girders, const Texts& lines)
{
    GridNames names;
    names.girderNames = girders;
    names.lineNames = lines;
    return names;
}

Texts RowOf305(const CKELDSectionDoc& doc, std::size_t row)
{
    const std::vector<std::string_view> cells = doc.Data().Table(305)->Row(row);
    return {cells.begin(), cells.end()};
}

/// A user of the flow: what is done to the sheet, and the answer to the question.
struct User {
    std::function<void(BoxWebNames&)> enter = [](BoxWebNames&) {};
    bool ok = true;
    bool yes = false;
    int sheets = 0;
    QStringList asked;

    bool Run(CKELDSectionDoc& doc)
    {
        return BoxWebFlow(doc, {[this](BoxWebNames& names) {
                                    ++sheets;
                                    enter(names);
                                    return ok;
                                },
                                [this](const QString& text) {
                                    asked.append(text);
                                    return yes;
                                }});
    }
};

} // namespace

class BoxWebTest : public QObject {
    Q_OBJECT

private slots:
    void linesOfTheGirdersNameAreProposed();
    void aGirderWithoutALineIsProposedAsOneWithoutWebs();
    void theLinesAndTheGirderWithoutWebsAreOffered();
    void aRowWithOneNameIsTaken();
    void aRowThatIsEmptyKeepsItsProposals();
    void proposalsTakenAsTheyAreCompleteTheFlow();
    void namesAreTrimmedBeforeTheyAreStored();
    void aMissingNameIsStoredAndAskedAbout();
    void rowsAreAppendedToWhatStandsThere();
    void cancelLeavesTheBlockAndAsks();
    void withoutGirdersNothingIsWrittenAndNothingAsked();
    void storedNamesAreUnsavedChanges();
    void theQuestionStandsAsItIs();
};

void BoxWebTest::linesOfTheGirdersNameAreProposed()
{
    const BoxWebNames names = ProposeBoxWebs(Bridge({"G1", "G2"}, {"G1L", "G1R", "CL", "G2R", "G2L"}));
    QVERIFY(names.leftNames == (Texts{"G1L", "G2L"}));
    QVERIFY(names.rightNames == (Texts{"G1R", "G2R"}));
}

void BoxWebTest::aGirderWithoutALineIsProposedAsOneWithoutWebs()
{
    const BoxWebNames names = ProposeBoxWebs(Bridge({"G1", "G2"}, {"G1L", "g2l", "G2LL", "G2 R"}));
    QVERIFY(names.leftNames == (Texts{"G1L", NoWebChoice()}));
    QVERIFY(names.rightNames == (Texts{NoWebChoice(), NoWebChoice()}));
}

void BoxWebTest::theLinesAndTheGirderWithoutWebsAreOffered()
{
    const BoxWebNames names = ProposeBoxWebs(Bridge({"G1"}, {"A", "B"}));
    QVERIFY(names.lineChoices == (Texts{"A", "B", NoWebChoice()}));
    QCOMPARE(toQString(NoWebChoice()), u"仮想主桁・鈑桁"_s);
}

void BoxWebTest::aRowWithOneNameIsTaken()
{
    BoxWebNames names = ProposeBoxWebs(Bridge({"G1"}, {"G1L", "G1R"}));
    CommitBoxWebRow(names, 0, "", "B");
    QVERIFY(names.leftNames == Texts{""});
    QVERIFY(names.rightNames == Texts{"B"});
}

void BoxWebTest::aRowThatIsEmptyKeepsItsProposals()
{
    BoxWebNames names = ProposeBoxWebs(Bridge({"G1"}, {"G1L", "G1R"}));
    CommitBoxWebRow(names, 0, "", "");
    QVERIFY(names.leftNames == Texts{"G1L"});
    QVERIFY(names.rightNames == Texts{"G1R"});
}

void BoxWebTest::proposalsTakenAsTheyAreCompleteTheFlow()
{
    CKELDSectionDoc doc;
    test::DataOf(doc).gridNames = Bridge({"G1", "G2"}, {"G1L", "G1R"});
    User user;
    QVERIFY(user.Run(doc));
    QVERIFY(user.asked.isEmpty());
    QCOMPARE(doc.Data().RowCount(305), std::size_t(2));
    QVERIFY(RowOf305(doc, 0) == (Texts{"G1", "G1L", "G1R", "", ""}));
    QVERIFY(RowOf305(doc, 1) == (Texts{"G2", NoWebChoice(), NoWebChoice(), "", ""}));
}

void BoxWebTest::namesAreTrimmedBeforeTheyAreStored()
{
    CKELDSectionDoc doc;
    test::DataOf(doc).gridNames = Bridge({"G1"}, {});
    User user;
    user.enter = [](BoxWebNames& names) { CommitBoxWebRow(names, 0, "  A ", "\tB"); };
    QVERIFY(user.Run(doc));
    QVERIFY(RowOf305(doc, 0) == (Texts{"G1", "A", "B", "", ""}));
}

void BoxWebTest::aMissingNameIsStoredAndAskedAbout()
{
    for (const bool yes : {false, true}) {
        CKELDSectionDoc doc;
        test::DataOf(doc).gridNames = Bridge({"G1", "G2"}, {"G1L", "G1R", "G2L", "G2R"});
        User user;
        user.yes = yes;
        user.enter = [](BoxWebNames& names) { CommitBoxWebRow(names, 0, "   ", "G1R"); };
        QCOMPARE(user.Run(doc), yes);
        QCOMPARE(user.asked, QStringList(BoxWebQuestion()));
        QVERIFY(RowOf305(doc, 0) == (Texts{"G1", "", "G1R", "", ""}));
        QVERIFY(RowOf305(doc, 1) == (Texts{"G2", "G2L", "G2R", "", ""}));
    }
}

void BoxWebTest::rowsAreAppendedToWhatStandsThere()
{
    CKELDSectionDoc doc;
    test::DataOf(doc).gridNames = Bridge({"G1"}, {"G1L", "G1R"});
    test::DataOf(doc).Table(305)->AppendRow({"G0", "A", "B"});
    QVERIFY(User().Run(doc));
    QCOMPARE(doc.Data().RowCount(305), std::size_t(2));
    QVERIFY(RowOf305(doc, 0)[0] == "G0");
}

void BoxWebTest::cancelLeavesTheBlockAndAsks()
{
    for (const bool yes : {false, true}) {
        CKELDSectionDoc doc;
        test::DataOf(doc).gridNames = Bridge({"G1"}, {"G1L", "G1R"});
        User user;
        user.ok = false;
        user.yes = yes;
        QCOMPARE(user.Run(doc), yes);
        QCOMPARE(user.asked.size(), 1);
        QCOMPARE(doc.Data().RowCount(305), std::size_t(0));
        QVERIFY(!doc.IsModified());
    }
}

void BoxWebTest::withoutGirdersNothingIsWrittenAndNothingAsked()
{
    CKELDSectionDoc doc;
    User user;
    QVERIFY(user.Run(doc));
    QCOMPARE(user.sheets, 1);
    QVERIFY(user.asked.isEmpty());
    QCOMPARE(doc.Data().RowCount(305), std::size_t(0));
    QVERIFY(!doc.IsModified());
}

void BoxWebTest::storedNamesAreUnsavedChanges()
{
    CKELDSectionDoc doc;
    test::DataOf(doc).gridNames = Bridge({"G1"}, {"G1L", "G1R"});
    QList<int> changed;
    connect(&doc, &CKELDSectionDoc::changed, &doc, [&](const BlockChange& change) { changed.append(change.block); });
    QVERIFY(User().Run(doc));
    QVERIFY(doc.IsModified());
    QCOMPARE(changed, QList<int>{305});
}

void BoxWebTest::theQuestionStandsAsItIs()
{
    QCOMPARE(BoxWebQuestion(), u"左右腹板名入力しない主桁があります．予想外結果になる可能性があります．\n\n"
                               u"そのまま継続しますか？\n\n"
                               u"はい　　=　仮想主桁以外は全部入力しました．まず実行を継続します．\n\n"
                               u"いいえ　=　入力画面に戻って，305など入力してから実行します．"_s);
}

QTEST_GUILESS_MAIN(BoxWebTest)
#include "box_web_test.moc"
