#include "document/section_doc.h"
#include "project/text.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kExamples = QString::fromUtf8(test::ExamplesFolder());

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Copies an example with the files beside it and gives back the copy's path.
QString CopyOf(const QString& name, const QTemporaryDir& folder)
{
    for (const QString& extension : {u".sbd"_s, u".abd"_s})
        QFile::copy(kExamples + u'/' + name + u'/' + name + extension, folder.filePath(name + extension));
    const QString copy = folder.filePath(name + u".sbd"_s);
    QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    return copy;
}

/// Copies the results of an example to beside a copy of it.
void CopyResults(const QString& name, const QTemporaryDir& folder)
{
    const QDir from(kExamples + u'/' + name + u'/' + name + u"_計算結果"_s);
    const QDir to(folder.filePath(from.dirName()));
    QVERIFY(to.mkpath(u"."_s));
    for (const QString& file : from.entryList(QDir::Files)) {
        QVERIFY(QFile::copy(from.filePath(file), to.filePath(file)));
        QFile::setPermissions(to.filePath(file), QFile::ReadOwner | QFile::WriteOwner);
    }
}

bool IsRefused(const QString& text, const QString& character)
{
    QString refused;
    return !fromQString(text, &refused).has_value() && refused == character;
}

} // namespace

class SectionDocTest : public QObject {
    Q_OBJECT

private slots:
    void aNewDocumentHasNoPathAndIsNotModified();
    void openingAnExampleAndSavingItGivesTheSameFile_data();
    void openingAnExampleAndSavingItGivesTheSameFile();
    void openingReadsTheNamesOfTheAnalysisBesideTheProject();
    void resultsThatChangeOnTheDiskAreNewerUntilTheyAreRead();
    void resultsBesideANewPathAreNewer();
    void openingAFileThatIsMissingLeavesTheDocumentAsItIs();
    void savingAsksThePanelsBeforeItWrites();
    void savingMakesThePathTheDocumentsOwn();
    void aSaveThatFailsLeavesPathAndModifiedStateAlone();
    void aPlaceholderInTheControlBlockIsToldAndTheSaveCounts();
    void theModifiedStateIsToldOnceAChange();
    void theHelpCellIsToldWhenItMoves();

    void everySingleByteComesBackFromTheScreen();
    void everyPairOfBytesComesBackFromTheScreen();
    void brokenTextOfAnyLengthComesBackFromTheScreen();
    void aCharacterThatIsNotInTheCodePageIsRefusedByName();
    void otherSystemsSpellingsOfACharacterAreTakenForWindowsOwn();
};

void SectionDocTest::aNewDocumentHasNoPathAndIsNotModified()
{
    const CKELDSectionDoc doc;
    QCOMPARE(doc.PathName(), QString());
    QCOMPARE(doc.Title(), u"New SBD File"_s);
    QVERIFY(!doc.IsModified());
    QCOMPARE(doc.CurrentBlock(), 300);
}

void SectionDocTest::openingAnExampleAndSavingItGivesTheSameFile_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"plate4", "box2", "single1"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void SectionDocTest::openingAnExampleAndSavingItGivesTheSameFile()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = CopyOf(name, folder);
    const QByteArray before = Bytes(path);
    QVERIFY(!before.isEmpty());

    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(path).Ok());
    QCOMPARE(doc.Title(), name + u".sbd"_s);
    QVERIFY(doc.SaveDocument(path).Ok());
    QVERIFY2(Bytes(path) == before, "the saved bytes differ from the example's");
}

void SectionDocTest::openingReadsTheNamesOfTheAnalysisBesideTheProject()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(CopyOf(u"plate4"_s, folder)).Ok());
    QVERIFY(!doc.Data().gridNames.girderNames.empty());
    QCOMPARE(toQString(doc.Data().gridNames.girderNames.front()), u"G1"_s);
}

void SectionDocTest::resultsThatChangeOnTheDiskAreNewerUntilTheyAreRead()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    QVERIFY(!doc.HasNewerResults());
    const QString copy = CopyOf(u"plate4"_s, folder);
    QVERIFY(doc.OpenDocument(copy).Ok());
    QVERIFY(!doc.HasNewerResults());
    QSignalSpy read(&doc, &CKELDSectionDoc::resultsRead);

    CopyResults(u"plate4"_s, folder);
    QVERIFY(doc.HasNewerResults());
    QVERIFY(doc.Results().model.loadCaseNames.empty()); // nobody has asked for them
    doc.ReadResults(doc.PathName());
    QCOMPARE(read.count(), 1);
    QVERIFY(!doc.HasNewerResults());
    QCOMPARE(doc.Results().model.loadCaseNames.size(), std::size_t{13});

    QFile forces(folder.filePath(u"plate4_計算結果/plate4.Z3F"_s));
    QVERIFY(forces.open(QFile::ReadWrite));
    QVERIFY(forces.setFileTime(forces.fileTime(QFile::FileModificationTime).addSecs(1), QFile::FileModificationTime));
    forces.close();
    QVERIFY(doc.HasNewerResults());
    QVERIFY(doc.OpenDocument(copy).Ok());
    QVERIFY(!doc.HasNewerResults());
    QVERIFY(!doc.IsModified());
}

void SectionDocTest::resultsBesideANewPathAreNewer()
{
    const QTemporaryDir folder;
    const QTemporaryDir other;
    CKELDSectionDoc doc;
    CopyResults(u"plate4"_s, folder);
    QVERIFY(doc.OpenDocument(CopyOf(u"plate4"_s, folder)).Ok());
    doc.SetPathName(other.filePath(u"plate4.sbd"_s));
    QVERIFY(!doc.HasNewerResults()); // none there
    CopyResults(u"plate4"_s, other);
    QVERIFY(doc.HasNewerResults());
}

void SectionDocTest::openingAFileThatIsMissingLeavesTheDocumentAsItIs()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    const QString path = CopyOf(u"plate4"_s, folder);
    QVERIFY(doc.OpenDocument(path).Ok());
    const CSbdData before = doc.Data();
    const QSignalSpy reloaded(&doc, &CKELDSectionDoc::reloaded);

    QCOMPARE(doc.OpenDocument(folder.filePath(u"missing.sbd"_s)).error, FileError::NotFound);
    QCOMPARE(doc.OpenDocument(folder.path()).error, FileError::IsFolder);
    QCOMPARE(doc.PathName(), path);
    QVERIFY(doc.Data().SameProject(before));
    QCOMPARE(reloaded.count(), 0);
}

void SectionDocTest::savingAsksThePanelsBeforeItWrites()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    connect(&doc, &CKELDSectionDoc::aboutToSave, &doc, [&] { test::DataOf(doc).SetOption(301, 0, "FROM A PANEL"); });
    const QString path = folder.filePath(u"new.sbd"_s);
    QVERIFY(doc.SaveDocument(path).Ok());
    QVERIFY(Bytes(path).startsWith("TITLE:FROM A PANEL\r\n"));
}

void SectionDocTest::savingMakesThePathTheDocumentsOwn()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    doc.SetModifiedFlag(true);
    const QSignalSpy pathChanged(&doc, &CKELDSectionDoc::pathChanged);
    const QString path = folder.filePath(u"橋梁　一号.sbd"_s);
    QVERIFY(doc.SaveDocument(path).Ok());
    QCOMPARE(doc.PathName(), path);
    QVERIFY(!doc.IsModified());
    QVERIFY(QFile::exists(path));
    QVERIFY(doc.SaveDocument(path).Ok());
    QCOMPARE(pathChanged.count(), 1);
}

void SectionDocTest::aSaveThatFailsLeavesPathAndModifiedStateAlone()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    const QString path = CopyOf(u"single1"_s, folder);
    QVERIFY(doc.OpenDocument(path).Ok());
    doc.SetModifiedFlag(true);

    QCOMPARE(doc.SaveDocument(folder.filePath(u"no folder/x.sbd"_s)).error, FileError::NotFound);
    QCOMPARE(doc.SaveDocument(folder.path()).error, FileError::IsFolder);
#ifdef Q_OS_LINUX
    QCOMPARE(doc.SaveDocument(u"/dev/full"_s).error, FileError::DiskFull);
#endif
#ifdef Q_OS_UNIX
    const QString pipe = folder.filePath(u"pipe.sbd"_s);
    QCOMPARE(QProcess::execute(u"mkfifo"_s, {pipe}), 0);
    QCOMPARE(doc.SaveDocument(pipe).error, FileError::NoPlainFile);
#endif
    QCOMPARE(doc.PathName(), path);
    QVERIFY(doc.IsModified());
}

void SectionDocTest::aPlaceholderInTheControlBlockIsToldAndTheSaveCounts()
{
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    doc.SetModifiedFlag(true);
    test::DataOf(doc).SetOption(301, 4, "<?>");
    bool heldBack = false;
    QVERIFY(doc.SaveDocument(folder.filePath(u"held.sbd"_s), &heldBack).Ok());
    QVERIFY(heldBack);
    QVERIFY(!doc.IsModified());
    QVERIFY(!Bytes(folder.filePath(u"held.sbd"_s)).contains("[SEC_CONTROL]"));

    test::DataOf(doc).SetOption(301, 4, "NO");
    QVERIFY(doc.SaveDocument(folder.filePath(u"held.sbd"_s), &heldBack).Ok());
    QVERIFY(!heldBack);
}

void SectionDocTest::theModifiedStateIsToldOnceAChange()
{
    CKELDSectionDoc doc;
    const QSignalSpy told(&doc, &CKELDSectionDoc::modifiedChanged);
    doc.SetModifiedFlag(true);
    doc.SetModifiedFlag(true);
    doc.SetModifiedFlag(false);
    QCOMPARE(told.count(), 2);
}

void SectionDocTest::theHelpCellIsToldWhenItMoves()
{
    CKELDSectionDoc doc;
    const QSignalSpy told(&doc, &CKELDSectionDoc::helpCellChanged);
    doc.SetHelpCell(313, 2, 3);
    doc.SetHelpCell(313, 2, 3);
    QCOMPARE(told.count(), 1);
    QCOMPARE(doc.HelpBlock(), 313);
    QCOMPARE(doc.HelpRow(), 2);
    QCOMPARE(doc.HelpColumn(), 3);
}

void SectionDocTest::everySingleByteComesBackFromTheScreen()
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        const std::optional<std::string> back = fromQString(toQString(bytes));
        QVERIFY2(back == bytes, qPrintable(u"byte %1"_s.arg(byte, 2, 16)));
    }
}

/// Some characters have two or three codes. They look the same, and what the user types gets the one that Windows
/// writes; every other pair of bytes comes back as it was.
void SectionDocTest::everyPairOfBytesComesBackFromTheScreen()
{
    int otherCode = 0;
    for (int pair = 0; pair < 0x10000; ++pair) {
        const std::string bytes = {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
        const QString text = toQString(bytes);
        const std::optional<std::string> back = fromQString(text);
        QVERIFY2(back.has_value(), qPrintable(u"pair %1 is refused"_s.arg(pair, 4, 16)));
        if (*back == bytes)
            continue;
        ++otherCode;
        const int lead = pair >> 8;
        const bool extension = lead == 0x81 || lead == 0x87 || lead == 0xED || lead == 0xEE || lead == 0xFA;
        QVERIFY2(extension && text.size() == 1 && toQString(*back) == text,
                 qPrintable(u"pair %1 comes back as another character"_s.arg(pair, 4, 16)));
    }
    QCOMPARE(otherCode, 398);
}

void SectionDocTest::brokenTextOfAnyLengthComesBackFromTheScreen()
{
    const std::array<std::string, 6> texts = {
        std::string("\x83"), // a lead byte at the end
        std::string("\x83 G1"),   std::string("\x81\x81\x81"),         std::string("\xFF\x80\xA0"),
        std::string("G1\0G2", 5), std::string("\xE9\x7F\xFD\x8E\xE5"),
    };
    for (const std::string& text : texts)
        QVERIFY(fromQString(toQString(text)) == text);
}

void SectionDocTest::aCharacterThatIsNotInTheCodePageIsRefusedByName()
{
    QVERIFY(IsRefused(u"G1 é"_s, u"é"_s));
    QVERIFY(IsRefused(u"橋𠮷"_s, u"𠮷"_s));
    QVERIFY(IsRefused(QString(QChar(0xD800)), QString(QChar(0xFFFD))));
    QVERIFY(IsRefused(QString(QChar(0xDC41)), QString(QChar(0xFFFD))));
}

void SectionDocTest::otherSystemsSpellingsOfACharacterAreTakenForWindowsOwn()
{
    QCOMPARE(toQString(fromQString(u"1〜2"_s).value_or("")), u"1～2"_s);
    QCOMPARE(toQString(fromQString(u"−5"_s).value_or("")), u"－5"_s);
    QCOMPARE(toQString(fromQString(u"¥"_s).value_or("")), u"\\"_s);
}

QTEST_GUILESS_MAIN(SectionDocTest)
#include "section_doc_test.moc"
