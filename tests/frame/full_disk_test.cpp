// A disk without room, at a save, a copy, a kept input and a run: it is told, nothing is lost, and it goes on when there
// is room again. The disk is a small one in memory, which this process alone sees; where none can be made nothing is
// tested.
#include "frame/notice_bar.h"
#include "frame/result_sheets_dialog.h"
#include "life_station.h"
#include "panels/result_panel.h"
#include "panels/result_saver.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QPushButton>
#include <QTimer>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>
#endif

using namespace sbd;

namespace {

QString noDisks = u"disks in memory are made on Linux alone"_s;

#ifdef Q_OS_LINUX
void WriteOwnFile(const char* path, const QByteArray& bytes)
{
    QFile file(QString::fromLatin1(path));
    if (file.open(QFile::WriteOnly))
        file.write(bytes);
}

/// From here on mounts of this process are its own. Who is not root may do that as root of a space of users.
void MakeOwnMounts()
{
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (::unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) != 0) {
        noDisks = u"no space of mounts: "_s + QString::fromLocal8Bit(std::strerror(errno));
        return;
    }
    if (user != 0) {
        WriteOwnFile("/proc/self/setgroups", "deny");
        WriteOwnFile("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1");
        WriteOwnFile("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1");
    }
    noDisks = ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0
                  ? QString()
                  : u"no mounts of our own: "_s + QString::fromLocal8Bit(std::strerror(errno));
}
#endif

/// A disk of few bytes as a folder.
class SmallDisk {
public:
    SmallDisk(const QString& folder, [[maybe_unused]] int kilobytes) : folder_(folder)
    {
        QDir().mkpath(folder);
#ifdef Q_OS_LINUX
        const QByteArray options = "size=" + QByteArray::number(kilobytes) + 'k';
        isThere = noDisks.isEmpty()
                  && ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0;
#endif
    }
    ~SmallDisk()
    {
#ifdef Q_OS_LINUX
        if (isThere)
            ::umount2(QFile::encodeName(folder_).constData(), MNT_DETACH);
#endif
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    /// Takes all the room that is left.
    void Fill() const
    {
        QFile file(Filler());
        QVERIFY(file.open(QFile::WriteOnly | QFile::Unbuffered));
        while (file.write(QByteArray(4096, 'f')) > 0) {
        }
    }
    void MakeRoom() const
    {
        QVERIFY(QFile::remove(Filler()));
    }
    [[nodiscard]] QString Path(const QString& name) const
    {
        return QDir(folder_).filePath(name);
    }
    /// What stands there, the filler left out.
    [[nodiscard]] QStringList Names() const
    {
        QStringList names = QDir(folder_).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        names.removeOne(u"filler"_s);
        return names;
    }

    bool isThere = false;

private:
    [[nodiscard]] QString Filler() const
    {
        return Path(u"filler"_s);
    }
    QString folder_;
};

/// The small disk is where copies and kept inputs go. To be made before the program's window.
struct SmallStateFolder {
    TestFolder folder;
    SmallDisk disk{folder.Path(u"state"_s), 1024};

    SmallStateFolder() { qputenv("XDG_STATE_HOME", QFile::encodeName(folder.Path(u"state"_s))); }
    ~SmallStateFolder() { qunsetenv("XDG_STATE_HOME"); }
    SmallStateFolder(const SmallStateFolder&) = delete;
    SmallStateFolder& operator=(const SmallStateFolder&) = delete;
};

/// The program with a project on a disk of its own.
struct DiskStation : LifeStation {
    SmallDisk disk{folder.Path(u"disk"_s), 1024};
    QString path = disk.Path(u"plate4.sbd"_s);
    CChildFrame* child = nullptr;

    void Open()
    {
        QVERIFY(QFile::rename(folder.Example(u"plate4"_s), folder.Path(u"from.sbd"_s)));
        QVERIFY(QFile::copy(folder.Path(u"from.sbd"_s), path));
        child = frame.OpenProject(path);
        QVERIFY(child != nullptr);
    }
    [[nodiscard]] bool Says(const QString& text) const
    {
        for (const QString& notice : child->Notices().Texts())
            if (notice.contains(text))
                return true;
        return false;
    }
};

} // namespace

class FullDiskTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        RemoveAllCopies();
        if (!noDisks.isEmpty())
            QSKIP(qPrintable(noDisks));
    }

    void aSaveIsToldAndTheOldFileStands();
    void aSaveUnderANewNameNamesWhatDidNotComeAlong();
    void aRecoveryCopyIsToldAndTheLastOneStands();
    void aRunAsksWhereItsInputCannotBeKept();
    void anEngineThatFindsNoRoomLeavesItsInput();
    void anEndThatCannotBeWrittenDownIsToldAtTheNextOpening();
    void tablesAndSheetsOfResultsAreToldAndThoseOfBeforeStand();
};

void FullDiskTest::aSaveIsToldAndTheOldFileStands()
{
    DiskStation station;
    QVERIFY(station.disk.isThere);
    station.Open();
    const QByteArray before = Bytes(station.path);
    Enter(*station.child, "ENTERED");
    station.disk.Fill();
    for (int i = 0; i < 3; ++i) {
        station.frame.RunCommand(Command::Save);
        QCOMPARE(station.user.warned.size(), i + 1);
        QVERIFY2(station.user.warned[i].contains(u"ディスクに空きがありません"_s), qPrintable(station.user.warned[i]));
        QVERIFY(Bytes(station.path) == before);
        QVERIFY(station.child->Doc().IsModified());
        QVERIFY(station.child->Lock().IsHeld());
        QCOMPARE(station.disk.Names(), QStringList({u"plate4.sbd"_s})); // nothing half written
    }
    QVERIFY(station.child->KeepRecoveryCopy()); // another disk
    station.disk.MakeRoom();
    station.frame.RunCommand(Command::Save);
    QCOMPARE(station.user.warned.size(), 3);
    QVERIFY(Bytes(station.path).startsWith("TITLE:ENTERED\r\n"));
    QVERIFY(!station.child->Doc().IsModified());
}

void FullDiskTest::aSaveUnderANewNameNamesWhatDidNotComeAlong()
{
    DiskStation station;
    QVERIFY(station.disk.isThere);
    const QString path = station.folder.Example(u"plate4"_s);
    QFile large(station.folder.Path(u"plate4.li9"_s));
    QVERIFY(large.open(QFile::WriteOnly));
    large.write(QByteArray(2'000'000, 'l'));
    large.close();
    station.child = station.frame.OpenProject(path);
    station.user.saveFile = station.disk.Path(u"new.sbd"_s);
    station.frame.RunCommand(Command::SaveAs);
    QCOMPARE(station.user.warned, QStringList());
    QCOMPARE(station.child->Doc().PathName(), station.user.saveFile);
    QVERIFY(station.Says(u"コピーできませんでした"_s) && station.Says(station.disk.Path(u"new.li9"_s)));
    QVERIFY(!station.Says(u"new.abd"_s)); // for that there was room
    QCOMPARE(station.disk.Names(), QStringList({u"new.abd"_s, u"new.sbd"_s}));
    QCOMPARE(large.size(), 2'000'000);
}

void FullDiskTest::aRecoveryCopyIsToldAndTheLastOneStands()
{
    const SmallStateFolder state;
    QVERIFY(state.disk.isThere);
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "FIRST");
    QVERIFY(child->KeepRecoveryCopy());
    const QStringList copies = QDir(RecoveryFolder()).entryList({u"*.sbd"_s});
    QCOMPARE(copies.size(), 1);
    const QByteArray first = Bytes(QDir(RecoveryFolder()).filePath(copies[0]));
    QVERIFY(first.startsWith("TITLE:FIRST\r\n"));
    state.disk.Fill();
    Enter(*child, "SECOND");
    station.frame.OfferRecoveryCopies();
    QVERIFY(!child->KeepRecoveryCopy());
    QVERIFY(Bytes(QDir(RecoveryFolder()).filePath(copies[0])) == first);
    QVERIFY(child->Doc().IsModified());
    state.disk.MakeRoom();
    QVERIFY(child->KeepRecoveryCopy());
    QVERIFY(Bytes(QDir(RecoveryFolder()).filePath(copies[0])).startsWith("TITLE:SECOND\r\n"));
    child->DropRecoveryCopy();
}

void FullDiskTest::aRunAsksWhereItsInputCannotBeKept()
{
    const SmallStateFolder state;
    QVERIFY(state.disk.isThere);
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    station.Engine(u"plate4"_s, "value RESET_RESULTS NO\nargs\n");
    station.frame.RunCommand(Command::RunAll);
    QApplication::processEvents();
    QCOMPARE(KeptInputsOf(path).size(), 1);
    const QByteArray before = Bytes(path);
    state.disk.Fill();
    QFile::remove(station.folder.Path(u"plate4.args"_s));
    station.frame.RunCommand(Command::RunAll); // the user says no
    QApplication::processEvents();
    QCOMPARE(station.user.asked.size(), 1);
    QVERIFY(station.user.asked[0].contains(u"解析前の入力を次のフォルダーに保管できません。"_s));
    QVERIFY(!QFile::exists(station.folder.Path(u"plate4.args"_s)));
    QCOMPARE(Bytes(path), before);
    QVERIFY(child->Lock().IsHeld());
    QCOMPARE(KeptInputsOf(path).size(), 1); // that of before stands
    QVERIFY(!Bytes(KeptInputsOf(path)[0].file).isEmpty());
}

void FullDiskTest::anEngineThatFindsNoRoomLeavesItsInput()
{
    DiskStation station;
    QVERIFY(station.disk.isThere);
    station.Open();
    const QByteArray before = Bytes(station.path);
    QFile engine(station.disk.Path(u"plate4.engine"_s));
    QVERIFY(engine.open(QFile::WriteOnly));
    engine.write("rubbish 5000000\nchk ok\n"); // more than there is room for
    engine.close();
    station.frame.RunCommand(Command::RunAll);
    QApplication::processEvents();
    QVERIFY(Bytes(station.path) != before);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY(station.user.warned[0].contains(u"壊れているようです"_s));
    const QList<KeptInput> inputs = KeptInputsOf(station.path);
    QCOMPARE(inputs.size(), 1);
    QCOMPARE(Bytes(inputs[0].file), before);
    for (QPushButton* button : station.child->Notices().findChildren<QPushButton*>()) {
        if (button->text().startsWith(u"元に戻す: 解析前の入力"_s))
            button->click();
    }
    QCOMPARE(station.child->Doc().Data().Option(301, 1), std::string_view("YES"));
    // The disk is full of rubbish: a save needs room for the new file beside it, says so, and keeps the window's project.
    station.user.yes = {true, true};
    station.frame.RunCommand(Command::Save);
    QCOMPARE(station.user.warned.size(), 2);
    QVERIFY(station.user.warned[1].contains(u"ディスクに空きがありません"_s));
    QVERIFY(station.child->Doc().IsModified());
    QVERIFY(station.child->KeepRecoveryCopy());
}

void FullDiskTest::anEndThatCannotBeWrittenDownIsToldAtTheNextOpening()
{
    const SmallStateFolder state;
    QVERIFY(state.disk.isThere);
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    station.frame.OfferRecoveryCopies();
    station.Engine(u"plate4"_s, "sleep 1000\nchk ok\n");
    QTimer::singleShot(400, &station.frame, [&] { state.disk.Fill(); }); // while the engine runs
    station.frame.RunCommand(Command::RunAll);
    QApplication::processEvents();
    QVERIFY(child->Doc().lastRun.contains(u"報告あり"_s));
    const QList<KeptInput> inputs = KeptInputsOf(path);
    QCOMPARE(inputs.size(), 1);
    QCOMPARE(inputs[0].end.kind, RunEndKind::Unknown); // as it was written before the run
    QCOMPARE(inputs[0].project, path);
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    child = station.frame.OpenProject(path);
    QVERIFY(child->Notices().Texts().value(0).contains(u"終わりを確認する前に"_s));
}

void FullDiskTest::tablesAndSheetsOfResultsAreToldAndThoseOfBeforeStand()
{
    const TestFolder folder;
    const SmallDisk disk(folder.Path(u"disk"_s), 1024);
    QVERIFY(disk.isThere);
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.sbd"_s).Ok());
    CDown253 panel(&doc);
    CResultSheetsDialog sheets(&doc);
    QString path;
    QString told;
    const auto askFile = [&](QWidget*, const QString&) { return path; };
    const auto warn = [&](QWidget*, const QString& message) { told = message; };
    panel.Saver().askFile = askFile;
    panel.Saver().warn = warn;
    sheets.askFile = askFile;
    sheets.warn = warn;
    for (const QString& name : {u"table.csv"_s, u"table.xlsx"_s, u"sheets.pdf"_s}) {
        path = disk.Path(name);
        QFile file(path);
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("before");
        file.close();
        disk.Fill();
        const auto save = [&] {
            told.clear();
            if (name.endsWith(u"csv"_s))
                panel.Saver().SaveCsv();
            else if (name.endsWith(u"xlsx"_s))
                panel.Saver().SaveXlsx();
            else
                sheets.SavePdf();
        };
        save();
        QVERIFY2(told.contains(u"ディスクに空きがありません"_s), qPrintable(name + told));
        QVERIFY2(told.contains(u"元のファイルがあれば、そのまま残っています"_s), qPrintable(told));
        QCOMPARE(Bytes(path), QByteArray("before"));
        QCOMPARE(disk.Names(), QStringList{name}); // nothing half written
        disk.MakeRoom();
        save();
        QVERIFY2(told.isEmpty(), qPrintable(told));
        QVERIFY(Bytes(path).size() > 1000);
        QVERIFY(QFile::remove(path));
    }
    // A folder that nothing can be written to; who is root can.
    QVERIFY(QDir(folder.Path(QString())).mkpath(u"locked"_s));
    QVERIFY(QFile::setPermissions(folder.Path(u"locked"_s), QFile::ReadOwner | QFile::ExeOwner));
    QFile tried(folder.Path(u"locked/tried"_s));
    if (!tried.open(QFile::WriteOnly)) {
        path = folder.Path(u"locked/table.csv"_s);
        panel.Saver().SaveCsv();
        QVERIFY2(told.contains(path), qPrintable(told));
    }
    QVERIFY(QFile::setPermissions(folder.Path(u"locked"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

int main(int argc, char** argv)
{
#ifdef Q_OS_LINUX
    MakeOwnMounts(); // before there is a second thread
#endif
    QApplication app(argc, argv);
    FullDiskTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "full_disk_test.moc"
