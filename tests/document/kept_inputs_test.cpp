#include "document/kept_inputs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <string>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const QString kProject = QFileInfo(u"/data/設計 課/橋.sbd"_s).absoluteFilePath(); // with a drive on Windows

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(bytes);
}

QString RecordOf(const QString& file)
{
    return file.chopped(4) + u".json"_s;
}

QByteArray TextsOf(const QList<KeptInput>& inputs)
{
    QByteArray texts;
    for (const KeptInput& input : inputs)
        texts += Bytes(input.file);
    return texts;
}

QString Keep(const QString& folder, const std::string& bytes, const QString& project = kProject,
             const KeptLimits& limits = {})
{
    QTest::qWait(2); // names are by milliseconds
    return KeepInput(project, bytes, KeptKind::Main, folder, limits);
}

} // namespace

class KeptInputsTest : public QObject {
    Q_OBJECT

private slots:
    void anInputIsKeptWithItsTimeItsRunAndHowThatEnded();
    void howTheLastRunHasEndedIsKnownLater();
    void whatTheUserKnowsOfIsMarked();
    void theLastTenOfAProjectAreKept();
    void allTogetherStayWithinTheirRoom();
    void whatIsLargerThanAllRoomIsNotKept();
    void aFolderThatTakesNothingKeepsNothing();
    void aDamagedRecordLeavesItsInputInReach();
    void aRecordOfANewerVersionIsNotTouched();
    void inputsAreForTheUserAlone();
};

void KeptInputsTest::anInputIsKeptWithItsTimeItsRunAndHowThatEnded()
{
    const QTemporaryDir home;
    const QString folder = home.filePath(u"a/inputs"_s);
    const QString file = Keep(folder, std::string("TITLE:\x83\x5C\0x\r\n", 12));
    QCOMPARE(Bytes(file), QByteArray("TITLE:\x83\x5C\0x\r\n", 12));
    QCOMPARE(KeptInputsOf(kProject, folder).value(0).end.kind, RunEndKind::Unknown);
    SetKeptEnd(file, {RunEndKind::Fault, 11, 2, 3});
    const QList<KeptInput> inputs = KeptInputsOf(kProject, folder);
    QCOMPARE(inputs.size(), 1);
    QCOMPARE(inputs[0].file, file);
    QCOMPARE(inputs[0].project, kProject);
    QCOMPARE(inputs[0].kind, KeptKind::Main);
    QCOMPARE(inputs[0].end, (RunEnd{RunEndKind::Fault, 11, 2, 3}));
    QVERIFY(qAbs(inputs[0].time.secsTo(QDateTime::currentDateTime())) < 60);
    QVERIFY(KeptInputsOf(u"/data/other.sbd"_s, folder).isEmpty());
    RemoveKeptInput(file);
    QVERIFY(QDir(folder).isEmpty());
    SetKeptEnd(file, {RunEndKind::Report}); // has gone
    QVERIFY(QDir(folder).isEmpty());
}

void KeptInputsTest::howTheLastRunHasEndedIsKnownLater()
{
    const QTemporaryDir folder;
    QCOMPARE(LastRunText(kProject, folder.path()), QString());
    QVERIFY(!TellsOfAWholeRun({}));
    const QString first = Keep(folder.path(), "a");
    QVERIFY(LastRunText(kProject, folder.path()).endsWith(u": 終了を確認できていません"_s));
    SetKeptEnd(first, {RunEndKind::ExitCode, 7});
    const QString line = LastRunText(kProject, folder.path());
    QVERIFY2(line.startsWith(u"解析実行 "_s) && line.endsWith(u": 異常終了 (終了コード 7)"_s), qPrintable(line));
    const KeptInput kept = KeptInputsOf(kProject, folder.path()).at(0);
    QVERIFY(kept.endTime.isValid() && kept.endTime >= kept.time);
    QVERIFY(line.contains(kept.endTime.toString(u"yyyy/MM/dd HH:mm:ss"_s)));
    for (const RunEndKind kind : {RunEndKind::Unknown, RunEndKind::Report, RunEndKind::NoReport, RunEndKind::ExitCode,
                                  RunEndKind::Fault, RunEndKind::Cancelled, RunEndKind::NotStarted, RunEndKind::Held}) {
        SetKeptEnd(first, {kind, 7, 1, 2});
        QCOMPARE(TellsOfAWholeRun(LastRunText(kProject, folder.path())),
                 kind == RunEndKind::Report || kind == RunEndKind::NoReport);
    }
    SetKeptEnd(first, {RunEndKind::ExitCode, 7});
    const QString again = LastRunText(kProject, folder.path()); // the clock may have gone on
    // What is kept for another reason is no run.
    for (const KeptKind kind : {KeptKind::Unsaved, KeptKind::Replaced, KeptKind::Overwritten})
        QVERIFY(!KeepInput(kProject, "b", kind, folder.path()).isEmpty());
    QCOMPARE(LastRunText(kProject, folder.path()), again);
    QCOMPARE(LastRunText(u"/data/other.sbd"_s, folder.path()), QString());
}

void KeptInputsTest::whatTheUserKnowsOfIsMarked()
{
    const QTemporaryDir folder;
    const QString file = Keep(folder.path(), "a");
    QVERIFY(!KeptInputsOf(kProject, folder.path()).at(0).settled);
    SettleKeptInput(file);
    SetKeptEnd(file, {RunEndKind::Report, 0, 1, 2});
    const KeptInput input = KeptInputsOf(kProject, folder.path()).at(0);
    QVERIFY(input.settled);
    QCOMPARE(input.end, (RunEnd{RunEndKind::Report, 0, 1, 2}));
}

void KeptInputsTest::theLastTenOfAProjectAreKept()
{
    const QTemporaryDir folder;
    (void)Keep(folder.path(), "z", u"/data/other.sbd"_s);
    for (char letter = 'a'; letter < 'a' + 13; ++letter)
        QVERIFY(!Keep(folder.path(), std::string(1, letter)).isEmpty());
    QCOMPARE(TextsOf(KeptInputsOf(kProject, folder.path())), "mlkjihgfed"); // newest first
    QCOMPARE(TextsOf(KeptInputsOf(u"/data/other.sbd"_s, folder.path())), "z");
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 22);
}

void KeptInputsTest::allTogetherStayWithinTheirRoom()
{
    const QTemporaryDir folder;
    const KeptLimits limits{10, 1000};
    for (int i = 0; i < 6; ++i)
        QVERIFY(!Keep(folder.path(), std::string(300, static_cast<char>('a' + i)), u"/data/%1.sbd"_s.arg(i), limits)
                     .isEmpty());
    qint64 bytes = 0;
    for (const QFileInfo& info : QDir(folder.path()).entryInfoList({u"*.sbd"_s}))
        bytes += info.size();
    QCOMPARE(bytes, 900);
    QVERIFY(!KeptInputsOf(u"/data/5.sbd"_s, folder.path()).isEmpty());
    QVERIFY(KeptInputsOf(u"/data/2.sbd"_s, folder.path()).isEmpty());
}

void KeptInputsTest::whatIsLargerThanAllRoomIsNotKept()
{
    const QTemporaryDir folder;
    const KeptLimits limits{10, 1000};
    (void)Keep(folder.path(), "small", kProject, limits);
    QVERIFY(Keep(folder.path(), std::string(1001, 'x'), kProject, limits).isEmpty());
    QCOMPARE(TextsOf(KeptInputsOf(kProject, folder.path())), "small");
}

void KeptInputsTest::aFolderThatTakesNothingKeepsNothing()
{
    const QTemporaryDir folder;
    Put(folder.filePath(u"file"_s), {});
    QVERIFY(Keep(folder.filePath(u"file/inputs"_s), "x").isEmpty());
    QVERIFY(Keep(folder.filePath(u"file"_s), "x").isEmpty());
    QVERIFY(KeptInputsOf(kProject, folder.filePath(u"file"_s)).isEmpty());
}

void KeptInputsTest::aDamagedRecordLeavesItsInputInReach()
{
    const QTemporaryDir folder;
    const QByteArray damages[] = {"", "{", "[]", "no record", QByteArray(1 << 20, '{'), R"({"version":1,"project":7})"};
    for (const QByteArray& damage : damages)
        Put(RecordOf(Keep(folder.path(), "x")), damage);
    QFile::remove(RecordOf(Keep(folder.path(), "x")));
    const QList<KeptInput> inputs = KeptInputsOf(kProject, folder.path());
    QCOMPARE(inputs.size(), 7);
    for (const KeptInput& input : inputs)
        QCOMPARE(input.kind, KeptKind::Other);
    SetKeptEnd(inputs[0].file, {RunEndKind::Report}); // says nothing of what it does not know
    for (int i = 0; i < 12; ++i)
        (void)Keep(folder.path(), "y");
    QCOMPARE(TextsOf(KeptInputsOf(kProject, folder.path())), "yyyyyyyyyyxxxxxxx");
}

void KeptInputsTest::aRecordOfANewerVersionIsNotTouched()
{
    const QTemporaryDir folder;
    const QString file = Keep(folder.path(), "newer");
    const QByteArray record = R"({"version":2,"project":{"path":"/data/x.sbd"},"end":"better"})";
    Put(RecordOf(file), record);
    SetKeptEnd(file, {RunEndKind::Report});
    for (int i = 0; i < 12; ++i)
        QVERIFY(!Keep(folder.path(), "y", kProject, {3, 4}).isEmpty());
    QCOMPARE(Bytes(file), "newer");
    QCOMPARE(Bytes(RecordOf(file)), record);
    QCOMPARE(TextsOf(KeptInputsOf(kProject, folder.path())), "yyynewer");
}

void KeptInputsTest::inputsAreForTheUserAlone()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir home;
    const QString folder = home.filePath(u"inputs"_s);
    QVERIFY(!Keep(folder, "x").isEmpty());
    const QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(folder) & others, QFile::Permissions());
#endif
}

QTEST_MAIN(KeptInputsTest)
#include "kept_inputs_test.moc"
