// A project's file that somebody else changes while it is open here, and the inputs that are kept.
#include "frame/notice_bar.h"
#include "life_station.h"

#include <QDir>

using namespace sbd;

namespace {

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY2(file.open(QFile::WriteOnly), qPrintable(path));
    file.write(bytes);
}

/// Somebody else writes a title into the file.
void ChangeOutside(const QString& path, const QByteArray& title)
{
    QByteArray bytes = Bytes(path);
    bytes.replace(0, bytes.indexOf('\r'), "TITLE:" + title);
    Put(path, bytes);
}

/// Somebody else puts another file in its place.
void ReplaceOutside(const QString& path, const QByteArray& title)
{
    const QString other = path + u".new"_s;
    QFile::copy(path, other);
    ChangeOutside(other, title);
    QFile::remove(path);
    QVERIFY(QFile::rename(other, path));
}

} // namespace

class ChangedFileTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void aFileThatSomebodyElseChangedIsAskedAbout_data();
    void aFileThatSomebodyElseChangedIsAskedAbout();
    void ourOwnSavesAreNotAskedAbout();
    void aTouchedFileOfTheSameContentIsNotAskedAbout();
    void overwritingKeepsTheOthersFile();
    void savingElsewhereLeavesTheFileAlone();
    void readingAgainKeepsTheEditsInReach();
    void comparingComesBackToTheQuestion();
    void cellsTakenOutOfTheFileEndTheQuestion();
    void aRunDoesNotSaveOverAChangedFileEither();
    void aRecoveredCopyAsksWhereTheFileChangesBehindIt();
    void aFileThatIsGoneIsSimplyWritten();

    void keptInputsAreListedComparedOpenedAndTakenBack();
    void aReplacedProjectIsKept();
};

void ChangedFileTest::aFileThatSomebodyElseChangedIsAskedAbout_data()
{
    QTest::addColumn<bool>("replaced");
    QTest::newRow("changed in its place") << false;
    QTest::newRow("another file in its place") << true;
}

void ChangedFileTest::aFileThatSomebodyElseChangedIsAskedAbout()
{
    QFETCH(const bool, replaced);
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    replaced ? ReplaceOutside(path, "THEIRS") : ChangeOutside(path, "THEIRS");
    station.Trigger(u"上書き保存"_s); // cancelled
    QCOMPARE(station.user.asked.size(), 1);
    QVERIFY(station.user.asked[0].contains(QDir::toNativeSeparators(path)));
    QCOMPARE(TitleLine(path), "TITLE:THEIRS");
    QVERIFY(child->Doc().IsModified());
    QVERIFY(child->Lock().IsHeld());
    // The same at the question of a close.
    station.user.save = SaveAnswer::Save;
    child->close();
    QCOMPARE(station.user.asked.size(), 3);
    QVERIFY(station.frame.Children().contains(child));
    QCOMPARE(TitleLine(path), "TITLE:THEIRS");
}

void ChangedFileTest::ourOwnSavesAreNotAskedAbout()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    station.Engine(u"plate4"_s, "value RESET_RESULTS NO\n");
    for (const char* title : {"AAA", "BBB", "CCC"}) {
        Enter(*child, title);
        station.Trigger(u"上書き保存"_s);
        QCOMPARE(TitleLine(path), QByteArray("TITLE:") + title);
        station.Trigger(u"1.実行"_s); // writes to the file, which is read again
    }
    station.user.saveFile = station.folder.Path(u"other.sbd"_s);
    station.Trigger(u"名前を付けて保存"_s);
    Enter(*child, "DDD");
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(TitleLine(station.user.saveFile), "TITLE:DDD");
    QCOMPARE(station.user.asked, QStringList());
}

void ChangedFileTest::aTouchedFileOfTheSameContentIsNotAskedAbout()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    Put(path, Bytes(path)); // another time, the same bytes
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked, QStringList());
    QCOMPARE(TitleLine(path), "TITLE:MINE");
}

void ChangedFileTest::overwritingKeepsTheOthersFile()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "THEIRS");
    const QByteArray theirs = Bytes(path);
    station.user.changedFile = {ChangedFileAnswer::Overwrite};
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(TitleLine(path), "TITLE:MINE");
    QVERIFY(!child->Doc().IsModified());
    const QList<KeptInput> kept = KeptInputsOf(path);
    QCOMPARE(kept.size(), 1);
    QCOMPARE(kept[0].kind, KeptKind::Overwritten);
    QCOMPARE(Bytes(kept[0].file), theirs);
    QVERIFY(child->Notices().Texts().value(0).contains(QDir::toNativeSeparators(kept[0].file)));
}

void ChangedFileTest::savingElsewhereLeavesTheFileAlone()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "THEIRS");
    station.user.changedFile = {ChangedFileAnswer::SaveAs};
    station.user.saveFile = station.folder.Path(u"mine.sbd"_s);
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(TitleLine(path), "TITLE:THEIRS");
    QCOMPARE(TitleLine(station.user.saveFile), "TITLE:MINE");
    QCOMPARE(child->Doc().PathName(), station.user.saveFile);
    QVERIFY(child->Lock().IsHeld());
}

void ChangedFileTest::readingAgainKeepsTheEditsInReach()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "OURS?");
    station.user.changedFile = {ChangedFileAnswer::Reload};
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("OURS?"));
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(child->Lock().IsHeld());
    QCOMPARE(TitleLine(path), "TITLE:OURS?");
    QCOMPARE(child->Notices().Texts().size(), 1);
    child->StepHistory(false); // the menu's undo reaches them too
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("MINE"));
    QCOMPARE(child->Notices().Texts(), QStringList()); // nothing is lost any more
    // Now it is ours to save.
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitleLine(path), "TITLE:MINE");
}

void ChangedFileTest::comparingComesBackToTheQuestion()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "OURS?");
    station.user.changedFile = {ChangedFileAnswer::Compare, ChangedFileAnswer::Compare, ChangedFileAnswer::Cancel};
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked.size(), 3);
    QCOMPARE(station.user.shown.size(), 2);
    QCOMPARE(station.user.shown[0].differences.size(), std::size_t(1));
    QCOMPARE(station.user.shown[0].differences[0].before, std::string("OURS?"));
    QCOMPARE(station.user.shown[0].differences[0].after, std::string("MINE"));
    QCOMPARE(TitleLine(path), "TITLE:OURS?");
}

void ChangedFileTest::cellsTakenOutOfTheFileEndTheQuestion()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "OURS?");
    station.user.changedFile = {ChangedFileAnswer::Compare};
    station.user.withDifferences = [](const DifferenceView& view) { view.takeBack(view.differences); };
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("OURS?"));
    child->StepHistory(false);
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("MINE"));
}

void ChangedFileTest::aRunDoesNotSaveOverAChangedFileEither()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    ChangeOutside(path, "THEIRS");
    station.Engine(u"plate4"_s, "args\n");
    station.Trigger(u"1.実行"_s);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitleLine(path), "TITLE:THEIRS");
    QVERIFY(!QFile::exists(station.folder.Path(u"plate4.args"_s)));
    QCOMPARE(child->Doc().Data().Option(301, 0), std::string_view("MINE"));
}

void ChangedFileTest::aRecoveredCopyAsksWhereTheFileChangesBehindIt()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    QByteArray copy = Bytes(path);
    copy.replace(0, copy.indexOf('\r'), "TITLE:COPY");
    QVERIFY(CRecoveryCopy().Write(path, {copy.constData(), std::size_t(copy.size())}));
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    ChangeOutside(path, "THEIRS");
    station.user.asked.clear();
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(TitleLine(path), "TITLE:THEIRS");
}

void ChangedFileTest::aFileThatIsGoneIsSimplyWritten()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    Enter(*child, "MINE");
    QVERIFY(QFile::remove(path));
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked, QStringList());
    QCOMPARE(TitleLine(path), "TITLE:MINE");
}

void ChangedFileTest::keptInputsAreListedComparedOpenedAndTakenBack()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    station.Engine(u"plate4"_s, "value RESET_RESULTS NO\nchk Error = 1\n");
    station.Trigger(u"1.実行"_s);
    QCOMPARE(child->Doc().Data().Option(301, 1), std::string_view("NO"));

    station.user.withKept = [](const KeptInputsView& view) { view.compare(view.inputs[0]); };
    station.Trigger(u"解析前の入力"_s);
    QCOMPARE(station.user.kept.size(), 1);
    QCOMPARE(station.user.kept[0].kind, KeptKind::Main);
    QCOMPARE(station.user.kept[0].end, (RunEnd{RunEndKind::Report, 0, 1, 0}));
    QCOMPARE(station.user.shown.size(), 1);
    QCOMPARE(station.user.shown[0].differences.size(), std::size_t(1));
    QCOMPARE(station.user.shown[0].differences[0].before, std::string("YES"));

    station.user.withKept = [](const KeptInputsView& view) { view.restore(view.inputs[0]); };
    station.Trigger(u"解析前の入力"_s);
    QCOMPARE(child->Doc().Data().Option(301, 1), std::string_view("YES"));
    QVERIFY(child->Doc().IsModified());
    child->StepHistory(false);
    QCOMPARE(child->Doc().Data().Option(301, 1), std::string_view("NO"));

    station.user.withKept = [](const KeptInputsView& view) { view.openCopy(view.inputs[0]); };
    station.Trigger(u"解析前の入力"_s);
    CChildFrame* copy = station.frame.CurrentChild();
    QVERIFY(copy != child);
    QVERIFY(copy->Doc().PathName().isEmpty());
    QVERIFY(copy->Doc().IsModified());
    QCOMPARE(copy->Doc().Data().Option(301, 1), std::string_view("YES"));
    QVERIFY(copy->Title().startsWith(u"plate4_"_s));
}

void ChangedFileTest::aReplacedProjectIsKept()
{
    LifeStation station;
    (void)station.folder.Example(u"plate4"_s, u"bridge"_s);
    const QByteArray before = Bytes(station.Project());
    station.Engine(u"bridge"_s, "chk ok\n");
    station.user.yes = {true};
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    const QList<KeptInput> kept = KeptInputsOf(station.Project());
    QCOMPARE(kept.size(), 2); // and that of the run
    QCOMPARE(kept[1].kind, KeptKind::Replaced);
    QCOMPARE(Bytes(kept[1].file), before);
    QVERIFY(child->Notices().TextOf(u"replaced"_s).contains(QDir::toNativeSeparators(kept[1].file)));
}

QTEST_MAIN(ChangedFileTest)
#include "changed_file_test.moc"
