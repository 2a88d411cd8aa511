#include "document/broken_file.h"
#include "tests/surroundings.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

std::string Example(const QString& name)
{
    QFile file(QString::fromUtf8(test::ExamplesFolder()) + u'/' + name + u'/' + name + u".sbd"_s);
    return file.open(QFile::ReadOnly) ? file.readAll().toStdString() : std::string();
}

} // namespace

class BrokenFileTest : public QObject {
    Q_OBJECT

private slots:
    void whatAnEngineChangesIsNotBroken();
    void brokenFilesAreFound_data();
    void brokenFilesAreFound();
    void faultsOfBeforeDoNotCount();
    void nothingIsLostWhereNothingWas();
    void everyLargeCutIsFound();
    void aCutAtASectionsEndIsFound_data();
    void aCutAtASectionsEndIsFound();
    void aSectionThatLostItsRowsIsFound();
    void aSectionWithoutRowsMayGo();
    void aSectionOfAnotherVersionIsMissedToo();
};

void BrokenFileTest::whatAnEngineChangesIsNotBroken()
{
    for (const QString& name : {u"plate4"_s, u"box2"_s, u"single1"_s}) {
        const std::string before = Example(name);
        QVERIFY(!before.empty());
        QVERIFY(!LooksBroken(before, before));
        std::string changed = before;
        changed.replace(changed.find(" YES\r\n"), 4, " NO");
        QVERIFY(!LooksBroken(before, changed));
        QVERIFY(!LooksBroken(before, before + "[NEW_SECTION] 999\r\n  1 2 3\r\n[END NEW_SECTION]\r\n\r\n"));
        QCOMPARE(SectionsThatLostTheirRows(before, changed), std::vector<std::string>());
    }
}

void BrokenFileTest::brokenFilesAreFound_data()
{
    QTest::addColumn<QByteArray>("after");
    const std::string before = Example(u"plate4"_s);
    const auto row = [](const char* name, const std::string& after) {
        QTest::newRow(name) << QByteArray::fromStdString(after);
    };
    row("empty", {});
    row("title alone", before.substr(0, before.find("[SEC_CONTROL]")));
    row("half", before.substr(0, before.size() / 2 - 1));
    row("cut inside the last section", before.substr(0, before.size() - 100));
    row("zero bytes", before.substr(0, before.size() - 600) + std::string(600, '\0'));
    row("all zero", std::string(before.size(), '\0'));
    row("text of another kind", std::string(before.size(), 'x'));
    row("lines between sections", before + "\r\nforrtl: severe (59): list-directed I/O syntax error\r\n");
    std::string unknown = before;
    for (std::size_t pos = 0; (pos = unknown.find('[', pos)) != std::string::npos; pos += 2)
        unknown.insert(pos + 1, "?");
    row("no section of a known name", unknown);
}

void BrokenFileTest::brokenFilesAreFound()
{
    QFETCH(const QByteArray, after);
    QVERIFY(LooksBroken(Example(u"plate4"_s), after.toStdString()));
}

void BrokenFileTest::faultsOfBeforeDoNotCount()
{
    const std::string example = Example(u"plate4"_s);
    const std::string outside = "outside\r\n" + example;
    QVERIFY(!LooksBroken(outside, outside + "[NEW]\r\n[END]\r\n"));
    const std::string open = example.substr(0, example.size() - 100);
    QVERIFY(!LooksBroken(open, open + "\r\n  MORE  1\r\n"));
    const std::string zero = example + std::string(3, '\0');
    QVERIFY(!LooksBroken(zero, "\r\n" + zero));
}

void BrokenFileTest::nothingIsLostWhereNothingWas()
{
    QVERIFY(!LooksBroken({}, {}));
    QVERIFY(!LooksBroken({}, Example(u"plate4"_s)));
    QVERIFY(!LooksBroken("rubbish", {}));
}

void BrokenFileTest::everyLargeCutIsFound()
{
    const std::string before = Example(u"box2"_s);
    for (std::size_t size = 0; size < before.size() / 2; size += 997)
        QVERIFY2(LooksBroken(before, before.substr(0, size)), std::to_string(size).c_str());
}

void BrokenFileTest::aCutAtASectionsEndIsFound_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"plate4", "box2", "single1"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void BrokenFileTest::aCutAtASectionsEndIsFound()
{
    QFETCH(const QString, name);
    const std::string before = Example(name);
    int cuts = 0;
    for (std::size_t end = before.find("\n[E"); end != std::string::npos; end = before.find("\n[E", end + 1)) {
        const std::size_t lineEnd = before.find('\n', end + 1) + 1;
        if (before.find("\n[E", lineEnd) == std::string::npos)
            break; // behind the last section nothing is lost
        QVERIFY2(LooksBroken(before, before.substr(0, lineEnd)), std::to_string(lineEnd).c_str());
        QVERIFY(!SectionsThatLostTheirRows(before, before.substr(0, lineEnd)).empty());
        ++cuts;
    }
    QVERIFY2(cuts > 20, std::to_string(cuts).c_str());
}

void BrokenFileTest::aSectionThatLostItsRowsIsFound()
{
    const std::string before = Example(u"plate4"_s);
    const std::size_t begin = before.find('\n', before.find("[SEC_H_GIRDER]")) + 1;
    const std::size_t end = before.find("[E", begin);
    std::string emptied = before;
    emptied.erase(begin, end - begin);
    QVERIFY(LooksBroken(before, emptied));
    QCOMPARE(SectionsThatLostTheirRows(before, emptied), std::vector<std::string>{"311"});
    std::string gone = before;
    gone.erase(before.find("[SEC_H_GIRDER]"), before.find('\n', end) + 1 - before.find("[SEC_H_GIRDER]"));
    QVERIFY(LooksBroken(before, gone));
    QCOMPARE(SectionsThatLostTheirRows(before, gone), std::vector<std::string>{"311"});
    QCOMPARE(SectionsThatLostTheirRows(emptied, gone), std::vector<std::string>());
}

void BrokenFileTest::aSectionWithoutRowsMayGo()
{
    const std::string before = Example(u"plate4"_s);
    const auto with = [&](const std::string& rows) {
        return before + "[SEC_BOX_OTHER] 333\r\n" + rows + "[END SEC_BOX_OTHER]\r\n";
    };
    // A control row alone is as good as no section: a save leaves it out too.
    const std::string control = "  \x8e\xa9\x93\xae\x8c\x76\x8e\x5a(YES_NO) YES\r\n";
    QVERIFY(!LooksBroken(with(control), before));
    QVERIFY(!LooksBroken(with("! 1 2 3\r\n\r\n"), before));
    QVERIFY(LooksBroken(with(control + "  G1 1 2 3\r\n"), before));
    QVERIFY(LooksBroken(with(control + "  G1 1 2 3\r\n"), with(control)));
}

void BrokenFileTest::aSectionOfAnotherVersionIsMissedToo()
{
    const std::string before = Example(u"single1"_s);
    const std::string cut = before.substr(0, before.find("[USER_MEMO]"));
    QVERIFY(LooksBroken(before, cut));
    QCOMPARE(SectionsThatLostTheirRows(before, cut), std::vector<std::string>{"[USER_MEMO]"});
}

QTEST_GUILESS_MAIN(BrokenFileTest)
#include "broken_file_test.moc"
