// The guide "はじめての橋" is true: its steps are gone through in the window, by its own words. With
// SBD_GUIDE=FOLDER_OF_THE_TREE its pictures and docs/first-bridge.md are made anew (scripts/guide-pictures.sh).
#include "app/fonts.h"
#include "document/kept_inputs.h"
#include "guide_hand.h"
#include "tests/surroundings.h"

#include <QScrollBar>
#include <QTextBrowser>

using namespace sbd;

namespace {

constexpr QSize kWindow(1180, 740);
constexpr qint64 kMostBytes = 1'500'000; // of all pictures

const auto kPictureFolder = u"../frame/guide"_s;

/// The tree in which pictures and page are to be made; empty: they are compared.
QString TreeToWrite()
{
    return qEnvironmentVariable("SBD_GUIDE");
}

/// One place for all pictures, so that they show the same path each time.
struct PracticePlace {
    TestFolder folder;
    QString path = TreeToWrite().isEmpty() ? folder.Path(u"橋"_s) : QDir::temp().filePath(u"橋"_s);

    PracticePlace() { QDir().mkpath(path); }
    ~PracticePlace() { QDir(path).removeRecursively(); }
};

/// The user's dialogs are the program's own where they are seen, and answered where the system's would come.
Prompts DialogsOf(Answers& user)
{
    Prompts prompts = user.Dialogs();
    const Prompts screen = ScreenPrompts();
    prompts.chooseStart = screen.chooseStart;
    prompts.chooseBook = screen.chooseBook;
    prompts.runs.tell = screen.runs.tell;
    return prompts;
}

/// The program as a beginner has it before him, at its start.
struct FirstDay {
    PracticePlace place;
    Answers user;
    CMainFrame frame{DialogsOf(user)};
    QString folder = QDir(place.path).filePath(u"はじめての橋"_s); // of the files to practise with

    FirstDay()
    {
        user.practicePlace = place.path;
        frame.resize(kWindow);
        frame.show();
        frame.activateWindow();
        (void)QTest::qWaitForWindowActive(&frame);
        frame.NewProject();
    }
};

} // namespace

class FirstBridgeTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { SetUpFonts(); }

    void theGuideIsReadWhole();
    void itsStepsAreTrue();
    void aStepThatIsNoLongerTrueIsTold_data();
    void aStepThatIsNoLongerTrueIsTold();
    void thePageOfTheDocsIsTheGuide();
    void thePicturesAreThereAndSmall();
    void theWindowShowsAllOfIt();
    void theGuideGoesWithTheProgramsWindow();
    void filesToPractiseWithGoBesideThoseThatAreThere();
    void aFolderThatCannotBeWrittenLeavesNothing();
    void whatIsNoLineOfAGuideIsSaid();
};

void FirstBridgeTest::theGuideIsReadWhole()
{
    QVERIFY2(FirstBridge().faults.isEmpty(), qPrintable(FirstBridge().faults.join(u'\n')));
    QVERIFY(FirstBridge().steps.size() > 15);
    QStringList names;
    for (const GuideStep& step : FirstBridge().steps) {
        QVERIFY2(!names.contains(step.name), qPrintable(step.name));
        names << step.name;
        const auto isOne = [&step](const QString& verb) {
            return std::count_if(step.acts.begin(), step.acts.end(),
                                 [&verb](const GuideAct& act) { return act.verb == verb; });
        };
        QVERIFY2(isOne(u"picture"_s) == 1 && isOne(u"mark"_s) > 0, qPrintable(step.name));
    }
}

void FirstBridgeTest::itsStepsAreTrue()
{
    FirstDay day;
    CGuideHand hand(day.frame, day.user, FirstBridge(), day.folder);
    QByteArray project;
    hand.saved = [&] { project = Bytes(QDir(day.folder).filePath(u"plate4.sbd"_s)); };
    QStringList pictures;
    hand.taken = [&](const QString& name, const QImage& picture) {
        pictures << name;
        if (!TreeToWrite().isEmpty())
            QVERIFY(
                InFewColours(picture).save(QDir(TreeToWrite()).filePath(u"frame/guide/%1.png"_s.arg(name)), "PNG", 0));
    };
    const QStringList faults = hand.GoThrough();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    QVERIFY2(day.user.warned.isEmpty(), qPrintable(day.user.warned.join(u'\n')));
    QCOMPARE(pictures.size(), FirstBridge().steps.size());

    // A beginner takes a second for each key and click, and half a minute to read each step but the short ones.
    const double minutes = (hand.Strokes() * 0.5 + double(FirstBridge().steps.size()) * 15) / 60;
    qInfo("%d keys and clicks, some %.1f minutes", hand.Strokes(), minutes);
    QVERIFY(minutes < 15);

    const QByteArray expected = Bytes(QString::fromUtf8(test::TestDataFolder()) + u"/first_bridge/expected.sbd"_s);
    const QList<QByteArray> lines = project.split('\n');
    const QList<QByteArray> wanted = expected.split('\n');
    for (qsizetype i = 0; i < std::min(lines.size(), wanted.size()); ++i)
        QVERIFY2(lines[i] == wanted[i], qPrintable(u"line %1: %2"_s.arg(i + 1).arg(toQString(lines[i].toStdString()))));
    QCOMPARE(project, expected);
}

void FirstBridgeTest::aStepThatIsNoLongerTrueIsTold_data()
{
    QTest::addColumn<QString>("step"); // the last one that is gone through
    QTest::addColumn<QString>("is");
    QTest::addColumn<QString>("was");
    QTest::addColumn<QString>("told");
    QTest::newRow("a menu has another name") << u"new"_s << u"act menu ファイル > 新規作成"_s
                                             << u"act menu ファイル > 新規"_s + u"プロジェクト"_s << u"no such entry"_s;
    QTest::newRow("the text names another menu")
        << u"new"_s << u"［新規作成］"_s << u"［新しい物件］"_s << u"not seen: 新しい物件"_s;
    QTest::newRow("the check says something else")
        << u"check"_s << u"「入力が必要なブロックですが空です。」"_s << u"「空です！」"_s << u"not seen: 空です！"_s;
    QTest::newRow("a column has another head")
        << u"limits"_s << u"| UFLG最大幅 |"_s << u"| UFLG上限 |"_s << u"no such column: UFLG上限"_s;
    QTest::newRow("a value is refused") << u"height"_s << u"| S5 | 2.2"_s << u"| S5 | abc"_s << u"a box: "_s;
    QTest::newRow("a value is there already")
        << u"control"_s << u"=TITLE"_s << u"=NAME"_s << u"holds \"TITLE\", not \"NAME\""_s;
    QTest::newRow("the block is not in the tree")
        << u"limits"_s << u"act block 304"_s << u"act block 298"_s << u"the tree has no such block"_s;
}

void FirstBridgeTest::aStepThatIsNoLongerTrueIsTold()
{
    QFETCH(const QString, step);
    QFETCH(const QString, is);
    QFETCH(const QString, was);
    QFETCH(const QString, told);
    QFile file(u":/guide/first_bridge.txt"_s);
    QVERIFY(file.open(QFile::ReadOnly));
    QString text = QString::fromUtf8(file.readAll());
    QVERIFY2(text.contains(is), qPrintable(is));
    Guide guide = ReadGuide(text.replace(is, was).toUtf8());
    while (guide.steps.last().name != step)
        guide.steps.removeLast();
    FirstDay day;
    CGuideHand hand(day.frame, day.user, guide, day.folder);
    hand.patience = 1500;
    const QStringList faults = hand.GoThrough();
    QVERIFY2(faults.join(u'\n').contains(told), qPrintable(faults.join(u'\n')));
}

void FirstBridgeTest::thePageOfTheDocsIsTheGuide()
{
    const QByteArray page = GuideMarkdown(FirstBridge(), kPictureFolder).toUtf8();
    if (!TreeToWrite().isEmpty()) {
        QFile file(QDir(TreeToWrite()).filePath(u"docs/first-bridge.md"_s));
        QVERIFY(file.open(QFile::WriteOnly));
        QCOMPARE(file.write(page), page.size());
        return;
    }
    QVERIFY2(Bytes(QString::fromUtf8(test::ExamplesFolder()) + u"/../docs/first-bridge.md"_s) == page,
             "docs/first-bridge.md is not what the guide says: scripts/guide-pictures.sh");
}

void FirstBridgeTest::thePicturesAreThereAndSmall()
{
    if (!TreeToWrite().isEmpty())
        QSKIP("they are being made");
    qint64 bytes = 0;
    for (const GuideStep& step : FirstBridge().steps) {
        const QString name = u":/guide/%1.png"_s.arg(step.name);
        QVERIFY2(QImage(name).size() == kWindow, qPrintable(name));
        bytes += Bytes(name).size();
    }
    QVERIFY2(bytes < kMostBytes, qPrintable(QString::number(bytes)));
}

void FirstBridgeTest::theGuideGoesWithTheProgramsWindow()
{
    Answers user;
    {
        CMainFrame frame(user.Dialogs());
        frame.show();
        frame.RunCommand(Command::FirstBridge);
        QVERIFY(GuideWindow() != nullptr);
        QVERIFY(!GuideWindow()->testAttribute(Qt::WA_QuitOnClose)); // the program ends with its own window
    }
    QVERIFY(GuideWindow() == nullptr);
}

void FirstBridgeTest::theWindowShowsAllOfIt()
{
    Answers user;
    CMainFrame frame(user.Dialogs());
    frame.show();
    frame.RunCommand(Command::FirstBridge);
    QWidget* window = GuideWindow();
    QVERIFY(window != nullptr);
    auto* page = window->findChild<QTextBrowser*>();
    const QString text = page->toPlainText();
    for (const GuideStep& step : FirstBridge().steps) {
        QVERIFY2(text.contains(step.title), qPrintable(step.title));
        for (const GuideLine& line : step.lines)
            QVERIFY2(text.contains(line.text), qPrintable(line.text));
    }
    for (const int width : {1240, 700}) { // the pictures are never wider than the page
        window->resize(width, 600);
        QApplication::processEvents();
        QVERIFY(!page->horizontalScrollBar()->isVisible());
    }
    frame.RunCommand(Command::FirstBridge); // once more: the same window
    QCOMPARE(GuideWindow(), window);
    const QPointer<QWidget> left = window;
    window->close();
    QTRY_VERIFY(left.isNull());
    frame.RunCommand(Command::FirstBridge);
    QVERIFY(GuideWindow() != nullptr);
}

void FirstBridgeTest::filesToPractiseWithGoBesideThoseThatAreThere()
{
    const TestFolder folder;
    const QString place = QFileInfo(folder.Path(u"x"_s)).path();
    const QString first = MakePracticeFolder(place);
    QCOMPARE(QFileInfo(first).fileName(), u"はじめての橋"_s);
    const QString example = QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/"_s;
    for (const QString& name : {u"plate4.abd"_s, u"plate4_計算結果/plate4.Z3F"_s}) {
        QCOMPARE(Bytes(first + u'/' + name), Bytes(example + name));
        QVERIFY(QFileInfo(first + u'/' + name).isWritable());
    }
    QVERIFY(!QFile::exists(first + u"/plate4.sbd"_s));
    QFile mine(first + u"/plate4.sbd"_s);
    QVERIFY(mine.open(QFile::WriteOnly));
    QCOMPARE(QFileInfo(MakePracticeFolder(place)).fileName(), u"はじめての橋 2"_s);
    QVERIFY(mine.exists());
}

void FirstBridgeTest::aFolderThatCannotBeWrittenLeavesNothing()
{
    const TestFolder folder;
    QFile file(folder.Path(u"file"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    QVERIFY(MakePracticeFolder(file.fileName()).isEmpty());
    QVERIFY(MakePracticeFolder(folder.Path(u"none"_s)).isEmpty());
    QVERIFY(!QFile::exists(folder.Path(u"none"_s)));
}

void FirstBridgeTest::whatIsNoLineOfAGuideIsSaid()
{
    const Guide guide = ReadGuide("title T\ndo before a step\nstep a A\nrow 1 | x\ntable 311 a | b\nrow 1 | x\n"
                                  "row 2 | x | y\nwhat\nact\n");
    QCOMPARE(guide.faults,
             QStringList({u"2: do before a step"_s, u"4: row 1 | x"_s, u"6: row 1 | x"_s, u"8: what"_s, u"9: act"_s}));
    QCOMPARE(guide.steps.size(), 1);
}

QTEST_MAIN(FirstBridgeTest)
#include "first_bridge_test.moc"
