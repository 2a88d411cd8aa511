#include "app/outside.h"
#include "commands/commands.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A program folder, a desktop and a user.
struct Desk {
    QTemporaryDir folder;
    DeploymentSettings settings;
    QList<QUrl> opened;
    QStringList warned;
    bool opens = true;

    Desk()
    {
        settings.homePage = QUrl(u"https://home.example.com/"_s);
        settings.secondHomePage = QUrl(u"https://second.example.com/"_s);
        settings.secondHomePageName = u"Second"_s;
    }
    void Put(const QString& name) const
    {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    void Run(Command command)
    {
        COutside(folder.path(), settings,
                 {[this](const QUrl& url) {
                      opened.append(url);
                      return opens;
                  },
                  [this](const QString& text) { warned.append(text); }})
            .Run(command);
    }
};

} // namespace

class OutsideTest : public QObject {
    Q_OBJECT

private slots:
    void theDocumentsStandInTheOrderOfTheMenu();
    void aDocumentBesideTheProgramIsOpened();
    void aDocumentIsFoundWhateverTheCaseOfItsName();
    void aMissingDocumentIsTold_data();
    void aMissingDocumentIsTold();
    void withoutAHomePageTheMessageStillTellsWhere();
    void thePagesAreOpened();
    void aPageThatIsNotSetDoesNothing();
    void everyCommandThatIsForOutsideIsCarriedOutThere();
    void otherCommandsDoNothing();
    void whatTheDesktopAnswersIsNotLookedAt();
    void theMenuNamesThePages();
};

void OutsideTest::theDocumentsStandInTheOrderOfTheMenu()
{
    const QList<std::tuple<Command, QString, QString>> expected = {
        {Command::GirderDocument, u"300＆４00　主桁自動設計・製図"_s, u"KELD_Section_README.doc"_s},
        {Command::CrossDocument, u"500　横桁・対傾構・下横構の設計"_s, u"KELD_Cross_README.DOC"_s},
        {Command::FemDocument, u"600　FEMモデル自動作成"_s, u"KELD_Fem_README.doc"_s},
        {Command::StringerDocument, u"640＆670　縦桁・ブラケットの設計"_s, u"KELD_Stringer_and_Bracket_README.DOC"_s},
        {Command::SupportDocument, u"700　支点上補剛材・ダイヤフラムの設計"_s,
         u"KELD_Support_Stiff_Diaphragm_README.DOC"_s},
        {Command::QuantityDocument, u"800　数量計算"_s, u"KELD_Material_README.doc"_s},
    };
    QCOMPARE(qsizetype(DocumentCommands().size()), expected.size());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        const DocumentCommand& command = DocumentCommands()[std::size_t(i)];
        QCOMPARE(command.command, std::get<0>(expected[i]));
        QCOMPARE(RowOf(command.command).text, std::get<1>(expected[i]).toStdString());
        QCOMPARE(QString(command.file), std::get<2>(expected[i]));
    }
}

void OutsideTest::aDocumentBesideTheProgramIsOpened()
{
    for (const DocumentCommand& command : DocumentCommands()) {
        Desk desk;
        desk.Put(command.file);
        desk.Run(command.command);
        QCOMPARE(desk.opened, QList<QUrl>{QUrl::fromLocalFile(desk.folder.filePath(command.file))});
        QVERIFY(desk.warned.isEmpty());
    }
}

void OutsideTest::aDocumentIsFoundWhateverTheCaseOfItsName()
{
    Desk desk;
    desk.Put(u"keld_cross_readme.doc"_s);
    desk.Run(Command::CrossDocument);
    QCOMPARE(desk.opened.size(), 1);
    QVERIFY(QFile::exists(desk.opened.constFirst().toLocalFile()));
}

void OutsideTest::aMissingDocumentIsTold_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QString>("name");
    QTest::newRow("lower case") << Command::GirderDocument << u"KELD_Section_README.doc"_s;
    QTest::newRow("upper case becomes lower case")
        << Command::SupportDocument << u"KELD_Support_Stiff_Diaphragm_README.doc"_s;
}

void OutsideTest::aMissingDocumentIsTold()
{
    QFETCH(const Command, command);
    QFETCH(QString, name);
    Desk desk;
    desk.Run(command);
    QVERIFY(desk.opened.isEmpty());
    QCOMPARE(desk.warned,
             QStringList(u"ファイル"_s + name
                         + u"を https://home.example.com/ \n(最新版アップデート)よりダウンロードして下さい！"_s));
}

void OutsideTest::withoutAHomePageTheMessageStillTellsWhere()
{
    Desk desk;
    desk.settings = {};
    desk.Run(Command::QuantityDocument);
    QCOMPARE(desk.warned, QStringList(u"ファイルKELD_Material_README.docを 製品のホームページ \n"
                                      u"(最新版アップデート)よりダウンロードして下さい！"_s));
}

void OutsideTest::thePagesAreOpened()
{
    Desk desk;
    desk.Run(Command::HomePage);
    desk.Run(Command::SecondHomePage);
    QCOMPARE(desk.opened, (QList<QUrl>{desk.settings.homePage, desk.settings.secondHomePage}));
}

void OutsideTest::aPageThatIsNotSetDoesNothing()
{
    Desk desk;
    desk.settings = {};
    desk.Run(Command::HomePage);
    desk.Run(Command::SecondHomePage);
    QVERIFY(desk.opened.isEmpty());
    QVERIFY(desk.warned.isEmpty());
}

void OutsideTest::everyCommandThatIsForOutsideIsCarriedOutThere()
{
    for (const CommandRow& row : CommandTable()) {
        Desk desk;
        for (const DocumentCommand& document : DocumentCommands())
            desk.Put(document.file);
        desk.Run(row.command);
        const bool outside = row.owner == CommandOwner::Outside;
        QVERIFY2(desk.opened.size() == (outside ? 1 : 0), row.text.data());
        QVERIFY(desk.warned.isEmpty());
    }
}

void OutsideTest::otherCommandsDoNothing()
{
    Desk desk;
    for (const Command command : {Command::None, Command::Save, Command::About})
        desk.Run(command);
    QVERIFY(desk.opened.isEmpty());
    QVERIFY(desk.warned.isEmpty());
}

void OutsideTest::whatTheDesktopAnswersIsNotLookedAt()
{
    Desk desk;
    desk.opens = false;
    desk.Put(u"KELD_Fem_README.doc"_s);
    desk.Run(Command::FemDocument);
    desk.Run(Command::HomePage);
    QCOMPARE(desk.opened.size(), 2);
    QVERIFY(desk.warned.isEmpty());
}

void OutsideTest::theMenuNamesThePages()
{
    Desk desk;
    QCOMPARE(SecondHomePageText(desk.settings), u"Second Homepage..."_s);
    QCOMPARE(SecondHomePageText({}), QString());
}

QTEST_GUILESS_MAIN(OutsideTest)
#include "outside_test.moc"
