#include "document/file_messages.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class FileMessagesTest : public QObject {
    Q_OBJECT

private slots:
    void everyMessageSaysWhatHappenedWhatItMeansAndWhatToDo_data();
    void everyMessageSaysWhatHappenedWhatItMeansAndWhatToDo();
    void everyErrorOfASaveHasItsOwnWords();
    void theSystemsOwnWordsStandAtTheEnd();
    void aFileOfAnotherKindIsNamed();
};

void FileMessagesTest::everyMessageSaysWhatHappenedWhatItMeansAndWhatToDo_data()
{
    QTest::addColumn<FileOperation>("operation");
    QTest::addColumn<FileError>("error");
    QTest::addColumn<QString>("cause");
    QTest::addColumn<QString>("data");

    const auto untouched = u"ファイルには何も変更を加えていません"_s;
    QTest::newRow("open missing") << FileOperation::Open << FileError::NotFound << u"見つかりません"_s << untouched;
    QTest::newRow("open folder") << FileOperation::Open << FileError::IsFolder << u"フォルダーです"_s << untouched;
    QTest::newRow("open forbidden") << FileOperation::Open << FileError::NoPermission << u"権限"_s << untouched;
    QTest::newRow("open full") << FileOperation::Open << FileError::DiskFull << u"エラー"_s << untouched;
    QTest::newRow("open other") << FileOperation::Open << FileError::Other << u"エラー"_s << untouched;

    const auto kept = u"元のファイルはそのまま残っています"_s;
    const auto entered = u"入力内容は画面に残っています"_s;
    QTest::newRow("save missing") << FileOperation::Save << FileError::NotFound << u"見つかりません"_s << entered;
    QTest::newRow("save folder") << FileOperation::Save << FileError::IsFolder << u"フォルダー"_s << entered;
    QTest::newRow("save forbidden") << FileOperation::Save << FileError::NoPermission << u"読み取り専用"_s << kept;
    QTest::newRow("save full") << FileOperation::Save << FileError::DiskFull << u"空き容量"_s << kept;
    QTest::newRow("save other") << FileOperation::Save << FileError::Other << u"エラー"_s << kept;
}

void FileMessagesTest::everyMessageSaysWhatHappenedWhatItMeansAndWhatToDo()
{
    QFETCH(FileOperation, operation);
    QFETCH(FileError, error);
    QFETCH(QString, cause);
    QFETCH(QString, data);
    const QString text = FileMessage(operation, u"/tmp/橋.sbd"_s, {error, {}});
    QVERIFY2(text.contains(cause), qPrintable(text));
    QVERIFY2(text.contains(data), qPrintable(text));
    QVERIFY2(text.contains(u"橋.sbd"_s), qPrintable(text));
    QVERIFY2(text.endsWith(u"ください。"_s), qPrintable(text)); // what to do
}

void FileMessagesTest::everyErrorOfASaveHasItsOwnWords()
{
    QSet<QString> texts;
    for (const FileError error :
         {FileError::NotFound, FileError::IsFolder, FileError::NoPermission, FileError::DiskFull, FileError::Other})
        texts.insert(FileMessage(FileOperation::Save, u"x.sbd"_s, {error, {}}));
    QCOMPARE(texts.size(), 5);
}

void FileMessagesTest::theSystemsOwnWordsStandAtTheEnd()
{
    const QString text = FileMessage(FileOperation::Save, u"x.sbd"_s, {FileError::Other, "Input/output error"});
    QVERIFY(text.endsWith(u"(詳細: Input/output error)"_s));
}

void FileMessagesTest::aFileOfAnotherKindIsNamed()
{
    const QString text = NotAProjectMessage(u"/tmp/a.txt"_s);
    QVERIFY(text.contains(u"a.txt"_s));
    QVERIFY(text.contains(u".sbd ではありません"_s));
}

QTEST_GUILESS_MAIN(FileMessagesTest)
#include "file_messages_test.moc"
