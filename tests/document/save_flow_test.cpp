#include "document/project_lock.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kExample = QString::fromUtf8(test::ExamplesFolder()) + QStringLiteral("/plate4/plate4");

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(bytes);
}

/// A folder with an open project in it, and what the steps of a save did.
struct Bench {
    QTemporaryDir folder;
    CKELDSectionDoc doc;
    CProjectLock lock;
    QStringList titles;
    QStringList log;

    [[nodiscard]] QString Path(const QString& name) const { return folder.filePath(name); }

    [[nodiscard]] QString Copy(const QString& name = u"bridge.sbd"_s) const
    {
        const QString path = Path(name);
        QFile::copy(kExample + u".sbd"_s, path);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        return path;
    }

    void Open(const QString& path)
    {
        QVERIFY(OnOpenDocument(doc, lock, path, [](const QString&) { return false; }).Ok());
    }

    /// A save under `path`; empty: the dialog is given up.
    SaveOutcome SaveAs(const QString& path)
    {
        return SaveWrapper(doc, lock,
                           {[&, path] {
                                log.append(lock.IsHeld() ? u"save, locked"_s : u"save, free"_s);
                                return !path.isEmpty() && doc.SaveDocument(path).Ok();
                            },
                            [&](const QString& title) {
                                log.append(lock.IsHeld() ? u"title, locked"_s : u"title, free"_s);
                                titles.append(title);
                            }});
    }
};

bool IsHeldByUs(const QString& path)
{
    return CProjectLock::Look(path) == CProjectLock::State::Held; // another look at it finds our hold
}

} // namespace

class SaveFlowTest : public QObject {
    Q_OBJECT

private slots:
    void theBasePathEndsBeforeTheLastPointOfTheName_data();
    void theBasePathEndsBeforeTheLastPointOfTheName();

    void openingTakesTheLock();
    void onlyProjectFilesAreOpened_data();
    void onlyProjectFilesAreOpened();
    void aHeldFileIsAskedForUntilTheUserGivesUp();
    void aHeldFileOpensOnceItIsFree();
    void theQuestionAboutAHeldFileStandsAsItIs();
    void aMissingFileIsNoMatterOfWaiting();
    void aFailedOpenLeavesTheOldProjectLocked();
    void openingTheSameFileAgainIsNotHinderedByOurOwnLock();

    void aSaveFreesTheFileAndLocksItAgain();
    void aPlainSaveLetsTheLockGo();
    void theTitleIsTheWholePath();
    void aSaveUnderANewNameTakesTheCompanionsAlong();
    void onlyTheCompanionsThatExistAreCopied();
    void companionsReplaceWhatStandsThere();
    void aCompanionThatCannotBeCopiedIsPassedOver();
    void aSaveUnderTheOwnNameCopiesNothing();
    void aSaveUnderAnotherExtensionOfTheSameBaseCopiesNothing();
    void theFirstSaveOfAProjectCopiesNothing();
    void aSaveAsThatIsGivenUpChangesNothing();
    void aSaveAsThatIsGivenUpOnAnUntitledProjectKeepsTheData();
    void aSaveThatFailsKeepsProjectAndLock();

    void aReloadReadsOverThePresentData();
    void aReloadTakesTheLockOfTheFileThatStandsThere();
    void aReloadOfAMissingFileLeavesTheDocument();
    void aReloadOfAnUntitledProjectDoesNothing();

    void aPathOfMoreThan260CharactersGoesThroughTheWholeLife();
    void aFileThatAnotherProgramKeepsForItselfIsAskedFor();
    void aSaveOverAFileThatAnotherProgramHoldsFails();
};

void SaveFlowTest::theBasePathEndsBeforeTheLastPointOfTheName_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("base");
    QTest::newRow("usual") << u"/data/bridge1.sbd"_s << u"/data/bridge1"_s;
    QTest::newRow("two points") << u"/data/bridge.1.abd"_s << u"/data/bridge.1"_s;
    QTest::newRow("no point") << u"/data/bridge1"_s << u"/data/bridge1"_s;
    QTest::newRow("point at the start") << u"/data/.abd"_s << u"/data/.abd"_s;
    QTest::newRow("point in the folder") << u"/data.2/bridge1"_s << u"/data.2/bridge1"_s;
    QTest::newRow("Japanese") << u"/橋/一号.橋.GRL"_s << u"/橋/一号.橋"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void SaveFlowTest::theBasePathEndsBeforeTheLastPointOfTheName()
{
    QFETCH(QString, path);
    QFETCH(QString, base);
    QCOMPARE(BasePath(path), base);
}

void SaveFlowTest::openingTakesTheLock()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(IsHeldByUs(path));
    QCOMPARE(bench.doc.PathName(), path);
}

void SaveFlowTest::onlyProjectFilesAreOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("opens");
    QTest::newRow("lower case") << u"a.sbd"_s << true;
    QTest::newRow("upper case") << u"a.SBD"_s << true;
    QTest::newRow("mixed case") << u"a.sBd"_s << true;
    QTest::newRow("other extension") << u"a.abd"_s << false;
    QTest::newRow("no extension") << u"sbd"_s << false;
    QTest::newRow("longer extension") << u"a.sbd2"_s << false;
}

void SaveFlowTest::onlyProjectFilesAreOpened()
{
    QFETCH(QString, name);
    QFETCH(bool, opens);
    Bench bench;
    const OpenResult result =
        OnOpenDocument(bench.doc, bench.lock, bench.Copy(name), [](const QString&) { return false; });
    QCOMPARE(result.outcome, opens ? OpenOutcome::Opened : OpenOutcome::WrongExtension);
    QCOMPARE(bench.lock.IsHeld(), opens);
}

void SaveFlowTest::aHeldFileIsAskedForUntilTheUserGivesUp()
{
    Bench bench;
    const QString path = bench.Copy();
    CProjectLock other;
    QVERIFY(other.Take(path));
    QStringList asked;
    const OpenResult result = OnOpenDocument(bench.doc, bench.lock, path, [&](const QString& text) {
        asked.append(text);
        return asked.size() < 3;
    });
    QCOMPARE(result.outcome, OpenOutcome::GivenUp);
    QCOMPARE(asked, QStringList(3, HeldProjectQuestion(path)));
    QVERIFY(bench.doc.PathName().isEmpty());
    QVERIFY(!bench.lock.IsHeld());
}

void SaveFlowTest::aHeldFileOpensOnceItIsFree()
{
    Bench bench;
    const QString path = bench.Copy();
    CProjectLock other;
    QVERIFY(other.Take(path));
    const OpenResult result = OnOpenDocument(bench.doc, bench.lock, path, [&](const QString&) {
        other.Release();
        return true;
    });
    QVERIFY(result.Ok());
    QVERIFY(bench.lock.IsHeld());
}

void SaveFlowTest::theQuestionAboutAHeldFileStandsAsItIs()
{
    QCOMPARE(HeldProjectQuestion(u"/d/b.sbd"_s),
             QDir::toNativeSeparators(u"/d/b.sbd"_s)
                 + u"\n\nは他のプログラムで使用され，KELD sectionを継続しますか？"
                   u"\n\nはい　　=　ほかのプログラムは終了しましたので，継続します．"
                   u"\n\nいいえ　=　ファイルを開きません！\n"_s);
}

void SaveFlowTest::aMissingFileIsNoMatterOfWaiting()
{
    Bench bench;
    bool asked = false;
    const OpenResult result = OnOpenDocument(bench.doc, bench.lock, bench.Path(u"none.sbd"_s), [&](const QString&) {
        asked = true;
        return false;
    });
    QCOMPARE(result.outcome, OpenOutcome::Failed);
    QCOMPARE(result.file.error, FileError::NotFound);
    QVERIFY(!asked);
}

void SaveFlowTest::aFailedOpenLeavesTheOldProjectLocked()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    QVERIFY(
        !OnOpenDocument(bench.doc, bench.lock, bench.Path(u"none.sbd"_s), [](const QString&) { return false; }).Ok());
    QCOMPARE(bench.doc.PathName(), path);
    QVERIFY(IsHeldByUs(path));
}

void SaveFlowTest::openingTheSameFileAgainIsNotHinderedByOurOwnLock()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    bench.Open(path); // asks nothing: a "no" would fail
    QVERIFY(IsHeldByUs(path));
}

void SaveFlowTest::aSaveFreesTheFileAndLocksItAgain()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    QVERIFY(bench.SaveAs(path).saved);
    QCOMPARE(bench.log, (QStringList{u"save, free"_s, u"title, locked"_s}));
    QVERIFY2(IsHeldByUs(path), "the lock is on the file that was replaced");
}

void SaveFlowTest::aPlainSaveLetsTheLockGo()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    QVERIFY(OnSaveDocument(bench.doc, bench.lock, path).Ok());
    QVERIFY(!bench.lock.IsHeld());
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
}

void SaveFlowTest::theTitleIsTheWholePath()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    bench.SaveAs(path);
    bench.SaveAs(bench.Path(u"橋 2.sbd"_s));
    QCOMPARE(bench.titles,
             (QStringList{QDir::toNativeSeparators(path), QDir::toNativeSeparators(bench.Path(u"橋 2.sbd"_s))}));
}

void SaveFlowTest::aSaveUnderANewNameTakesTheCompanionsAlong()
{
    Bench bench;
    bench.Open(bench.Copy());
    const QStringList extensions = {u".abd"_s, u".li9"_s, u".ll2"_s, u".abl"_s};
    for (const QString& extension : extensions)
        Put(bench.Path(u"bridge"_s + extension), extension.toUtf8());
    QVERIFY(QDir(bench.folder.path()).mkdir(u"bridge_計算結果"_s));

    const SaveOutcome outcome = bench.SaveAs(bench.Path(u"second.sbd"_s));
    QStringList expected;
    for (const QString& extension : extensions) {
        expected.append(bench.Path(u"second"_s + extension));
        QCOMPARE(Bytes(expected.constLast()), extension.toUtf8());
        QCOMPARE(Bytes(bench.Path(u"bridge"_s + extension)), extension.toUtf8());
    }
    QCOMPARE(outcome.copied, expected);
    QVERIFY(!QFile::exists(bench.Path(u"second_計算結果"_s)));
    QVERIFY(IsHeldByUs(bench.Path(u"second.sbd"_s)));
    QVERIFY(!IsHeldByUs(bench.Path(u"bridge.sbd"_s)));
}

void SaveFlowTest::onlyTheCompanionsThatExistAreCopied()
{
    Bench bench;
    bench.Open(bench.Copy());
    Put(bench.Path(u"bridge.ll2"_s), "ll2");
    QVERIFY(QDir(bench.folder.path()).mkdir(u"bridge.abl"_s));
    QCOMPARE(bench.SaveAs(bench.Path(u"second.sbd"_s)).copied, QStringList(bench.Path(u"second.ll2"_s)));
}

void SaveFlowTest::companionsReplaceWhatStandsThere()
{
    Bench bench;
    bench.Open(bench.Copy());
    Put(bench.Path(u"bridge.abd"_s), "new");
    Put(bench.Path(u"second.abd"_s), "old and longer");
    Put(bench.Path(u"second.li9"_s), "stays");
    bench.SaveAs(bench.Path(u"second.sbd"_s));
    QCOMPARE(Bytes(bench.Path(u"second.abd"_s)), "new");
    QCOMPARE(Bytes(bench.Path(u"second.li9"_s)), "stays");
}

void SaveFlowTest::aCompanionThatCannotBeCopiedIsPassedOver()
{
    Bench bench;
    bench.Open(bench.Copy());
    Put(bench.Path(u"bridge.abd"_s), "abd");
    Put(bench.Path(u"bridge.abl"_s), "abl");
    QVERIFY(QDir(bench.folder.path()).mkdir(u"second.abd"_s));
    QCOMPARE(bench.SaveAs(bench.Path(u"second.sbd"_s)).copied, QStringList(bench.Path(u"second.abl"_s)));
}

void SaveFlowTest::aSaveUnderTheOwnNameCopiesNothing()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    Put(bench.Path(u"bridge.abd"_s), "abd");
    QVERIFY(bench.SaveAs(path).copied.isEmpty());
    QCOMPARE(Bytes(bench.Path(u"bridge.abd"_s)), "abd");
}

void SaveFlowTest::aSaveUnderAnotherExtensionOfTheSameBaseCopiesNothing()
{
    Bench bench;
    bench.Open(bench.Copy());
    Put(bench.Path(u"bridge.abd"_s), "abd");
    QVERIFY(bench.SaveAs(bench.Path(u"bridge.SBD"_s)).copied.isEmpty());
}

void SaveFlowTest::theFirstSaveOfAProjectCopiesNothing()
{
    Bench bench;
    // Files whose names are an extension alone are not the companions of a project without a name.
    const QString here = QDir::currentPath();
    QVERIFY(QDir::setCurrent(bench.folder.path()));
    Put(u".abd"_s, "somebody's");
    const SaveOutcome outcome = bench.SaveAs(bench.Path(u"first.sbd"_s));
    QDir::setCurrent(here);
    QVERIFY(outcome.saved);
    QVERIFY(outcome.copied.isEmpty());
    QVERIFY(!QFile::exists(bench.Path(u"first.abd"_s)));
}

void SaveFlowTest::aSaveAsThatIsGivenUpChangesNothing()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    bench.doc.SetModifiedFlag(true);
    Put(bench.Path(u"bridge.abd"_s), "abd");
    const SaveOutcome outcome = bench.SaveAs({});
    QVERIFY(!outcome.saved);
    QVERIFY(outcome.copied.isEmpty());
    QVERIFY(IsHeldByUs(path));
    QVERIFY(bench.doc.IsModified());
    QCOMPARE(bench.titles, QStringList(QDir::toNativeSeparators(path)));
}

void SaveFlowTest::aSaveAsThatIsGivenUpOnAnUntitledProjectKeepsTheData()
{
    Bench bench;
    test::DataOf(bench.doc).SetOption(301, 0, "entered");
    bench.doc.SetModifiedFlag(true);
    QVERIFY(!bench.SaveAs({}).saved);
    QCOMPARE(bench.titles, QStringList(QString()));
    QCOMPARE(bench.log, (QStringList{u"save, free"_s, u"title, free"_s}));
    QVERIFY(bench.doc.IsModified());
    QVERIFY(bench.doc.PathName().isEmpty());
    QVERIFY(bench.doc.Data().Option(301, 0) == "entered");
}

void SaveFlowTest::aSaveThatFailsKeepsProjectAndLock()
{
    Bench bench;
    const QString path = bench.Copy();
    const QByteArray before = Bytes(path);
    bench.Open(path);
    bench.doc.SetModifiedFlag(true);
    QVERIFY(!bench.SaveAs(bench.Path(u"no folder/x.sbd"_s)).saved);
    QCOMPARE(bench.doc.PathName(), path);
    QVERIFY(bench.doc.IsModified());
    QVERIFY(IsHeldByUs(path));
    QCOMPARE(Bytes(path), before);
}

void SaveFlowTest::aReloadReadsOverThePresentData()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    CSbdData& data = test::DataOf(bench.doc);
    const std::vector<std::string> names = {"X1", "X2"};
    data.gridNames.girderNames = names;
    QVERIFY(data.RowCount(313) > 1);
    data.SetOption(301, 0, "in the editor");
    data.Table(305)->AppendRow({"G9", "L", "R"});
    const std::size_t options = data.RowCount(302);
    data.SetOption(302, options - 1, "not in the file");
    bench.lock.Release(); // for a run
    // A file that holds one section alone: what it does not name stays, tables are gone.
    Put(path, "[SEC_BOX_WEB]  305\r\nG1 G1L G1R\r\n[END SEC_BOX_WEB]\r\n");
    const QSignalSpy reloaded(&bench.doc, &CKELDSectionDoc::reloaded);

    QVERIFY(ReloadDocument(bench.doc, bench.lock));
    QCOMPARE(reloaded.count(), 1);
    QCOMPARE(data.RowCount(305), std::size_t(1));
    QVERIFY(data.Table(305)->Row(0)[0] == "G1");
    QCOMPARE(data.RowCount(313), std::size_t(1)); // the control row, which every project has
    QVERIFY(data.Option(301, 0) == "in the editor");
    QVERIFY(data.Option(302, options - 1) == "not in the file");
    QVERIFY(data.gridNames.girderNames == names);
}

void SaveFlowTest::aReloadTakesTheLockOfTheFileThatStandsThere()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    bench.lock.Release(); // for a run, which puts another file in place
    QVERIFY(QFile::remove(path));
    (void)bench.Copy();
    QVERIFY(ReloadDocument(bench.doc, bench.lock));
    QVERIFY(IsHeldByUs(path));
}

void SaveFlowTest::aReloadOfAMissingFileLeavesTheDocument()
{
    Bench bench;
    const QString path = bench.Copy();
    bench.Open(path);
    const CSbdData before = bench.doc.Data();
    bench.lock.Release();
    QVERIFY(QFile::remove(path));
    QVERIFY(!ReloadDocument(bench.doc, bench.lock));
    QVERIFY(bench.doc.Data().SameProject(before));
    QVERIFY(!bench.lock.IsHeld());
}

void SaveFlowTest::aReloadOfAnUntitledProjectDoesNothing()
{
    Bench bench;
    test::DataOf(bench.doc).SetOption(301, 0, "entered");
    QVERIFY(!ReloadDocument(bench.doc, bench.lock));
    QVERIFY(bench.doc.Data().Option(301, 0) == "entered");
    QVERIFY(!bench.lock.IsHeld());
}

void SaveFlowTest::aPathOfMoreThan260CharactersGoesThroughTheWholeLife()
{
    Bench bench;
    QString folder = bench.folder.path();
    while (folder.size() < 400)
        folder += u"/深いフォルダー "_s + QString(60, u'd');
    QVERIFY(QDir().mkpath(folder + u"/橋_計算結果"_s));
    const QString path = folder + u"/橋.sbd"_s;
    const QString second = folder + u"/二号.sbd"_s;
    QVERIFY(QFile::copy(kExample + u".sbd"_s, path));
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(QFile::copy(kExample + u".abd"_s, folder + u"/橋.abd"_s));
    Put(folder + u"/橋_計算結果/橋.Z1D"_s, "first");

    bench.Open(path);
    QVERIFY(IsHeldByUs(path));
    QVERIFY(!bench.doc.Data().gridNames.girderNames.empty());
    QVERIFY(!bench.doc.HasNewerResults());
    Put(folder + u"/橋_計算結果/橋.Z1D"_s, "second, longer");
    QVERIFY(bench.doc.HasNewerResults());

    test::DataOf(bench.doc).SetOption(301, 0, "deep");
    QVERIFY(bench.SaveAs(path).saved);
    QVERIFY(Bytes(path).startsWith("TITLE:deep\r\n"));
    QVERIFY(IsHeldByUs(path));
    QCOMPARE(bench.SaveAs(second).copied, QStringList(folder + u"/二号.abd"_s));
    QCOMPARE(Bytes(folder + u"/二号.abd"_s), Bytes(kExample + u".abd"_s));
    QVERIFY(IsHeldByUs(second));
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
    bench.lock.Release();
    QVERIFY(ReloadDocument(bench.doc, bench.lock));
    QVERIFY(bench.lock.IsHeld());
    bench.Open(path);
    QCOMPARE(bench.doc.PathName(), path);
}

void SaveFlowTest::aFileThatAnotherProgramKeepsForItselfIsAskedFor()
{
#ifdef Q_OS_WIN
    // Elsewhere a program that does not ask for our lock is not seen.
    for (const DWORD sharing : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
        Bench bench;
        const QString path = bench.Copy();
        HANDLE editor = CreateFileW(path.toStdWString().c_str(), GENERIC_READ | GENERIC_WRITE, sharing, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
        QVERIFY(editor != INVALID_HANDLE_VALUE);
        int asked = 0;
        const OpenResult result = OnOpenDocument(bench.doc, bench.lock, path, [&](const QString& text) {
            if (++asked == 2)
                CloseHandle(editor);
            return text == HeldProjectQuestion(path);
        });
        QVERIFY(result.Ok());
        QCOMPARE(asked, 2);
        QVERIFY(bench.lock.IsHeld());
    }
#endif
}

void SaveFlowTest::aSaveOverAFileThatAnotherProgramHoldsFails()
{
#ifdef Q_OS_WIN
    Bench bench;
    const QString path = bench.Copy();
    const QString second = bench.Copy(u"second.sbd"_s);
    const QByteArray before = Bytes(second);
    bench.Open(path);
    test::DataOf(bench.doc).SetOption(301, 0, "entered");
    bench.doc.SetModifiedFlag(true);
    CProjectLock other;
    QVERIFY(other.Take(second));
    QVERIFY(!bench.SaveAs(second).saved);
    QCOMPARE(Bytes(second), before);
    QCOMPARE(bench.doc.PathName(), path);
    QVERIFY(bench.doc.IsModified());
    QVERIFY(IsHeldByUs(path));
#endif
}

QTEST_GUILESS_MAIN(SaveFlowTest)
#include "save_flow_test.moc"
